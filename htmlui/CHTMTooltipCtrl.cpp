#include "htmlui/CHTMTooltipCtrl.h"

#include "htmlui/CHTMDialog.h"
#include "htmlui/HTMEngine.h"
#include "platform/Unicode.h"

namespace kvt1 {
namespace {

constexpr UINT kPlaceBelow = 2;

}  // namespace

CHTMTooltipCtrl::CHTMTooltipCtrl(std::wstring id) : CHTMCtrl(std::move(id)) {}

std::wstring CHTMTooltipCtrl::ContentHtml() const { return m_title + L"<div .details>" + m_details + L"</div>"; }

bool CHTMTooltipCtrl::Create(CHTMDialog& page) {
  html::HtmlEngine* engine = GetHtmlEngine();
  const CHTMElement& body = page.Body();
  if (engine == nullptr || !body.IsValid()) return false;
  const std::wstring markup =
      L"<popup id='" + Id() + L"' class='Tooltip'>" + (m_hasContent ? ContentHtml() : L"") + L"</popup>";
  const std::string bytes = platform::toUtf8(markup);
  return engine->SetElementHtml(body.Handle(), reinterpret_cast<LPCBYTE>(bytes.data()),
                                static_cast<DWORD>(bytes.size()), SIH_APPEND_AFTER_LAST) == HLDOM_OK &&
         Bind(page, page.Root());
}

void CHTMTooltipCtrl::SetContent(const std::wstring& title, const std::wstring& details) {
  m_title = title;
  m_details = details;
  m_hasContent = true;
  Element().SetHtml(ContentHtml());
}

void CHTMTooltipCtrl::SetDetails(const std::wstring& details) {
  m_details = details;
  Element().SelectFirst(L"div.details").SetHtml(details);
}

bool CHTMTooltipCtrl::ShowBeside(const CHTMElement& anchor) {
  html::HtmlEngine* engine = GetHtmlEngine();
  return engine != nullptr && IsBound() && anchor.IsValid() &&
         engine->ShowPopup(Element().Handle(), anchor.Handle(), kPlaceBelow) == HLDOM_OK;
}

void CHTMTooltipCtrl::Hide() {
  html::HtmlEngine* engine = GetHtmlEngine();
  if (engine != nullptr && IsPopupShown()) engine->HidePopup(Element().Handle());
}

bool CHTMTooltipCtrl::IsPopupShown() const { return (Element().GetState() & STATE_POPUP) != 0; }

}  // namespace kvt1
