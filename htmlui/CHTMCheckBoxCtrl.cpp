#include "htmlui/CHTMCheckBoxCtrl.h"

#include "htmlui/HTMCtrlInPlace.h"

namespace kvt1 {

CHTMCheckBoxCtrl::CHTMCheckBoxCtrl(std::wstring id) : CHTMCtrl(std::move(id)) {}

bool CHTMCheckBoxCtrl::CreateInPlace(CHTMDialog& page, int left, int top, int width, int height) {
  return CreateControlInPlace(*this, page,
                              L"<div id='" + Id() + L"' ><input type='checkbox'/><label>&nbsp;</label></div>", left,
                              top, width, height);
}

void CHTMCheckBoxCtrl::attached(HELEMENT he) {
  const CHTMElement element(he);
  if (!m_input.IsValid()) m_input = element.SelectFirst(L"input");
  if (!m_label.IsValid()) m_label = element.SelectFirst(L"label");
}

void CHTMCheckBoxCtrl::detached(HELEMENT) {
  m_input.Release();
  m_label.Release();
}

bool CHTMCheckBoxCtrl::IsChecked() const { return (m_input.GetState() & STATE_CHECKED) != 0; }

void CHTMCheckBoxCtrl::SetCheck(bool checked) {
  if (checked) {
    m_input.SetState(STATE_CHECKED, 0);
  } else {
    m_input.SetState(0, STATE_CHECKED);
  }
}

void CHTMCheckBoxCtrl::SetCaption(const std::wstring& caption) { m_label.SetHtml(TextToHtml(caption)); }

std::wstring CHTMCheckBoxCtrl::GetCaption() const {
  std::wstring caption = m_label.GetText();
  for (wchar_t& c : caption) {
    if (c == L'\u00A0') c = L' ';
  }
  return caption;
}

BOOL CHTMCheckBoxCtrl::handle_event(HELEMENT, BEHAVIOR_EVENT_PARAMS& params) {
  if ((params.cmd & SINKING) || (params.cmd & ~HANDLED) != BUTTON_STATE_CHANGED) return FALSE;
  if (!m_input.IsValid() || params.heTarget != m_input.Handle()) return FALSE;
  SHTMCheckBoxCtrlEventArgs args;
  args.element = params.heTarget;
  args.code = BUTTON_STATE_CHANGED;
  args.checked = IsChecked();
  Notify(args);
  return FALSE;
}

}  // namespace kvt1
