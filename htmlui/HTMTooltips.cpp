// The hover tooltips of a dialog: what an element's tooltip says, and the
// dialog's tooltip popup that shows it.
#include <algorithm>
#include <climits>
#include <cwchar>
#include <tuple>

#include "htmlui/CHTMCtrl.h"
#include "htmlui/CHTMDialog.h"
#include "htmlui/HTMTooltipTarget.h"
#include "text/TextResources.h"

namespace kvt1 {
namespace {

const wchar_t kDontHandleTooltip[] = L"DontHandleTooltip";

// A decimal number that fits an int; 0 when text is anything else.
int decimalId(const std::wstring& text) {
  if (text.empty() || text.size() > 10 || text.find_first_not_of(L"0123456789") != std::wstring::npos) return 0;
  const unsigned long long value = std::wcstoull(text.c_str(), nullptr, 10);
  return value <= INT_MAX ? static_cast<int>(value) : 0;
}

// Details may run long: only their line breaks are kept, so that they wrap.
std::wstring DetailsToHtml(const std::wstring& text) {
  std::wstring html;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == L'\r') {
      if (i + 1 < text.size() && text[i + 1] == L'\n') continue;
      html += L"<br>";
    } else if (text[i] == L'\n') {
      html += L"<br>";
    } else {
      html += text[i];
    }
  }
  return html;
}

}  // namespace

int CHTMDialog::TooltipDialogId() const { return m_resourceName.empty() ? m_resourceId : 0; }

std::pair<std::wstring, std::wstring> CHTMDialog::TooltipTexts(const STooltipTarget& target) {
  const int dialogId = TooltipDialogId();
  if (dialogId == 0) return {};
  int controlId = decimalId(target.control.GetAttribute("cid"));
  int index = 0;
  if (controlId != 0 && target.itemNumber) {
    if (*target.itemNumber > static_cast<std::uint64_t>(INT_MAX)) return {};
    index = static_cast<int>(*target.itemNumber);
  }
  if (controlId == 0) controlId = decimalId(target.contextKey);
  if (controlId == 0) return {};
  return NTxtRes::GetTooltip(dialogId, controlId, index);
}

bool CHTMDialog::ShowTooltip(const CHTMElement& element) {
  const STooltipTarget target = FindTooltipTarget(element);
  std::wstring title;
  std::wstring details;
  CHTMElement anchor;
  bool found = false;
  if (target.self.IsValid()) {
    title = SelfTooltipHtml(target.self, target.selfImage);
    anchor = target.self;
    found = true;
  } else {
    const auto bound = std::find_if(m_controls.begin(), m_controls.end(), [&](const CHTMCtrl* control) {
      return target.control.IsValid() && control->IsBound() && control->Element() == target.control;
    });
    std::wstring text;
    std::wstring extended;
    if (bound != m_controls.end() && !target.item.IsValid()) text = (*bound)->CurrentTooltip();
    if (text.empty()) std::tie(text, extended) = TooltipTexts(target);
    found = bound != m_controls.end() || !text.empty() || !extended.empty();
    if (text == kDontHandleTooltip) return false;
    title = TextToHtml(text);
    details = DetailsToHtml(extended);
    anchor = target.item.IsValid() ? target.item : target.control.IsValid() ? target.control : target.context;
  }
  m_tooltip.Hide();
  if (!found) return false;
  if (title.empty() && details.empty()) return true;
  if (!m_tooltip.IsBound() && !m_tooltip.Create(*this)) return true;
  m_tooltip.SetContent(title, details);
  m_tooltip.ShowBeside(anchor.IsValid() ? anchor : element);
  return true;
}

}  // namespace kvt1
