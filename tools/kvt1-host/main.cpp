// kvt1-host: plays the CAD host for a KVT1 module file.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "platform/CodePage.h"
#include "platform/File.h"
#include "platform/ProcessHeap.h"
#include "platform/TextDecoding.h"
#include "platform/Unicode.h"
#include "tools/kvt1-host/Session.h"
#include "tools/kvt1-host/core/EmulatedHost.h"

namespace {

const wchar_t kUsage[] =
    L"Usage: kvt1-host [options] MODULE [SCRIPT]\n"
    L"\n"
    L"Loads MODULE (a kvt<year>.arx or kvt<year>.so file) as the CAD host does,\n"
    L"opens a drawing, evaluates the AutoLISP forms of SCRIPT (standard input\n"
    L"when SCRIPT is missing or \"-\") and unloads the module at the end.\n"
    L"\n"
    L"Script lines:\n"
    L"  (function args...)  calls a LISP function; its result is printed in\n"
    L"                      AutoLISP notation (nil, (0), \"1\")\n"
    L"  WORD                runs a command: the module's (KVT1), NEW opens\n"
    L"                      another drawing, CLOSE closes the current one,\n"
    L"                      RELOAD unloads the module and loads it again,\n"
    L"                      IDLE lets the host idle (see below) with its wait,\n"
    L"                      GALLERY shows the emulator's own dialog of every\n"
    L"                      kind of control (menus, tabs, text boxes, tooltips)\n"
    L"  ; text              a comment\n"
    L"Built-in functions: getenv, setenv, quote.\n"
    L"What the module prints comes as it is printed; every queued expression\n"
    L"is printed as \"queued: EXPRESSION\" in queue order.\n"
    L"\n"
    L"Dialog lines, written before the call that opens the dialog and played\n"
    L"in order whenever one of its dialogs waits for the user:\n"
    L"  @click ID           clicks the element with that id (e.g. @click btnOk)\n"
    L"  @click-selector CSS clicks the first element that the CSS selector finds\n"
    L"  @click-at X Y       clicks at a point of the dialog, in pixels\n"
    L"  @right-click ID     clicks the element with the right button\n"
    L"  @hover ID           moves the pointer onto the element (then @wait)\n"
    L"  @key NAME           presses a key: LEFT, RIGHT, UP, DOWN, HOME, END,\n"
    L"                      RETURN, ESCAPE, TAB, BACK or DELETE\n"
    L"  @type TEXT          types the text into the focused element\n"
    L"  @wait MS            lets MS milliseconds pass, so that timers fire\n"
    L"  @answer NAME        answers the next message box or message dialog with\n"
    L"                      OK, CANCEL, YES or NO\n"
    L"  @render DIR         draws every dialog that opens from now on into\n"
    L"                      DIR/N-TITLE.png, as the user sees its window (frame\n"
    L"                      and caption), and prints \"rendered: PATH\"\n"
    L"  @snapshot NAME      draws the waiting dialog as it is now into\n"
    L"                      DIR/N-NAME.png\n"
    L"A message dialog prints its text when it opens, as a message box does.\n"
    L"A dialog with nothing left to play is closed (\"closed unanswered\").\n"
    L"Dialog lines that no dialog took during a call go, after it, to a dialog\n"
    L"that stays open without waiting (the splash: @click clickArea), which\n"
    L"stays open when they are played; lines that none took are reported.\n"
    L"On Linux the dialogs are windows of a headless desktop whose clock only\n"
    L"@wait moves; on Windows they are real windows, sent real pointer and key\n"
    L"messages, and @wait lets real time pass.\n"
    L"\n"
    L"Idle: between script lines the host's message loop handles what the\n"
    L"module posted to the main thread (the answer of the start-up update\n"
    L"check, fetched on a worker thread, and the notification it opens). After\n"
    L"the last line, and before RELOAD or the unload, it also waits while the\n"
    L"module has such work pending, up to the idle bound, so a late\n"
    L"notification still appears (and takes the dialog lines left over); the\n"
    L"IDLE command does the same at its place in the script.\n"
    L"\n"
    L"Options:\n"
    L"  --env NAME=VALUE    sets a host environment value, e.g. ACAD (the\n"
    L"                      support search path); may be repeated\n"
    L"  --registry DIR      keeps the registry in DIR (the Linux build's\n"
    L"                      file-backed registry; default ~/.config/kvt1/registry)\n"
    L"  --echo              prints each line as \"Command: LINE\" before it runs\n"
    L"  --render DIR        draws every dialog from the module's load on, as\n"
    L"                      @render DIR does\n"
    L"  --idle-bound MS     the longest wait for the module's pending work\n"
    L"                      before the unload (default 6000; 0: no wait)\n"
    L"  --help              shows this text\n"
    L"\n"
    L"Exit status: 0 when every line ran, 1 when the module could not be\n"
    L"loaded or initialised, 2 when script lines had faults.\n";

bool readScript(const std::wstring& path, std::wstring& script) {
  constexpr std::size_t kNoBound = std::numeric_limits<std::size_t>::max();
  std::string bytes;
  if (!(path == L"-" ? kvt1::platform::readWholeStream(stdin, kNoBound, bytes)
                     : kvt1::platform::readWholeFile(path, kNoBound, bytes)))
    return false;
  script = kvt1::platform::decodeText(bytes, kvt1::platform::kCodePageUtf8);
  return true;
}

// The module's registry store reads its folder from the environment when first used.
bool useRegistryFolder(const std::wstring& folder) {
#ifdef _WIN32
  return false;
#else
  return setenv("KVT1_REGISTRY_DIR", kvt1::platform::toUtf8(folder).c_str(), 1) == 0;
#endif
}

void printError(const std::wstring& text) {
  const std::string bytes = kvt1::platform::toUtf8(L"kvt1-host: " + text + L"\n");
  std::fwrite(bytes.data(), 1, bytes.size(), stderr);
}

int run(const std::vector<std::wstring>& args) {
  kvt1::platform::useHostProcessHeap();
  std::vector<std::pair<std::wstring, std::wstring>> environment;
  std::vector<std::wstring> positional;
  bool echo = false;
  std::wstring registryFolder;
  std::wstring renderFolder;
  std::optional<unsigned> idleBound;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::wstring& arg = args[i];
    if (arg == L"--help" || arg == L"-h") {
      kvt1::emu::EmulatedHost::writeStandardOutput(kUsage);
      return 0;
    }
    if (arg == L"--echo") {
      echo = true;
    } else if (arg == L"--registry") {
      if (i + 1 >= args.size()) {
        printError(L"--registry takes a folder");
        return 1;
      }
      registryFolder = args[++i];
    } else if (arg == L"--render") {
      if (i + 1 >= args.size()) {
        printError(L"--render takes a folder");
        return 1;
      }
      renderFolder = args[++i];
    } else if (arg == L"--idle-bound") {
      const std::wstring value = i + 1 < args.size() ? args[++i] : L"";
      if (value.empty() || value.size() > 7 || value.find_first_not_of(L"0123456789") != std::wstring::npos) {
        printError(L"--idle-bound takes milliseconds");
        return 1;
      }
      idleBound = static_cast<unsigned>(std::stoul(value));
    } else if (arg == L"--env") {
      const std::size_t equals = i + 1 < args.size() ? args[i + 1].find(L'=') : std::wstring::npos;
      if (equals == std::wstring::npos || equals == 0) {
        printError(L"--env takes NAME=VALUE");
        return 1;
      }
      environment.emplace_back(args[i + 1].substr(0, equals), args[i + 1].substr(equals + 1));
      ++i;
    } else if (arg.size() > 1 && arg[0] == L'-') {
      printError(L"unknown option " + arg + L" (see --help)");
      return 1;
    } else {
      positional.push_back(arg);
    }
  }
  if (positional.empty() || positional.size() > 2) {
    printError(L"give a module file and at most one script (see --help)");
    return 1;
  }

  const std::wstring scriptPath = positional.size() == 2 ? positional[1] : L"-";
  std::wstring script;
  if (!readScript(scriptPath, script)) {
    printError(L"cannot read the script " + scriptPath);
    return 1;
  }

  if (!registryFolder.empty() && !useRegistryFolder(registryFolder)) {
    printError(L"--registry applies to the Linux build's file-backed registry only");
    return 1;
  }

  kvt1::emu::Session session;
  session.setEcho(echo);
  if (!renderFolder.empty()) session.setRenderFolder(renderFolder);
  if (idleBound) session.setIdleBound(*idleBound);
  for (const auto& [name, value] : environment) session.setEnvironment(name, value);
  // The host loads modules by full path; their folder is derived from it.
  std::error_code ignored;
  const std::filesystem::path modulePath = std::filesystem::absolute(std::filesystem::path(positional[0]), ignored);
  if (!session.load(modulePath.wstring())) return 1;
  session.runScript(script);
  session.unload();
  return session.faults() == 0 ? 0 : 2;
}

}  // namespace

#ifdef _WIN32
int wmain(int argc, wchar_t** argv) { return run(std::vector<std::wstring>(argv + 1, argv + argc)); }
#else
int main(int argc, char** argv) {
  std::vector<std::wstring> args;
  for (int i = 1; i < argc; ++i) args.push_back(kvt1::platform::fromUtf8(argv[i]));
  return run(args);
}
#endif
