#pragma once
// Encodings inside the .reg format: its text and the hex data of string
// values are UTF-16LE, the module's strings are wchar_t. On Windows wchar_t is
// UTF-16 and the bytes pass unchanged; elsewhere surrogate pairs become one
// character.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kvt1::platform {

// Whole 16-bit units only: a trailing odd byte is left out.
std::wstring wideFromUtf16le(const unsigned char* bytes, std::size_t size);
std::string utf16leFromWide(const wchar_t* text, std::size_t length);

// Value data as a hex list in the file holds it (string types as UTF-16LE)
// and as the registry calls take it.
std::vector<unsigned char> valueDataFromFile(std::uint32_t type, std::vector<unsigned char> bytes);
std::vector<unsigned char> fileBytesFromValueData(std::uint32_t type, const std::vector<unsigned char>& data);

}  // namespace kvt1::platform
