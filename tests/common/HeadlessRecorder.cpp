#include "tests/common/HeadlessRecorder.h"

#include "platform/Export.h"
#include "platform/HtmlHelp.h"
#include "platform/MessageBox.h"

namespace kvt1::testing {

HeadlessRecord& headless() {
  static HeadlessRecord record;
  return record;
}

}  // namespace kvt1::testing

using kvt1::testing::headless;

KVT1_EXPORT int kvt1HeadlessMessageBox(const wchar_t* text, const wchar_t* caption, unsigned type) {
  headless().messages.push_back(std::wstring(caption) + L": " + text);
  headless().messageTypes.push_back(type);
  if (headless().answers.empty()) return kvt1::platform::defaultMessageBoxAnswer(type);
  const int answer = headless().answers.front();
  headless().answers.pop_front();
  return answer;
}

KVT1_EXPORT void* kvt1HeadlessHtmlHelp(const wchar_t* file, unsigned command, unsigned long long data) {
  static int window = 0;
  if (command == kvt1::platform::kHhHelpContext) {
    headless().helpRequests.push_back(L"context " + std::to_wstring(data) + L" " + file);
    return headless().knownTopics.count(data) ? &window : nullptr;
  }
  headless().helpRequests.push_back(L"contents " + std::wstring(file));
  return &window;
}

KVT1_EXPORT bool kvt1HeadlessShellOpen(const wchar_t* target, int) {
  headless().shellOpened.push_back(target);
  return true;
}
