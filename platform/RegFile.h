#pragma once
// The "Windows Registry Editor Version 5.00" text format that regedit imports
// and exports: reading it from UTF-16LE (with byte order mark) or UTF-8, and
// writing it as regedit does (UTF-16LE with byte order mark, CRLF lines,
// long hex data continued with "\").
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kvt1::platform {

constexpr std::uint32_t kRegMultiSz = 7;

// String types hold their data as wchar_t units, as the wide registry calls
// take them on this system; all other types hold plain bytes.
bool isRegStringType(std::uint32_t type);

// A value as the registry calls see it: the data is exactly what was stored.
struct RegValue {
  std::wstring name;  // empty: the key's default value ("@")
  std::uint32_t type = 0;
  std::vector<unsigned char> data;
  bool remove = false;  // a "name"=- line: delete the value on import
};

// One "[key]" block: the full path beginning with the root's name.
struct RegSection {
  std::wstring path;
  std::size_t line = 0;  // where the block starts in a parsed file
  bool remove = false;   // a "[-key]" line: delete the key and its subkeys on import
  std::vector<RegValue> values;
};

struct RegFileError {
  std::size_t line = 0;  // 1-based line of the file where reading stopped
  std::string message;
};

// Parses a whole file. On failure, sections hold the blocks read before the
// line that failed and error says where and why.
bool parseRegFile(std::string_view bytes, std::vector<RegSection>& sections, RegFileError& error);

// The file's bytes for these blocks, in the order given.
std::string writeRegFile(const std::vector<RegSection>& sections);

// Value data from text and back, for the string types: the units with the
// terminating NUL, as stored.
std::vector<unsigned char> regStringData(std::wstring_view textWithNul);
std::wstring regStringUnits(const std::vector<unsigned char>& data);

}  // namespace kvt1::platform
