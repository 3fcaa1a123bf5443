#pragma once
// The test page "HTM_DLG_CONTROLS" as a modeless dialog that records what
// its controls report and which buttons reach the dialog's hook.
#include <string>
#include <vector>

#include "htmlui/CHTMButtonCtrl.h"
#include "htmlui/CHTMCheckBoxCtrl.h"
#include "htmlui/CHTMDialog.h"

namespace kvt1::testing {

struct ControlEvent {
  CHTMCtrl* control = nullptr;
  HELEMENT element = nullptr;
  UINT code = 0;
  bool state = false;  // pushed (button) or checked (check box)
};

class ControlsDialog : public CHTMDialog {
 public:
  ControlsDialog() : CHTMDialog(L"HTM_DLG_CONTROLS", nullptr) {}

  std::vector<ControlEvent> events;
  std::vector<std::wstring> hookedClicks;

 protected:
  void OnControlEvent(SHTMCtrlEventArgs& args) override {
    ControlEvent event{args.control, args.element, args.code, false};
    if (args.control->TypeName() == L"CHTMButtonCtrl") {
      event.state = static_cast<SHTMButtonCtrlEventArgs&>(args).pushed;
    } else if (args.control->TypeName() == L"CHTMCheckBoxCtrl") {
      event.state = static_cast<SHTMCheckBoxCtrlEventArgs&>(args).checked;
    }
    events.push_back(event);
  }
  bool OnButtonClick(const CHTMElement&, const std::wstring& id, BEHAVIOR_EVENT_PARAMS&) override {
    hookedClicks.push_back(id);
    return false;
  }
};

}  // namespace kvt1::testing
