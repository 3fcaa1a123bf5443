#pragma once
// A test page of text boxes as a modeless dialog that records what its text
// boxes report.
#include <string>
#include <vector>

#include "htmlui/CHTMDialog.h"
#include "htmlui/CHTMTextBoxCtrl.h"

namespace kvt1::testing {

class TextBoxDialog : public CHTMDialog {
 public:
  explicit TextBoxDialog(const wchar_t* page = L"HTM_DLG_TEXTBOXES") : CHTMDialog(page, nullptr) {}

  std::vector<SHTMTextBoxCtrlEventArgs> events;

 protected:
  void OnControlEvent(SHTMCtrlEventArgs& args) override {
    if (args.control->TypeName() == L"CHTMTextBoxCtrl") events.push_back(static_cast<SHTMTextBoxCtrlEventArgs&>(args));
  }
};

}  // namespace kvt1::testing
