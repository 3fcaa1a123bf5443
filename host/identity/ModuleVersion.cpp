#include "host/identity/ModuleVersion.h"

#include <array>
#include <cwchar>

#include "platform/VersionResource.h"
#include "platform/WideFormat.h"

namespace kvt1 {
namespace {

constexpr std::size_t kNumberRing = 7;
constexpr std::size_t kNumberLength = 100;
constexpr std::size_t kStringRing = 10;

const std::optional<platform::VersionResource>& versionResource() {
  static const std::optional<platform::VersionResource> resource = platform::VersionResource::ofThisModule();
  return resource;
}

}  // namespace

const wchar_t* moduleVersionNumber(VersionNumber which) {
  static wchar_t ring[kNumberRing][kNumberLength];
  static std::size_t next = 0;
  wchar_t* buffer = ring[next];
  next = (next + 1) % kNumberRing;

  buffer[0] = L'\0';
  if (const auto& resource = versionResource()) {
    const platform::FixedVersion& fixed = resource->fixed();
    const bool file = which == VersionNumber::File;
    const std::uint32_t high = file ? fixed.fileVersionMS : fixed.productVersionMS;
    const std::uint32_t low = file ? fixed.fileVersionLS : fixed.productVersionLS;
    std::swprintf(buffer, kNumberLength, L"%d.%d.%d.%d", static_cast<int>(high >> 16), static_cast<int>(high & 0xFFFF),
                  static_cast<int>(low >> 16), static_cast<int>(low & 0xFFFF));
  }
  return buffer;
}

const std::wstring& moduleVersionString(int selector) {
  static std::array<std::wstring, kStringRing> ring;
  static std::size_t next = 0;
  std::wstring& slot = ring[next];
  next = (next + 1) % kStringRing;

  slot.clear();
  const wchar_t* name = selector == 0 ? L"ProductVersion" : selector == 1 ? L"FileVersion" : nullptr;
  const auto& resource = versionResource();
  if (name == nullptr || !resource) return slot;
  for (const auto& [language, codePage] : resource->translations()) {
    const std::wstring subBlock = platform::formatWide(L"\\StringFileInfo\\%04x%04x\\", language, codePage) + name;
    if (std::optional<std::wstring> value = resource->queryString(subBlock)) {
      slot = std::move(*value);
      break;
    }
  }
  return slot;
}

std::wstring moduleVersionDescription(const std::wstring& fileName) {
  return platform::formatWide(L"%s [prodVer:%s fileVer:%s]", fileName.c_str(), moduleVersionString(0).c_str(),
                              moduleVersionString(1).c_str());
}

}  // namespace kvt1
