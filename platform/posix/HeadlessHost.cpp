#include "platform/HeadlessHost.h"

#include <dlfcn.h>

namespace kvt1::platform {

void* mainProgramSymbol(const char* name) {
  // The main program's handle; its exports are found without those of the libraries.
  void* program = dlopen(nullptr, RTLD_NOW);
  if (program == nullptr) return nullptr;
  void* symbol = dlsym(program, name);
  dlclose(program);
  return symbol;
}

}  // namespace kvt1::platform
