#include "htmlui/CHTMMessageDialog.h"

#include "text/Placeholders.h"
#include "text/XmlEntities.h"

namespace kvt1 {
namespace {

// Message texts are plain text: escaped, with their line breaks kept, and
// free to wrap (unlike a control's text, whose blanks do not break), except
// before a closing mark, which never starts a line alone ("again ?").
std::wstring messageHtml(const std::wstring& text) {
  std::wstring html = escapeXmlText(text);
  NTxtRes::ReplaceAll(html, L"\r\n", L"<br>");
  NTxtRes::ReplaceAll(html, L"\n", L"<br>");
  for (const wchar_t* mark : {L"?", L"!", L":", L";"})
    NTxtRes::ReplaceAll(html, std::wstring(L" ") + mark, std::wstring(L"&nbsp;") + mark);
  return html;
}

std::wstring withoutAmpersands(std::wstring caption) {
  NTxtRes::ReplaceAll(caption, L"&", L"");
  return caption;
}

}  // namespace

CHTMMessageDialog::CHTMMessageDialog(NTxtRes::CMessageDescription& message, HWND parent)
    : CHTMDialog(L"HTM_DLG_MESSAGE", parent), m_message(message) {}

std::wstring CHTMMessageDialog::ResolveTag(const std::wstring& tag) {
  if (tag == L"caption") return m_message.captionText.empty() ? L" " : escapeXmlText(m_message.captionText);
  return {};
}

void CHTMMessageDialog::OnInitDialog() {
  ElementById(L"txtInfo").SetHtml(messageHtml(m_message.infoText));
  const CHTMElement check = ElementById(L"divCheck");
  if (m_message.checkBoxText.empty()) {
    check.SetStyle("display", L"none");
  } else {
    ElementById(L"lblCheck").SetHtml(messageHtml(m_message.checkBoxText));
    if (m_message.checkBoxState) ElementById(L"chkMessage").SetState(STATE_CHECKED, 0);
  }
  ShowButton(L"btnOk", m_message.ok);
  ShowButton(L"btnCancel", m_message.cancel);
  ShowButton(L"btnYes", m_message.yes);
  ShowButton(L"btnNo", m_message.no);
}

void CHTMMessageDialog::ShowButton(const wchar_t* id, const NTxtRes::CMessageButton& button) {
  const CHTMElement element = ElementById(id);
  if (button.present) {
    element.SetText(withoutAmpersands(button.caption));
  } else {
    element.SetStyle("display", L"none");
  }
}

BOOL CHTMMessageDialog::handle_event(HELEMENT he, BEHAVIOR_EVENT_PARAMS& params) {
  const UINT code = params.cmd & ~(SINKING | HANDLED);
  if (code == BUTTON_STATE_CHANGED && !(params.cmd & SINKING)) {
    const CHTMElement check = ElementById(L"chkMessage");
    if (check.IsValid() && check.Handle() == params.heTarget) {
      m_message.checkBoxState = (check.GetState() & STATE_CHECKED) != 0;
    }
  }
  return CHTMDialog::handle_event(he, params);
}

int CHTMMsgHandler::ShowMessage(NTxtRes::CMessageDescription& message) {
  CHTMMessageDialog dialog(message, nullptr);
  const int answer = dialog.DoModal();
  if (answer != -1) return answer;
  // Without the engine or the page the message still reaches the user.
  NTxtRes::CMsgHandler standard;
  return standard.ShowMessage(message);
}

}  // namespace kvt1
