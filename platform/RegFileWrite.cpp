#include "platform/RegFile.h"

#include <cstdio>

#include "platform/RegFileData.h"
#include "platform/Registry.h"
#include "platform/Unicode.h"

namespace kvt1::platform {
namespace {

// regedit breaks hex data after the comma that passes this column and
// indents the continuation by two spaces.
constexpr std::size_t kHexLineLimit = 74;

std::wstring quoted(const std::wstring& text) {
  std::wstring out = L"\"";
  for (const wchar_t c : text) {
    if (c == L'\\' || c == L'"') {
      out += L'\\';
      out += c;
    } else if (c == L'\n') {
      out += L"\\n";
    } else {
      out += c;
    }
  }
  return out + L'"';
}

// A REG_SZ written as "text" reads back with one terminating NUL; anything
// else (no NUL, inner NULs, line breaks, a broken unit) is kept as hex(1).
bool fitsQuotedString(const std::vector<unsigned char>& data) {
  if (data.size() % sizeof(wchar_t) != 0) return false;
  const std::wstring units = regStringUnits(data);
  if (units.empty() || units.back() != L'\0') return false;
  return units.find_first_of(std::wstring(L"\r\n\0", 3)) == units.size() - 1;
}

std::wstring hexPrefix(std::uint32_t type) {
  if (type == kRegBinary) return L"hex:";
  wchar_t text[24];
  std::swprintf(text, sizeof text / sizeof text[0], L"hex(%x):", static_cast<unsigned>(type));
  return text;
}

void appendHex(std::wstring& out, std::uint32_t type, const std::vector<unsigned char>& data) {
  const std::wstring prefix = hexPrefix(type);
  std::size_t column = out.size() + prefix.size();
  out += prefix;
  static const wchar_t digits[] = L"0123456789abcdef";
  for (std::size_t i = 0; i < data.size(); ++i) {
    out += digits[data[i] >> 4];
    out += digits[data[i] & 0xF];
    if (i + 1 == data.size()) break;
    out += L',';
    column += 3;
    if (column > kHexLineLimit) {
      out += L"\\\r\n  ";
      column = 2;
    }
  }
}

std::wstring valueLine(const RegValue& value) {
  std::wstring line = value.name.empty() ? L"@=" : quoted(value.name) + L"=";
  if (value.remove) return line + L"-";
  if (value.type == kRegSz && fitsQuotedString(value.data)) {
    std::wstring text = regStringUnits(value.data);
    text.pop_back();
    return line + quoted(text);
  }
  if (value.type == kRegDword && value.data.size() == 4) {
    const unsigned number =
        value.data[0] | (value.data[1] << 8) | (value.data[2] << 16) | (static_cast<unsigned>(value.data[3]) << 24);
    wchar_t text[16];
    std::swprintf(text, sizeof text / sizeof text[0], L"dword:%08x", number);
    return line + text;
  }
  // Everything else as regedit writes it: a hex list of the stored bytes,
  // string types in UTF-16LE.
  appendHex(line, value.type, fileBytesFromValueData(value.type, value.data));
  return line;
}

}  // namespace

std::string writeRegFile(const std::vector<RegSection>& sections) {
  std::wstring text = L"Windows Registry Editor Version 5.00\r\n\r\n";
  for (const RegSection& section : sections) {
    text += section.remove ? L"[-" : L"[";
    text += section.path + L"]\r\n";
    for (const RegValue& value : section.values) text += valueLine(value) + L"\r\n";
    text += L"\r\n";
  }
  return "\xFF\xFE" + toUtf16(text);
}

}  // namespace kvt1::platform
