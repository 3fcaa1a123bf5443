#pragma once
// Typed reads of single registry values: empty when the value is missing,
// cannot be read or holds another type.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/Registry.h"

namespace kvt1::platform {

std::optional<std::uint32_t> readDwordValue(const RegistryKey& key, const std::wstring& name);
// The same for a value of the key at path under root, opened for reading.
std::optional<std::uint32_t> readDwordValue(RegistryRoot root, const std::wstring& path, const std::wstring& name);

// A REG_SZ value's text up to its first NUL.
std::optional<std::wstring> readStringValue(const RegistryKey& key, const std::wstring& name);

// A REG_BINARY value of 1 to limit bytes.
std::optional<std::string> readBinaryValue(const RegistryKey& key, const std::wstring& name, std::size_t limit);

}  // namespace kvt1::platform
