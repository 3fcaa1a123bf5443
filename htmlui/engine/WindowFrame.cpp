#include "htmlui/engine/WindowFrame.h"

#include <cstdint>

#include "platform/Unicode.h"
#include "platform/Win32.h"

namespace kvt1::html {
namespace {

constexpr int kSizingFrame = 4;
constexpr int kDialogFrameWidth = 3;
constexpr int kCaptionHeight = 23;

}  // namespace

WindowPicture windowPicture(HWND window, int clientWidth, int clientHeight) {
  WindowPicture picture;
  picture.clientWidth = clientWidth;
  picture.clientHeight = clientHeight;
  const std::uint32_t style = platform::windowStyle(window);
  if ((style & WS_CHILD) != 0) return picture;
  if ((style & WS_THICKFRAME) != 0) {
    picture.border = kSizingFrame;
  } else if ((style & WS_DLGFRAME) != 0 || (platform::windowExStyle(window) & WS_EX_DLGMODALFRAME) != 0) {
    picture.border = kDialogFrameWidth;
  } else if ((style & WS_BORDER) != 0) {
    picture.border = 1;
  }
  if ((style & WS_CAPTION) == WS_CAPTION) {
    picture.captionHeight = kCaptionHeight;
    picture.caption = platform::toUtf8(platform::windowText(window));
  }
  return picture;
}

}  // namespace kvt1::html
