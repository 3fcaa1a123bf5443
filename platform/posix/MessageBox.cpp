#include "platform/MessageBox.h"

#include <cstdio>

#include "platform/HeadlessHost.h"
#include "platform/Unicode.h"

namespace kvt1::platform {

int showMessageBox(void*, const std::wstring& text, const std::wstring& caption, unsigned type) {
  if (auto answer = reinterpret_cast<Kvt1HeadlessMessageBoxFn>(mainProgramSymbol(KVT1_HEADLESS_MESSAGE_BOX))) {
    return answer(text.c_str(), caption.c_str(), type);
  }
  // No desktop to show it on: the text goes to the error stream and the box
  // takes its default button.
  std::fprintf(stderr, "%s: %s\n", toUtf8(caption).c_str(), toUtf8(text).c_str());
  return defaultMessageBoxAnswer(type);
}

}  // namespace kvt1::platform
