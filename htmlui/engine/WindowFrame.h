#pragma once
// The frame and caption bar of a dialog window as its picture shows them,
// from the window's style bits: a sizing frame (WS_THICKFRAME) is 4 pixels
// wide, a dialog frame (WS_DLGFRAME, or WS_EX_DLGMODALFRAME) 3 and a thin
// border (WS_BORDER) 1; a caption (WS_CAPTION) is a bar of 23 pixels with
// the window's text. A borderless popup (the splash) and a child window show
// their client area alone.
#include "htmlui/engine/LayoutProvider.h"
#include "platform/DialogWindow.h"

namespace kvt1::html {

WindowPicture windowPicture(HWND window, int clientWidth, int clientHeight);

}  // namespace kvt1::html
