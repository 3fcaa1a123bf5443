#include "htmlui/engine/WindowFrame.h"

#include <cstdint>

#include "platform/Unicode.h"

namespace kvt1::html {
namespace {

constexpr std::uint32_t kChild = 0x40000000;        // WS_CHILD
constexpr std::uint32_t kCaption = 0x00C00000;      // WS_CAPTION (WS_BORDER | WS_DLGFRAME)
constexpr std::uint32_t kBorder = 0x00800000;       // WS_BORDER
constexpr std::uint32_t kDialogFrame = 0x00400000;  // WS_DLGFRAME
constexpr std::uint32_t kThickFrame = 0x00040000;   // WS_THICKFRAME
constexpr std::uint32_t kExModalFrame = 0x00000001; // WS_EX_DLGMODALFRAME

constexpr int kSizingFrame = 4;
constexpr int kDialogFrameWidth = 3;
constexpr int kCaptionHeight = 23;

}  // namespace

WindowPicture windowPicture(HWND window, int clientWidth, int clientHeight) {
  WindowPicture picture;
  picture.clientWidth = clientWidth;
  picture.clientHeight = clientHeight;
  const std::uint32_t style = platform::windowStyle(window);
  if ((style & kChild) != 0) return picture;
  if ((style & kThickFrame) != 0) {
    picture.border = kSizingFrame;
  } else if ((style & kDialogFrame) != 0 || (platform::windowExStyle(window) & kExModalFrame) != 0) {
    picture.border = kDialogFrameWidth;
  } else if ((style & kBorder) != 0) {
    picture.border = 1;
  }
  if ((style & kCaption) == kCaption) {
    picture.captionHeight = kCaptionHeight;
    picture.caption = platform::toUtf8(platform::windowText(window));
  }
  return picture;
}

}  // namespace kvt1::html
