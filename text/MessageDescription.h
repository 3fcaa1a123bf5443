#pragma once
// A message box described by one key of the text document: its text, caption,
// check-box text and up to four buttons with their captions, and the
// process-wide handler that shows such descriptions.
#include <cstdint>
#include <string>

namespace NTxtRes {

struct CMessageButton {
  bool present = false;
  std::wstring caption;
};

struct CMessageDescription {
  std::wstring infoText;
  std::wstring captionText;
  std::wstring checkBoxText;
  std::wstring key;
  std::uint32_t style = 0;       // icon and default-button flags of a message box
  std::uint32_t extraValue = 0;  // kept for handlers other than the built-in one
  bool flag = false;             // likewise
  bool checkBoxState = false;
  CMessageButton ok;
  CMessageButton cancel;
  CMessageButton yes;
  CMessageButton no;
};

// Builds the description of key's message: "InfoText" (a miss shows the miss
// message), "CaptionText" and "CheckBoxText", and the captions of the buttons
// asked for, from the key or else from "XMLTextButtons". Button names
// ("%OK%", ...) in the texts become the captions without "&".
CMessageDescription BuildMessage(const std::wstring& key, std::uint32_t style, std::uint32_t extraValue, bool flag,
                                 bool ok, bool cancel, bool yes, bool no);

// The message box button set for the present buttons: 3 (Yes, No, Cancel),
// 1 (OK, Cancel), 4 (Yes, No) or 0 (OK).
int GetButtonType(const CMessageDescription& message);

class CMsgHandlerInterface {
 public:
  // Shows the message; the answer is a message box code (1 OK, 2 Cancel, 6 Yes, 7 No).
  virtual int ShowMessage(CMessageDescription& message) = 0;

 protected:
  ~CMsgHandlerInterface() = default;
};

// The built-in handler: a standard message box with the info text, the
// application's title and the description's style plus its button type.
class CMsgHandler : public CMsgHandlerInterface {
 public:
  int ShowMessage(CMessageDescription& message) override;
};

// The title of the built-in handler's boxes (the product's name).
void SetApplicationTitle(const std::wstring& title);

// The current handler; the built-in one unless another was installed.
CMsgHandlerInterface& GetMsgHandler();
// Installs handler as the current one; null restores the built-in one.
void SetMsgHandler(CMsgHandlerInterface* handler);

// Hands the message to the current handler and returns its answer.
int ShowMessage(CMessageDescription& message);

}  // namespace NTxtRes
