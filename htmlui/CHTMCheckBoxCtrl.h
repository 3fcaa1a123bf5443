#pragma once
// A check box: a div that holds an input of type checkbox and a label. The
// checked state is the input element's own engine state (STATE_CHECKED), so
// the engine's clicks, the control and the page's ":checked" style agree.
#include <string>

#include "htmlui/CHTMCtrl.h"

namespace kvt1 {

// The user changed the input's checked state.
struct SHTMCheckBoxCtrlEventArgs : SHTMCtrlEventArgs {
  bool checked = false;  // the state after the change
};

class CHTMCheckBoxCtrl : public CHTMCtrl {
 public:
  explicit CHTMCheckBoxCtrl(std::wstring id);

  // Appends "<div id='ID' ><input type='checkbox'/><label>&nbsp;</label></div>"
  // to the page's body, binds to it and places it absolutely at left and top
  // with the given width and height. A negative size cannot be set. False
  // when any step fails; what was written into the page stays there.
  bool CreateInPlace(CHTMDialog& page, int left, int top, int width, int height);

  bool IsChecked() const;
  // Sets the state; the owner hears only of the user's changes.
  void SetCheck(bool checked);
  // The label's text, through the text to HTML conversion, so that blanks
  // and line breaks show; read back with its non-breaking blanks as blanks.
  void SetCaption(const std::wstring& caption);
  std::wstring GetCaption() const;

  const CHTMElement& Input() const { return m_input; }
  const CHTMElement& Label() const { return m_label; }

  std::wstring TypeName() const override { return L"CHTMCheckBoxCtrl"; }

 protected:
  // Binding finds the input and the label once; unbinding drops them.
  void attached(HELEMENT he) override;
  void detached(HELEMENT he) override;
  BOOL handle_event(HELEMENT he, BEHAVIOR_EVENT_PARAMS& params) override;

 private:
  CHTMElement m_input;
  CHTMElement m_label;
};

}  // namespace kvt1
