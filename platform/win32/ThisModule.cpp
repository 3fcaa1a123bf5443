#include "platform/ThisModule.h"

#include <windows.h>

// Provided by the linker: the base of the image this code is linked into.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace kvt1::platform {

void* thisModuleHandle() { return &__ImageBase; }

std::wstring thisModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length =
        GetModuleFileNameW(static_cast<HMODULE>(thisModuleHandle()), path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) return std::wstring();
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

}  // namespace kvt1::platform
