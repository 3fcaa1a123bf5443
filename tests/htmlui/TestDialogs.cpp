#include "tests/htmlui/TestDialogs.h"

#include "platform/DialogWindow.h"
#include "platform/Unicode.h"
#ifndef _WIN32
#include "platform/posix/HeadlessDesktop.h"
#endif

namespace kvt1::testing {

constexpr std::uintptr_t kScriptTimer = 7;

std::wstring ScriptedDialog::ResolveTag(const std::wstring& tag) {
  if (tag == L"title") return L"Test dialog";
  if (tag == L"greeting") return L"Hello from <b>KVT</b>";
  return {};
}

void ScriptedDialog::OnInitDialog() {
  dialogProperty = platform::windowProp(GetHwnd(), L"FPHTMDialog") == 1;
  windowTitle = platform::windowText(GetHwnd());
  platform::setTimer(GetHwnd(), kScriptTimer, 20);
}

bool ScriptedDialog::OnButtonClick(const CHTMElement&, const std::wstring& id, BEHAVIOR_EVENT_PARAMS&) {
  clicks.push_back(id);
  return true;
}

bool ScriptedDialog::MonitorClick(const CHTMElement& element) {
  monitored.push_back(element.GetAttribute("name"));
  return !consumeClicks;
}

void ScriptedDialog::OnTimer(std::uintptr_t id) {
  if (id != kScriptTimer) return;
  if (next_ < steps_.size()) {
    steps_[next_++](*this);
  } else {
    platform::killTimer(GetHwnd(), kScriptTimer);
  }
}

void DialogTest::SetUp() {
  SetHtmlEngine(&engine_);
#ifndef _WIN32
  platform::HeadlessDesktop::instance().setIdleHandler([] { platform::HeadlessDesktop::instance().advance(20); });
#endif
}

void DialogTest::TearDown() {
#ifndef _WIN32
  platform::HeadlessDesktop::instance().setIdleHandler(nullptr);
#endif
  SetHtmlEngine(nullptr);
}

void DialogTest::click(ScriptedDialog& dialog, const std::wstring& id) {
  const CHTMElement element = dialog.ElementById(id);
  ASSERT_TRUE(element.IsValid()) << "no element " << platform::toUtf8(id);
  engine_.click(element.Handle());
}

}  // namespace kvt1::testing
