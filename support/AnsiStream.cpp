#include "support/AnsiStream.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "platform/LockedStream.h"
#include "support/AnsiText.h"

namespace kvt1 {
namespace {

constexpr int kEndOfFileByte = 0xFF;

// Copies at most capacity characters of text and a NUL into buffer.
int store(const std::wstring& text, wchar_t* buffer, int capacity) {
  const std::size_t length = std::min(text.size(), static_cast<std::size_t>(capacity));
  std::copy_n(text.data(), length, buffer);
  buffer[length] = L'\0';
  return static_cast<int>(length);
}

}  // namespace

int ansiReadChars(std::FILE* file, char* buffer, int count, ReadStop stop) {
  if (buffer == nullptr || count < 0) return 0;
  int read = 0;
  if (file != nullptr) {
    platform::LockedStream stream(file);
    for (; read < count; ++read) {
      const int c = stream.get();
      if (c == EOF || c == kEndOfFileByte || (c == 0 && stop == ReadStop::AtNul)) break;
      buffer[read] = static_cast<char>(c);
    }
  }
  buffer[read] = '\0';
  return read;
}

int ansiReadChars(std::FILE* file, wchar_t* buffer, int count, ReadStop stop) {
  if (buffer == nullptr || count < 0) return 0;
  std::string bytes(static_cast<std::size_t>(count) + 1, '\0');
  bytes.resize(static_cast<std::size_t>(ansiReadChars(file, bytes.data(), count, stop)));
  return store(ansiToWide(bytes), buffer, count);
}

int ansiReadLine(std::FILE* file, char* buffer, int count, LineEnd lineEnd) {
  if (buffer == nullptr || count <= 0) return 0;
  if (file == nullptr || count == 1 || std::fgets(buffer, count, file) == nullptr) {
    buffer[0] = '\0';
    return 0;
  }
  std::size_t length = std::strlen(buffer);
  if (lineEnd == LineEnd::CrLf && length > 0 && buffer[length - 1] == '\r') {
    // The CR ended the buffer or the file: its LF, if any, is still unread.
    const int next = std::getc(file);
    if (next == '\n') {
      buffer[length - 1] = '\n';
    } else if (next != EOF) {
      std::ungetc(next, file);
    }
  } else if (lineEnd == LineEnd::CrLf && length > 1 && buffer[length - 1] == '\n' && buffer[length - 2] == '\r') {
    buffer[length - 2] = '\n';
    buffer[--length] = '\0';
  }
  return static_cast<int>(length);
}

int ansiReadLine(std::FILE* file, wchar_t* buffer, int count, LineEnd lineEnd) {
  if (buffer == nullptr || count <= 0) return 0;
  std::string bytes(static_cast<std::size_t>(count), '\0');
  bytes.resize(static_cast<std::size_t>(ansiReadLine(file, bytes.data(), count, lineEnd)));
  return store(ansiToWide(bytes), buffer, count - 1);
}

int ansiWrite(std::FILE* file, std::string_view text) {
  if (file == nullptr) return -1;
  if (text.empty()) return 0;
  return std::fwrite(text.data(), 1, text.size(), file) == text.size() ? static_cast<int>(text.size()) : -1;
}

int ansiWrite(std::FILE* file, std::wstring_view text) {
  const int written = ansiWrite(file, wideToAnsi(text));
  return written < 0 ? written : static_cast<int>(text.size());
}

}  // namespace kvt1
