#include "platform/HtmlHelp.h"

#include <windows.h>

#include "platform/DynamicLibrary.h"
#include "platform/HeadlessHost.h"
#include "platform/Registry.h"

namespace kvt1::platform {
namespace {

typedef HWND(WINAPI* HtmlHelpW)(HWND owner, LPCWSTR file, UINT command, DWORD_PTR data);

constexpr wchar_t kControlKey[] = L"CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32";
constexpr std::uint32_t kPathCharacters = 260;
constexpr WORD kWideEntryOrdinal = 15;

// The control's library as the classes root registers it, expanded when stored expandable.
std::wstring registeredControl() {
  RegistryKey key;
  if (RegistryKey::open(RegistryRoot::ClassesRoot, kControlKey, RegistryAccess::Read, key) != kRegSuccess) return {};
  wchar_t path[kPathCharacters] = {};
  std::uint32_t type = 0;
  std::uint32_t size = sizeof path;
  if (key.queryValue(L"", type, path, size) != kRegSuccess) return {};
  path[kPathCharacters - 1] = L'\0';
  return type == kRegExpandSz ? expandEnvironmentStrings(path) : std::wstring(path);
}

struct Viewer {
  Viewer() {
    const std::wstring registered = registeredControl();
    if (!registered.empty()) library = DynamicLibrary::load(registered);
    if (!library.isLoaded()) library = DynamicLibrary::load(L"hhctrl.ocx");
    if (library.isLoaded()) {
      entry = reinterpret_cast<HtmlHelpW>(reinterpret_cast<void*>(
          GetProcAddress(static_cast<HMODULE>(library.handle()), MAKEINTRESOURCEA(kWideEntryOrdinal))));
    }
  }
  DynamicLibrary library;
  HtmlHelpW entry = nullptr;  // null: the failure is remembered
};

Viewer& viewer() {
  static Viewer loaded;
  return loaded;
}

}  // namespace

void* htmlHelp(void* owner, const std::wstring& file, unsigned command, std::uintptr_t data) {
  if (auto headless = reinterpret_cast<Kvt1HeadlessHtmlHelpFn>(mainProgramSymbol(KVT1_HEADLESS_HTML_HELP))) {
    return headless(file.c_str(), command, data);
  }
  if (viewer().entry == nullptr) return nullptr;
  HWND window = owner ? static_cast<HWND>(owner) : GetDesktopWindow();
  return viewer().entry(window, file.c_str(), command, data);
}

bool htmlHelpAvailable() { return viewer().entry != nullptr; }

}  // namespace kvt1::platform
