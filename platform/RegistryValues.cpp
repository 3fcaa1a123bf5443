#include "platform/RegistryValues.h"

#include <vector>

namespace kvt1::platform {

std::optional<std::uint32_t> readDwordValue(const RegistryKey& key, const std::wstring& name) {
  std::uint32_t type = 0;
  std::uint32_t data = 0;
  std::uint32_t size = sizeof data;
  if (key.queryValue(name, type, &data, size) != kRegSuccess || type != kRegDword || size != sizeof data) {
    return std::nullopt;
  }
  return data;
}

std::optional<std::uint32_t> readDwordValue(RegistryRoot root, const std::wstring& path, const std::wstring& name) {
  RegistryKey key;
  if (RegistryKey::open(root, path, RegistryAccess::Read, key) != kRegSuccess) return std::nullopt;
  return readDwordValue(key, name);
}

std::optional<std::wstring> readStringValue(const RegistryKey& key, const std::wstring& name) {
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  if (key.queryValue(name, type, nullptr, size) != kRegSuccess || type != kRegSz) return std::nullopt;
  // The reported size and one character more, so the text always ends.
  std::vector<wchar_t> buffer(size / sizeof(wchar_t) + 1, L'\0');
  size = static_cast<std::uint32_t>((buffer.size() - 1) * sizeof(wchar_t));
  if (key.queryValue(name, type, buffer.data(), size) != kRegSuccess || type != kRegSz) return std::nullopt;
  return std::wstring(buffer.data());
}

std::optional<std::string> readBinaryValue(const RegistryKey& key, const std::wstring& name, std::size_t limit) {
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  if (key.queryValue(name, type, nullptr, size) != kRegSuccess || type != kRegBinary || size == 0 || size > limit) {
    return std::nullopt;
  }
  std::string bytes(size, '\0');
  if (key.queryValue(name, type, bytes.data(), size) != kRegSuccess || type != kRegBinary) return std::nullopt;
  bytes.resize(size);
  return bytes;
}

}  // namespace kvt1::platform
