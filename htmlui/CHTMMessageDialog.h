#pragma once
// Message descriptions shown as an HTML dialog: caption, info text, the
// optional check box and the buttons the description asks for. The state of
// the check box is stored back into the description.
#include "htmlui/CHTMDialog.h"
#include "text/MessageDescription.h"

namespace kvt1 {

class CHTMMessageDialog : public CHTMDialog {
 public:
  CHTMMessageDialog(NTxtRes::CMessageDescription& message, HWND parent);

 protected:
  std::wstring ResolveTag(const std::wstring& tag) override;
  void OnInitDialog() override;
  BOOL handle_event(HELEMENT he, BEHAVIOR_EVENT_PARAMS& params) override;

 private:
  void ShowButton(const wchar_t* id, const NTxtRes::CMessageButton& button);

  NTxtRes::CMessageDescription& m_message;
};

// The message handler that shows descriptions as HTML dialogs, and as a
// standard message box when the dialog cannot be made.
class CHTMMsgHandler : public NTxtRes::CMsgHandlerInterface {
 public:
  int ShowMessage(NTxtRes::CMessageDescription& message) override;
};

}  // namespace kvt1
