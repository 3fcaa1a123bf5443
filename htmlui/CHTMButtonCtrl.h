#pragma once
// A button: an element of the page bound by its id, or one that the control
// writes into the page itself. Its pushed state lives in the element's
// "state" attribute ("pushed" or "normal"), where the page's style sheet
// sees it; the control keeps no copy.
#include <string>

#include "htmlui/CHTMCtrl.h"

namespace kvt1 {

// A click on the button, handed to the owner after the dialog let it pass.
struct SHTMButtonCtrlEventArgs : SHTMCtrlEventArgs {
  bool pushed = false;  // the pushed state when it was clicked
};

class CHTMButtonCtrl : public CHTMCtrl {
 public:
  explicit CHTMButtonCtrl(std::wstring id);

  // Appends "<button id='ID' ></button>" to the page's body, binds to it and
  // places it absolutely at left and top with the given width and height. A
  // negative size cannot be set. False when any step fails; what was written
  // into the page stays there.
  bool CreateInPlace(CHTMDialog& page, int left, int top, int width, int height);

  void SetPushed(bool pushed);
  bool IsPushed() const;

  std::wstring TypeName() const override { return L"CHTMButtonCtrl"; }

 protected:
  BOOL handle_event(HELEMENT he, BEHAVIOR_EVENT_PARAMS& params) override;
};

}  // namespace kvt1
