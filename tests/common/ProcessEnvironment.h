#pragma once
// The test process's environment, set the same way on every system.
#ifdef _WIN32
#include <windows.h>
#else
#include <cstdlib>
#endif

namespace kvt1::testing {

// Sets (or with null removes) a variable of the process environment.
inline void setProcessEnvironment(const char* name, const char* value) {
#ifdef _WIN32
  SetEnvironmentVariableA(name, value);
#else
  if (value) {
    setenv(name, value, 1);
  } else {
    unsetenv(name);
  }
#endif
}

}  // namespace kvt1::testing
