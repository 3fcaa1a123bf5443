#pragma once
// Controls that write their own markup into a dialog's page, at a place
// given in pixels, instead of binding to an element the page already holds.
#include <string>

namespace kvt1 {

class CHTMCtrl;
class CHTMDialog;

// Appends markup (which must hold an element with the control's id) to the
// page's body, binds the control to that element and registers it with the
// dialog, then sets style "position" "absolute", "left", "top", "width" and
// "height" in pixels. A negative size cannot be set. True only when every
// step succeeded; the markup stays in the page whatever comes after it.
bool CreateControlInPlace(CHTMCtrl& control, CHTMDialog& page, const std::wstring& markup, int left, int top, int width,
                          int height);

}  // namespace kvt1
