#include "platform/Environment.h"

#include <cstdlib>

namespace kvt1::platform {

std::string environmentVariable(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

}  // namespace kvt1::platform
