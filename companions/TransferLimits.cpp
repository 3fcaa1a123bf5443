#include <cstdlib>
#include <string>

#include "companions/HttpTransfer.h"
#include "platform/Environment.h"

namespace kvt1::http {
namespace {

// Read from the process environment itself, so that a host program's changes
// reach this library.
void overrideMilliseconds(const char* name, long& value) {
  const std::string text = platform::environmentVariable(name);
  if (text.empty() || text.size() > 9 || text.find_first_not_of("0123456789") != std::string::npos) return;
  const long parsed = std::strtol(text.c_str(), nullptr, 10);
  if (parsed > 0) value = parsed;
}

}  // namespace

TransferLimits limitsFromEnvironment() {
  TransferLimits limits;
  overrideMilliseconds("KVT1_HTTP_CONNECT_TIMEOUT_MS", limits.connectTimeoutMs);
  overrideMilliseconds("KVT1_HTTP_TIMEOUT_MS", limits.totalTimeoutMs);
  return limits;
}

}  // namespace kvt1::http
