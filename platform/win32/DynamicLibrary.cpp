#include "platform/DynamicLibrary.h"

#include <windows.h>

#include "platform/WideFormat.h"

namespace kvt1::platform {

const wchar_t kLibrarySuffix[] = L".dll";

DynamicLibrary DynamicLibrary::load(const std::wstring& path) {
  DynamicLibrary library;
  // Dependencies are looked up beside the library first, as the host does for modules.
  library.handle_ = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (library.handle_ == nullptr) {
    library.error_ = formatWide(L"cannot load '%s' (error %lu)", path.c_str(), GetLastError());
  }
  return library;
}

void DynamicLibrary::keepLoaded(const std::wstring& fileName) {
  HMODULE pinned = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN, fileName.c_str(), &pinned);
}

void* DynamicLibrary::symbol(const char* name) const {
  if (!handle_) return nullptr;
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(handle_), name));
}

void* DynamicLibrary::image() const { return handle_; }

void DynamicLibrary::release() {
  if (handle_) FreeLibrary(static_cast<HMODULE>(handle_));
  handle_ = nullptr;
}

}  // namespace kvt1::platform
