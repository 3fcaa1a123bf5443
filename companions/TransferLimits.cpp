#include <cstdlib>
#include <string>

#include "companions/HttpTransfer.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace kvt1::http {
namespace {

// The process environment itself (not a C runtime's copy of it), so that a
// host program's changes reach this library.
std::string environmentValue(const char* name) {
#ifdef _WIN32
  char buffer[32];
  const DWORD size = GetEnvironmentVariableA(name, buffer, sizeof buffer);
  return size > 0 && size < sizeof buffer ? std::string(buffer, size) : std::string();
#else
  const char* value = std::getenv(name);
  return value ? value : "";
#endif
}

void overrideMilliseconds(const char* name, long& value) {
  const std::string text = environmentValue(name);
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
