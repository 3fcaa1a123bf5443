#include "platform/Shell.h"

#include <windows.h>

#include <shellapi.h>

#include "platform/HeadlessHost.h"

namespace kvt1::platform {

bool shellOpen(const std::wstring& target, int showCommand) {
  if (auto open = reinterpret_cast<Kvt1HeadlessShellOpenFn>(mainProgramSymbol(KVT1_HEADLESS_SHELL_OPEN))) {
    return open(target.c_str(), showCommand);
  }
  // Values above 32 mean success.
  const auto result =
      reinterpret_cast<INT_PTR>(ShellExecuteW(nullptr, L"open", target.c_str(), nullptr, nullptr, showCommand));
  return result > 32;
}

}  // namespace kvt1::platform
