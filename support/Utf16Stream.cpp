#include "support/Utf16Stream.h"

#include <algorithm>
#include <string>

#include "platform/LockedStream.h"
#include "platform/Unicode.h"
#include "support/AnsiText.h"

namespace kvt1 {
namespace {

constexpr long kUnitSize = 2;

unsigned long readUnit(platform::LockedStream& stream) {
  const int low = stream.get();
  if (low == EOF) return kUtf16End;
  const int high = stream.get();
  if (high == EOF) return kUtf16End;
  return static_cast<unsigned long>(low) | static_cast<unsigned long>(high) << 8;
}

// One character: a unit or a whole surrogate pair; a lone surrogate is U+FFFD.
unsigned long readCharacter(platform::LockedStream& stream) {
  const unsigned long unit = readUnit(stream);
  if (platform::isLowSurrogate(unit)) return platform::kReplacementCharacter;
  if (!platform::isHighSurrogate(unit)) return unit;
  const unsigned long low = readUnit(stream);
  if (platform::isLowSurrogate(low)) return platform::joinSurrogates(unit, low);
  if (low != kUtf16End) std::fseek(stream.file(), -kUnitSize, SEEK_CUR);  // not part of this character
  return platform::kReplacementCharacter;
}

// Stores a character in buffer[stored] (a surrogate pair where wchar_t is
// UTF-16). False, with the character put back on the stream, when only
// room units are left and it needs more.
bool storeCharacter(std::FILE* file, unsigned long c, wchar_t* buffer, int& stored, int room) {
  std::wstring units;
  platform::appendCodePoint(units, static_cast<char32_t>(c));
  if (static_cast<int>(units.size()) > room) {
    std::fseek(file, -kUnitSize * static_cast<long>(units.size()), SEEK_CUR);
    return false;
  }
  for (const wchar_t unit : units) buffer[stored++] = unit;
  return true;
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
    while (read < count) {
      const unsigned long c = readCharacter(stream);
      if (c == kUtf16End || (c == 0 && stop == ReadStop::AtNul)) break;
      if (!storeCharacter(file, c, buffer, read, count - read)) break;
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
      if (!storeCharacter(file, c, buffer, read, count - 1 - read)) break;
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
  const std::string bytes = platform::toUtf16(text);
  return std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size() ? static_cast<int>(text.size()) : -1;
}

int utf16Write(std::FILE* file, std::string_view text) {
  const int written = utf16Write(file, std::wstring_view(ansiToWide(text)));
  return written < 0 ? written : static_cast<int>(text.size());
}

}  // namespace kvt1
