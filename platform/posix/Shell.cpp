#include "platform/Shell.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/HeadlessHost.h"
#include "platform/Unicode.h"

extern char** environ;

namespace kvt1::platform {

bool shellOpen(const std::wstring& target, int showCommand) {
  if (auto open = reinterpret_cast<Kvt1HeadlessShellOpenFn>(mainProgramSymbol(KVT1_HEADLESS_SHELL_OPEN))) {
    return open(target.c_str(), showCommand);
  }
  // xdg-open runs detached: a child that starts it and leaves at once, so
  // that nothing of it stays tied to the host process.
  const std::string utf8 = toUtf8(target);
  const pid_t child = fork();
  if (child < 0) return false;
  if (child == 0) {
    setsid();
    char* const argv[] = {const_cast<char*>("xdg-open"), const_cast<char*>(utf8.c_str()), nullptr};
    pid_t opener = 0;
    _exit(posix_spawnp(&opener, "xdg-open", nullptr, nullptr, argv, environ) == 0 ? 0 : 127);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace kvt1::platform
