#pragma once
// Libraries built beside the test program (language modules, companions).
#include <string>

#include "platform/DynamicLibrary.h"
#include "platform/ThisModule.h"
#include "platform/Unicode.h"

namespace kvt1::testing {

inline std::wstring programFolder() {
  std::wstring folder = platform::thisModulePath();
  folder.erase(folder.find_last_of(L"\\/") + 1);
  return folder;
}

inline platform::DynamicLibrary loadBesideProgram(const char* fileName) {
  return platform::DynamicLibrary::load(programFolder() + platform::fromUtf8(fileName));
}

}  // namespace kvt1::testing
