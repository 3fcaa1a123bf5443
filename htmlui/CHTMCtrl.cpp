#include "htmlui/CHTMCtrl.h"

#include <cwchar>
#include <sstream>

#include "htmlui/CHTMDialog.h"
#include "htmlui/HTMEngine.h"

namespace kvt1 {

CHTMCtrl::CHTMCtrl(std::wstring id) : m_id(std::move(id)) {}

CHTMCtrl::~CHTMCtrl() { Unbind(); }

bool CHTMCtrl::Bind(CHTMDialog& owner, const CHTMElement& root) {
  Unbind();
  m_owner = &owner;
  m_element = owner.ElementById(m_id);
  html::HtmlEngine* engine = GetHtmlEngine();
  if (!m_element.IsValid() || engine == nullptr) {
    m_element.Release();
    return false;
  }
  engine->AttachEventHandlerEx(m_element.Handle(), &element_proc, this, subscribed_to);
  return true;
}

void CHTMCtrl::Unbind() {
  if (html::HtmlEngine* engine = GetHtmlEngine(); engine && m_element.IsValid()) {
    engine->DetachEventHandler(m_element.Handle(), &element_proc, this);
  }
  m_element.Release();
}

void CHTMCtrl::Notify(SHTMCtrlEventArgs& args) {
  args.control = this;
  if (m_owner) m_owner->OnControlEvent(args);
}

void CHTMCtrl::SetPixels(const char* style, int pixels) { m_element.SetStyle(style, std::to_wstring(pixels) + L"px"); }

int CHTMCtrl::GetPixels(const char* style) const {
  const std::wstring value = m_element.GetStyle(style);
  return value.empty() ? 0 : static_cast<int>(std::wcstol(value.c_str(), nullptr, 10));
}

void CHTMCtrl::SetVisible(bool visible) {
  m_visible = visible;
  m_element.SetStyle("visibility", visible ? L"visible" : L"hidden");
}

bool CHTMCtrl::IsVisible() const { return m_element.IsValid() && m_element.GetStyle("visibility") != L"hidden"; }

void CHTMCtrl::Show(bool show) { m_element.SetStyle("display", show ? L"block" : L"none"); }

bool CHTMCtrl::IsShown() const { return m_element.IsValid() && m_element.GetStyle("display") != L"none"; }

int CHTMCtrl::GetWidth() const { return GetPixels("width"); }
void CHTMCtrl::SetWidth(int pixels) { SetPixels("width", pixels); }
int CHTMCtrl::GetHeight() const { return GetPixels("height"); }
void CHTMCtrl::SetHeight(int pixels) { SetPixels("height", pixels); }

void CHTMCtrl::SetClass(const std::wstring& classes) {
  m_element.SetAttribute("class", classes);
  m_element.Update(true);
}

void CHTMCtrl::SetBackgroundColor(int color, int transparency) {
  m_element.SetStyle("background-color", ColorToCss(color, transparency));
}

void CHTMCtrl::ModifyClass(const std::wstring& name, bool add) {
  if (!m_element.IsValid() || name.empty()) return;
  std::wistringstream words(m_element.GetAttribute("class"));
  std::wstring kept;
  std::wstring word;
  bool present = false;
  while (words >> word) {
    if (word == name) {
      present = true;
      if (!add) continue;
    }
    kept += (kept.empty() ? L"" : L" ") + word;
  }
  if (add && !present) kept += (kept.empty() ? L"" : L" ") + name;
  SetClass(kept);
}

void CHTMCtrl::SetFontFamily(const std::wstring& family) { m_element.SetStyle("font-family", family); }
void CHTMCtrl::SetFontSize(const std::wstring& size) { m_element.SetStyle("font-size", size); }

void CHTMCtrl::SetWeight(const std::wstring& weight) {
  m_element.SetStyle("font-weight", weight.empty() ? L"inherit" : weight);
}

void CHTMCtrl::SetItalic(bool italic) { m_element.SetStyle("font-style", italic ? L"italic" : L"inherit"); }

void CHTMCtrl::Enable(bool enable) {
  m_enabled = enable;
  if (enable) {
    m_element.SetState(0, STATE_DISABLED);
  } else {
    m_element.SetState(STATE_DISABLED, 0);
  }
}

bool CHTMCtrl::IsEnabled() const {
  return m_element.IsValid() ? (m_element.GetState() & STATE_DISABLED) == 0 : m_enabled;
}

void CHTMCtrl::SetFocus() { m_element.SetState(STATE_FOCUS, 0); }

std::wstring CHTMCtrl::GetText() const { return m_element.GetText(); }

void CHTMCtrl::SetText(const std::wstring& text) { m_element.SetHtml(TextToHtml(text)); }

void CHTMCtrl::SetPositionAbsolute(int left) {
  m_element.SetStyle("position", L"absolute");
  SetPixels("left", left);
}

void CHTMCtrl::SetPositionRelative(int left) {
  m_element.SetStyle("position", L"relative");
  SetPixels("left", left);
}

std::wstring CHTMCtrl::TitleKey() const {
  if (TypeName().find(L"CHTMTooltipCtrl") == std::wstring::npos) return {};
  return m_element.GetAttribute("titleid");
}

void CHTMCtrl::SetTooltip(const std::wstring& text, const std::wstring& disabledText) {
  m_tooltip = text;
  m_disabledTooltip = disabledText;
}

std::wstring CHTMCtrl::CurrentTooltip() const {
  if (!IsEnabled() && !m_disabledTooltip.empty()) return m_disabledTooltip;
  return m_tooltip;
}

}  // namespace kvt1
