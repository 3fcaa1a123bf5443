#include "platform/VersionResource.h"

#include "platform/CaseFolding.h"
#include "platform/posix/EmbeddedVersionInfo.h"

namespace kvt1::platform {
std::optional<VersionResource> VersionResource::ofThisModule() {
  // The weak reference is null when this image embeds no version information.
  const EmbeddedVersionInfo* info = &kvt1EmbeddedVersionInfo;
  if (info == nullptr) return std::nullopt;
  VersionResource resource;
  resource.fixed_ = {info->fileVersionMS, info->fileVersionLS, info->productVersionMS, info->productVersionLS};
  for (std::size_t i = 0; i < info->translationCount; ++i) {
    resource.translations_.emplace_back(info->translations[2 * i], info->translations[2 * i + 1]);
  }
  resource.embedded_ = info;
  return resource;
}

std::optional<std::wstring> VersionResource::queryString(const std::wstring& subBlock) const {
  const auto* info = static_cast<const EmbeddedVersionInfo*>(embedded_);
  for (std::size_t i = 0; i < info->stringCount; ++i) {
    if (equalsIgnoringCase(info->strings[i].subBlock, subBlock)) return std::wstring(info->strings[i].value);
  }
  return std::nullopt;
}

}  // namespace kvt1::platform
