#include "platform/RegFile.h"

#include "platform/CaseFolding.h"
#include "platform/CodePage.h"
#include "platform/RegFileData.h"
#include "platform/Registry.h"
#include "platform/TextDecoding.h"
#include "platform/Unicode.h"

namespace kvt1::platform {
namespace {

constexpr std::wstring_view kHeader = L"Windows Registry Editor Version 5.00";

// Lines end with CRLF, LF or a lone CR.
std::vector<std::wstring> splitLines(const std::wstring& text) {
  std::vector<std::wstring> lines;
  std::size_t start = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != L'\r' && text[i] != L'\n') continue;
    lines.push_back(text.substr(start, i - start));
    if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') ++i;
    start = i + 1;
  }
  if (start < text.size()) lines.push_back(text.substr(start));
  return lines;
}

bool isBlank(wchar_t c) { return c == L' ' || c == L'\t'; }

std::wstring_view trimmed(std::wstring_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

int hexDigit(wchar_t c) {
  if (c >= L'0' && c <= L'9') return c - L'0';
  if (c >= L'a' && c <= L'f') return c - L'a' + 10;
  if (c >= L'A' && c <= L'F') return c - L'A' + 10;
  return -1;
}

// 1 to maxDigits hex digits, nothing else.
bool parseHexNumber(std::wstring_view text, std::size_t maxDigits, std::uint32_t& number) {
  if (text.empty() || text.size() > maxDigits) return false;
  number = 0;
  for (const wchar_t c : text) {
    const int digit = hexDigit(c);
    if (digit < 0) return false;
    number = number * 16 + static_cast<std::uint32_t>(digit);
  }
  return true;
}

// A quoted string starting at text[0] == '"'; position ends after the closing
// quote. Escapes: \\ \" \n \0; any other backslash stands for itself.
bool parseQuoted(std::wstring_view text, std::size_t& position, std::wstring& out) {
  out.clear();
  for (position = 1; position < text.size(); ++position) {
    const wchar_t c = text[position];
    if (c == L'"') {
      ++position;
      return true;
    }
    if (c != L'\\' || position + 1 >= text.size()) {
      out += c;
      continue;
    }
    const wchar_t next = text[++position];
    if (next == L'\\' || next == L'"') {
      out += next;
    } else if (next == L'n') {
      out += L'\n';
    } else if (next == L'0') {
      out += L'\0';
    } else {
      out += L'\\';
      out += next;
    }
  }
  return false;
}

bool parseHexList(std::wstring_view text, std::vector<unsigned char>& bytes) {
  bytes.clear();
  text = trimmed(text);
  if (text.empty()) return true;
  std::size_t start = 0;
  while (true) {
    const std::size_t comma = text.find(L',', start);
    std::uint32_t byte = 0;
    const std::wstring_view piece =
        trimmed(text.substr(start, comma == std::wstring_view::npos ? std::wstring_view::npos : comma - start));
    // Exactly two digits, as regedit writes them: a file cut after the
    // first digit of a byte must not read as a shorter value.
    if (piece.size() != 2 || !parseHexNumber(piece, 2, byte)) return false;
    bytes.push_back(static_cast<unsigned char>(byte));
    if (comma == std::wstring_view::npos) return true;
    start = comma + 1;
  }
}

class Parser {
 public:
  Parser(std::vector<std::wstring> lines, std::vector<RegSection>& sections)
      : lines_(std::move(lines)), sections_(sections) {}

  // False with error set at the line that failed.
  bool run(RegFileError& error) {
    for (index_ = 0; index_ < lines_.size(); ++index_) {
      const std::wstring_view line = trimmed(lines_[index_]);
      if (!seenHeader_ && !line.empty()) {
        if (line != kHeader) return fail(error, "the first line is not \"Windows Registry Editor Version 5.00\"");
        seenHeader_ = true;
        continue;
      }
      if (line.empty() || line.front() == L';') continue;
      std::string failure;
      if (!parseLine(line, failure)) return fail(error, failure);
    }
    if (!seenHeader_) return fail(error, "the file is empty");
    return true;
  }

  std::size_t lineCount() const { return lines_.size(); }

 private:
  bool fail(RegFileError& error, std::string message) {
    error.line = index_ + 1;
    error.message = std::move(message);
    return false;
  }

  bool parseLine(std::wstring_view line, std::string& failure) {
    if (line.front() == L'[') return parseKey(line, failure);
    if (line.front() == L'"' || line.front() == L'@') return parseValue(line, failure);
    failure = "neither a [key] nor a value line";
    return false;
  }

  bool parseKey(std::wstring_view line, std::string& failure) {
    if (line.back() != L']') {
      failure = "a key line must end with ']'";
      return false;
    }
    RegSection section;
    section.line = index_ + 1;
    std::wstring_view path = line.substr(1, line.size() - 2);
    if (!path.empty() && path.front() == L'-') {
      section.remove = true;
      path.remove_prefix(1);
    }
    if (path.empty()) {
      failure = "a key line without a key";
      return false;
    }
    section.path = std::wstring(path);
    sections_.push_back(std::move(section));
    return true;
  }

  bool parseValue(std::wstring_view line, std::string& failure) {
    if (sections_.empty()) {
      failure = "a value before the first [key] line";
      return false;
    }
    RegValue value;
    std::size_t position = 1;
    if (line.front() == L'"' && !parseQuoted(line, position, value.name)) {
      failure = "the value name has no closing quote";
      return false;
    }
    std::wstring_view rest = trimmed(line.substr(position));
    if (rest.empty() || rest.front() != L'=') {
      failure = "'=' expected after the value name";
      return false;
    }
    if (!parseData(trimmed(rest.substr(1)), value, failure)) return false;
    sections_.back().values.push_back(std::move(value));
    return true;
  }

  bool parseData(std::wstring_view data, RegValue& value, std::string& failure) {
    if (data == L"-") {
      value.remove = true;
      return true;
    }
    if (!data.empty() && data.front() == L'"') {
      std::size_t position = 0;
      std::wstring text;
      if (!parseQuoted(data, position, text) || !trimmed(data.substr(position)).empty()) {
        failure = "a string value must be one quoted string on its line";
        return false;
      }
      value.type = kRegSz;
      value.data = regStringData(text.append(1, L'\0'));
      return true;
    }
    if (startsWithIgnoringCase(data, L"dword:")) {
      std::uint32_t number = 0;
      if (!parseHexNumber(data.substr(6), 8, number)) {
        failure = "dword: takes 1 to 8 hex digits";
        return false;
      }
      value.type = kRegDword;
      value.data = {static_cast<unsigned char>(number), static_cast<unsigned char>(number >> 8),
                    static_cast<unsigned char>(number >> 16), static_cast<unsigned char>(number >> 24)};
      return true;
    }
    if (startsWithIgnoringCase(data, L"hex")) return parseHexData(data.substr(3), value, failure);
    failure = "unknown value data (string, dword:, hex: or hex(type): expected)";
    return false;
  }

  bool parseHexData(std::wstring_view data, RegValue& value, std::string& failure) {
    value.type = kRegBinary;
    if (!data.empty() && data.front() == L'(') {
      const std::size_t close = data.find(L')');
      if (close == std::wstring_view::npos || !parseHexNumber(data.substr(1, close - 1), 8, value.type)) {
        failure = "hex(type): takes the type in hex digits";
        return false;
      }
      data.remove_prefix(close + 1);
    }
    if (data.empty() || data.front() != L':') {
      failure = "':' expected after hex";
      return false;
    }
    // A list ending in "\" goes on in the next line.
    std::wstring list(data.substr(1));
    while (!list.empty() && list.back() == L'\\') {
      list.pop_back();
      if (index_ + 1 >= lines_.size()) {
        failure = "the hex data goes on past the end of the file";
        return false;
      }
      list += trimmed(lines_[++index_]);
    }
    std::vector<unsigned char> bytes;
    if (!parseHexList(list, bytes)) {
      failure = "hex data must be bytes of two hex digits separated by commas";
      return false;
    }
    value.data = valueDataFromFile(value.type, std::move(bytes));
    return true;
  }

  std::vector<std::wstring> lines_;
  std::vector<RegSection>& sections_;
  std::size_t index_ = 0;
  bool seenHeader_ = false;
};

}  // namespace

bool parseRegFile(std::string_view bytes, std::vector<RegSection>& sections, RegFileError& error) {
  sections.clear();
  // UTF-16LE after its mark as regedit writes it, else UTF-8.
  const bool oddByteCount = bytes.substr(0, 2) == "\xFF\xFE" && bytes.size() % 2 != 0;
  Parser parser(splitLines(decodeText(bytes, kCodePageUtf8)), sections);
  if (!parser.run(error)) return false;
  if (oddByteCount) {
    error.line = parser.lineCount();
    error.message = "the UTF-16 file ends in the middle of a character (odd number of bytes)";
    return false;
  }
  return true;
}

}  // namespace kvt1::platform
