#include "host/SupportPath.h"

#include <vector>

#include "host/arx/Arx.h"
#include "platform/CaseFolding.h"

namespace kvt1 {

const wchar_t kEarlierInstallationMarker[] = L"kvtools";

namespace {

constexpr const ACHAR* kSupportPathName = L"ACAD";
// The host keeps its support path well below this many characters.
constexpr std::size_t kEnvironmentValueCapacity = 16384;

std::optional<std::wstring> readEnvironment(const ACHAR* name) {
  std::vector<ACHAR> buffer(kEnvironmentValueCapacity, L'\0');
#if KVT1_ARX_RELEASE >= 20
  const int status = acedGetEnv(name, buffer.data(), buffer.size());
#else
  const int status = acedGetEnv(name, buffer.data());
#endif
  if (status != RTNORM) return std::nullopt;
  buffer.back() = L'\0';
  return std::wstring(buffer.data());
}

}  // namespace

std::optional<std::wstring> removeFirstEntryContaining(const std::wstring& value, const std::wstring& lowerText) {
  if (lowerText.empty()) return std::nullopt;
  const std::wstring lower = platform::lowerCase(value);
  const std::size_t hit = lower.find(lowerText);
  if (hit == std::wstring::npos) return std::nullopt;

  const std::size_t before = value.rfind(L';', hit);  // separator ahead of the entry
  const std::size_t after = value.find(L';', hit);    // separator behind it
  const bool hasBefore = before != std::wstring::npos;
  const bool hasAfter = after != std::wstring::npos;
  if (hasBefore && hasAfter) return value.substr(0, before) + value.substr(after);
  if (hasAfter) return value.substr(after + 1);
  if (hasBefore) return value.substr(0, before);
  return std::wstring();
}

void cleanSupportPath(const std::wstring& lowerText) {
  std::optional<std::wstring> written;
  for (;;) {
    const std::optional<std::wstring> value = readEnvironment(kSupportPathName);
    if (!value) return;
    // Each pass shortens the value; stop rather than loop if the host kept the old one.
    if (written && *value != *written) return;
    std::optional<std::wstring> cleaned = removeFirstEntryContaining(*value, lowerText);
    if (!cleaned) return;
    if (acedSetEnv(kSupportPathName, cleaned->c_str()) != RTNORM) return;
    written = std::move(cleaned);
  }
}

}  // namespace kvt1
