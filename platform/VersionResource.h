#pragma once
// The version resource of an image: fixed numbers, the translation list and
// the string table entries, addressed by the same sub-block paths as on
// Windows ("\\VarFileInfo\\Translation", "\\StringFileInfo\\040904b0\\FileVersion").
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kvt1::platform {

struct FixedVersion {
  std::uint32_t fileVersionMS = 0;
  std::uint32_t fileVersionLS = 0;
  std::uint32_t productVersionMS = 0;
  std::uint32_t productVersionLS = 0;
};

class VersionResource {
 public:
  // The resource of the image this code is linked into, when it has one.
  static std::optional<VersionResource> ofThisModule();

  const FixedVersion& fixed() const { return fixed_; }
  // (language, code page) pairs in resource order.
  const std::vector<std::pair<std::uint16_t, std::uint16_t>>& translations() const { return translations_; }
  // A string table entry; sub-block names compare without case.
  std::optional<std::wstring> queryString(const std::wstring& subBlock) const;

 private:
  FixedVersion fixed_;
  std::vector<std::pair<std::uint16_t, std::uint16_t>> translations_;
  std::vector<unsigned char> block_;  // Windows: the block GetFileVersionInfoW filled
  const void* embedded_ = nullptr;    // elsewhere: the image's embedded table
};

}  // namespace kvt1::platform
