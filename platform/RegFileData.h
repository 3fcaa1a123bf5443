#pragma once
// String value data inside the .reg format: the hex data of string values
// is UTF-16LE, the module's strings are wchar_t. On Windows wchar_t is
// UTF-16 and the bytes pass unchanged; elsewhere they are converted by
// platform/Unicode.h (fromUtf16, toUtf16).
#include <cstdint>
#include <string>
#include <vector>

namespace kvt1::platform {

// Value data as a hex list in the file holds it (string types as UTF-16LE)
// and as the registry calls take it.
std::vector<unsigned char> valueDataFromFile(std::uint32_t type, std::vector<unsigned char> bytes);
std::vector<unsigned char> fileBytesFromValueData(std::uint32_t type, const std::vector<unsigned char>& data);

}  // namespace kvt1::platform
