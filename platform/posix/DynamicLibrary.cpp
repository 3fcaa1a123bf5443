#include "platform/DynamicLibrary.h"

#include <dlfcn.h>
#include <link.h>

#include "platform/Unicode.h"
#include "platform/posix/NativePath.h"

namespace kvt1::platform {

const wchar_t kLibrarySuffix[] = L".so";

DynamicLibrary DynamicLibrary::load(const std::wstring& path) {
  DynamicLibrary library;
  library.handle_ = dlopen(nativePath(path).c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library.handle_ == nullptr) {
    const char* reason = dlerror();
    library.error_ = fromUtf8(reason ? reason : "cannot load library");
  }
  return library;
}

void DynamicLibrary::keepLoaded(const std::wstring& fileName) {
  dlopen(nativePath(fileName).c_str(), RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
}

void* DynamicLibrary::symbol(const char* name) const { return handle_ ? dlsym(handle_, name) : nullptr; }

void* DynamicLibrary::image() const {
  link_map* map = nullptr;
  if (handle_ == nullptr || dlinfo(handle_, RTLD_DI_LINKMAP, &map) != 0 || map == nullptr) return nullptr;
  return reinterpret_cast<void*>(map->l_addr);
}

void DynamicLibrary::release() {
  if (handle_) dlclose(handle_);
  handle_ = nullptr;
}

}  // namespace kvt1::platform
