#include "platform/ThisModule.h"

#include <dlfcn.h>

#include "platform/Unicode.h"

namespace kvt1::platform {
namespace {

// Any address inside this image identifies it to dladdr.
Dl_info thisImage() {
  Dl_info info{};
  dladdr(reinterpret_cast<void*>(&thisModuleHandle), &info);
  return info;
}

}  // namespace

std::wstring thisModulePath() {
  const Dl_info info = thisImage();
  return info.dli_fname ? fromUtf8(info.dli_fname) : std::wstring();
}

void* thisModuleHandle() { return thisImage().dli_fbase; }

}  // namespace kvt1::platform
