#include "platform/MessageBox.h"

#include <windows.h>

#include "platform/HeadlessHost.h"

namespace kvt1::platform {

int showMessageBox(void* owner, const std::wstring& text, const std::wstring& caption, unsigned type) {
  if (auto answer = reinterpret_cast<Kvt1HeadlessMessageBoxFn>(mainProgramSymbol(KVT1_HEADLESS_MESSAGE_BOX))) {
    return answer(text.c_str(), caption.c_str(), type);
  }
  return MessageBoxW(static_cast<HWND>(owner), text.c_str(), caption.c_str(), type);
}

}  // namespace kvt1::platform
