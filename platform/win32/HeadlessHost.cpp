#include "platform/HeadlessHost.h"

#include <windows.h>

namespace kvt1::platform {

void* mainProgramSymbol(const char* name) {
  return reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(nullptr), name));
}

}  // namespace kvt1::platform
