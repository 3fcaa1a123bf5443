#include "platform/Environment.h"

#include <windows.h>

namespace kvt1::platform {

std::string environmentVariable(const char* name) {
  // The size asked for first includes the terminating NUL; the value can
  // change in between, so it is read again while it does not fit.
  std::string value;
  DWORD size = GetEnvironmentVariableA(name, nullptr, 0);
  while (size > 0) {
    value.resize(size);
    const DWORD length = GetEnvironmentVariableA(name, value.data(), size);
    if (length < size) {
      value.resize(length);
      return value;
    }
    size = length;
  }
  return "";
}

}  // namespace kvt1::platform
