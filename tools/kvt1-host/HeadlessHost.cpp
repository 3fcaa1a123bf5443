// The emulator answers the module's message boxes, shell requests and help
// windows itself, printing what a user would have seen; on Linux its headless
// desktop holds the module's dialog windows.
#include <atomic>
#include <cstdint>
#include <string>

#include "platform/Export.h"
#include "platform/HeadlessHost.h"
#include "platform/HtmlHelp.h"
#include "platform/MessageBox.h"
#include "platform/WideFormat.h"
#include "tools/kvt1-host/DialogDirector.h"
#include "tools/kvt1-host/PendingWork.h"
#include "tools/kvt1-host/core/EmulatedHost.h"
#ifndef _WIN32
#include "platform/posix/HeadlessDesktop.h"
#endif

using kvt1::emu::EmulatedHost;
using kvt1::platform::formatWide;

namespace {

std::atomic<int> g_pendingWork{0};

}  // namespace

int kvt1::emu::pendingModuleWork() { return g_pendingWork; }

KVT1_EXPORT void kvt1HeadlessPendingWork(int change) { g_pendingWork += change; }

KVT1_EXPORT int kvt1HeadlessMessageBox(const wchar_t* text, const wchar_t* caption, unsigned type) {
  EmulatedHost::instance().print(formatWide(L"message box: [%s] %s\n", caption, text));
  if (kvt1::emu::DialogDirector* director = kvt1::emu::DialogDirector::current()) {
    if (const std::optional<int> answer = director->answerMessageBox(type)) return *answer;
  }
  return kvt1::platform::defaultMessageBoxAnswer(type);
}

KVT1_EXPORT bool kvt1HeadlessShellOpen(const wchar_t* target, int showCommand) {
  EmulatedHost::instance().print(formatWide(L"shell open: %s (show %d)\n", target, showCommand));
  return true;
}

KVT1_EXPORT void* kvt1HeadlessHtmlHelp(const wchar_t* file, unsigned command, unsigned long long data) {
  static int window = 0;
  if (command == kvt1::platform::kHhHelpContext) {
    EmulatedHost::instance().print(formatWide(L"help: topic %I64u of %s\n", data, file));
  } else {
    EmulatedHost::instance().print(formatWide(L"help: contents of %s\n", file));
  }
  return &window;
}

#ifndef _WIN32
KVT1_EXPORT kvt1::platform::HeadlessDesktop* kvt1HeadlessDesktop() { return &kvt1::platform::HeadlessDesktop::local(); }
#endif
