#include "platform/HtmlHelp.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "platform/HeadlessHost.h"
#include "platform/posix/NativePath.h"

extern char** environ;

namespace kvt1::platform {
namespace {

constexpr char kViewer[] = "xchm";

// The viewer's full path on the PATH, looked up once; empty when there is none.
const std::string& viewerPath() {
  static const std::string path = [] {
    const char* search = std::getenv("PATH");
    std::string folders = search ? search : "";
    for (std::size_t start = 0; start <= folders.size();) {
      std::size_t end = folders.find(':', start);
      if (end == std::string::npos) end = folders.size();
      const std::string candidate = folders.substr(start, end - start) + "/" + kViewer;
      if (end > start && access(candidate.c_str(), X_OK) == 0) return candidate;
      start = end + 1;
    }
    return std::string();
  }();
  return path;
}

// Starts the viewer detached: a child starts it and leaves at once.
bool startDetached(std::vector<std::string> args) {
  std::vector<char*> argv;
  for (std::string& arg : args) argv.push_back(arg.data());
  argv.push_back(nullptr);
  const pid_t child = fork();
  if (child < 0) return false;
  if (child == 0) {
    setsid();
    pid_t viewer = 0;
    _exit(posix_spawn(&viewer, argv[0], nullptr, nullptr, argv.data(), environ) == 0 ? 0 : 127);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

void* htmlHelp(void*, const std::wstring& file, unsigned command, std::uintptr_t data) {
  if (auto headless = reinterpret_cast<Kvt1HeadlessHtmlHelpFn>(mainProgramSymbol(KVT1_HEADLESS_HTML_HELP))) {
    return headless(file.c_str(), command, data);
  }
  if (!htmlHelpAvailable()) return nullptr;
  std::vector<std::string> args = {viewerPath()};
  if (command == kHhHelpContext) args.push_back("--contextid=" + std::to_string(data));
  args.push_back(nativePath(file));
  // The viewer runs on its own; a started viewer stands for its window.
  static int started = 0;
  return startDetached(std::move(args)) ? &started : nullptr;
}

bool htmlHelpAvailable() { return !viewerPath().empty(); }

}  // namespace kvt1::platform
