#include "platform/VersionResource.h"

#include <windows.h>

#include "platform/ThisModule.h"

namespace kvt1::platform {

std::optional<VersionResource> VersionResource::ofThisModule() {
  const std::wstring path = thisModulePath();
  DWORD ignored = 0;
  const DWORD size = GetFileVersionInfoSizeW(path.c_str(), &ignored);
  if (size == 0) return std::nullopt;

  VersionResource resource;
  resource.block_.resize(size);
  if (!GetFileVersionInfoW(path.c_str(), 0, size, resource.block_.data())) return std::nullopt;

  void* value = nullptr;
  UINT length = 0;
  if (VerQueryValueW(resource.block_.data(), L"\\", &value, &length) && length >= sizeof(VS_FIXEDFILEINFO)) {
    const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(value);
    resource.fixed_ = {fixed->dwFileVersionMS, fixed->dwFileVersionLS, fixed->dwProductVersionMS,
                       fixed->dwProductVersionLS};
  }
  if (VerQueryValueW(resource.block_.data(), L"\\VarFileInfo\\Translation", &value, &length)) {
    const auto* words = static_cast<const WORD*>(value);
    for (UINT i = 0; i + 1 < length / sizeof(WORD); i += 2) {
      resource.translations_.emplace_back(words[i], words[i + 1]);
    }
  }
  return resource;
}

std::optional<std::wstring> VersionResource::queryString(const std::wstring& subBlock) const {
  void* value = nullptr;
  UINT length = 0;
  auto* block = const_cast<unsigned char*>(block_.data());
  if (!VerQueryValueW(block, subBlock.c_str(), &value, &length) || value == nullptr) return std::nullopt;
  // For strings the length counts characters, including the terminating NUL.
  const auto* text = static_cast<const wchar_t*>(value);
  std::size_t count = length;
  while (count > 0 && text[count - 1] == L'\0') --count;
  return std::wstring(text, count);
}

}  // namespace kvt1::platform
