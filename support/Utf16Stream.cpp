#include "support/Utf16Stream.h"

#include <algorithm>
#include <string>

#include "platform/LockedStream.h"
#include "support/AnsiText.h"

namespace kvt1 {
namespace {

constexpr bool kWideIsUtf32 = sizeof(wchar_t) == 4;
constexpr long kUnitSize = 2;

bool isHighSurrogate(unsigned long unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isLowSurrogate(unsigned long unit) { return unit >= 0xDC00 && unit < 0xE000; }

unsigned long readUnit(platform::LockedStream& stream) {
  const int low = stream.get();
  if (low == EOF) return kUtf16End;
  const int high = stream.get();
  if (high == EOF) return kUtf16End;
  return static_cast<unsigned long>(low) | static_cast<unsigned long>(high) << 8;
}

// One character: a unit, or where wchar_t holds 32 bits a whole surrogate pair.
unsigned long readCharacter(platform::LockedStream& stream) {
  const unsigned long unit = readUnit(stream);
  if (!kWideIsUtf32 || !isHighSurrogate(unit)) return unit;
  const unsigned long low = readUnit(stream);
  if (isLowSurrogate(low)) return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
  if (low != kUtf16End) std::fseek(stream.file(), -kUnitSize, SEEK_CUR);  // not part of this character
  return unit;
}

void appendUnit(std::string& bytes, unsigned long unit) {
  bytes += static_cast<char>(unit & 0xFF);
  bytes += static_cast<char>((unit >> 8) & 0xFF);
}

// Copies at most capacity bytes of text and a NUL into buffer.
int store(const std::string& text, char* buffer, int capacity) {
  const std::size_t length = std::min(text.size(), static_cast<std::size_t>(capacity));
  std::copy_n(text.data(), length, buffer);
  buffer[length] = '\0';
  return static_cast<int>(length);
}

}  // namespace

unsigned long utf16ReadUnit(std::FILE* file) {
  platform::LockedStream stream(file);
  return readUnit(stream);
}

int utf16ReadChars(std::FILE* file, wchar_t* buffer, int count, ReadStop stop) {
  if (buffer == nullptr || count < 0) return 0;
  int read = 0;
  if (file != nullptr) {
    platform::LockedStream stream(file);
    for (; read < count; ++read) {
      const unsigned long c = readCharacter(stream);
      if (c == kUtf16End || (c == 0 && stop == ReadStop::AtNul)) break;
      buffer[read] = static_cast<wchar_t>(c);
    }
  }
  buffer[read] = L'\0';
  return read;
}

int utf16ReadChars(std::FILE* file, char* buffer, int count, ReadStop stop) {
  if (buffer == nullptr || count < 0) return 0;
  std::wstring text(static_cast<std::size_t>(count) + 1, L'\0');
  text.resize(static_cast<std::size_t>(utf16ReadChars(file, text.data(), count, stop)));
  return store(wideToAnsi(text), buffer, count);
}

int utf16ReadLine(std::FILE* file, wchar_t* buffer, int count, LineEnd lineEnd) {
  if (buffer == nullptr || count <= 0) return 0;
  int read = 0;
  if (file != nullptr) {
    platform::LockedStream stream(file);
    while (read < count - 1) {
      unsigned long c = readCharacter(stream);
      if (c == kUtf16End) break;
      if (c == L'\r' && lineEnd == LineEnd::CrLf) {
        const unsigned long next = readUnit(stream);
        if (next == L'\n') {
          c = L'\n';
        } else if (next != kUtf16End) {
          std::fseek(file, -kUnitSize, SEEK_CUR);
        }
      }
      buffer[read++] = static_cast<wchar_t>(c);
      if (c == L'\n') break;
    }
  }
  buffer[read] = L'\0';
  return read;
}

int utf16ReadLine(std::FILE* file, char* buffer, int count, LineEnd lineEnd) {
  if (buffer == nullptr || count <= 0) return 0;
  std::wstring text(static_cast<std::size_t>(count), L'\0');
  text.resize(static_cast<std::size_t>(utf16ReadLine(file, text.data(), count, lineEnd)));
  return store(wideToAnsi(text), buffer, count - 1);
}

int utf16Write(std::FILE* file, std::wstring_view text) {
  if (file == nullptr) return -1;
  if (text.empty()) return 0;
  std::string bytes;
  bytes.reserve(text.size() * 2);
  for (const wchar_t c : text) {
    unsigned long code = static_cast<unsigned long>(c);
    if (kWideIsUtf32 && code > 0xFFFF) {
      if (code > 0x10FFFF) code = 0xFFFD;
      if (code > 0xFFFF) {
        appendUnit(bytes, 0xD800 + ((code - 0x10000) >> 10));
        code = 0xDC00 + ((code - 0x10000) & 0x3FF);
      }
    }
    appendUnit(bytes, code);
  }
  return std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size() ? static_cast<int>(text.size()) : -1;
}

int utf16Write(std::FILE* file, std::string_view text) {
  const int written = utf16Write(file, std::wstring_view(ansiToWide(text)));
  return written < 0 ? written : static_cast<int>(text.size());
}

}  // namespace kvt1
