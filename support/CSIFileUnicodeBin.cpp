#include "support/CSIFileUnicodeBin.h"

#include <string_view>

#include "support/Utf16Stream.h"

namespace kvt1 {

int CSIFileUnicodeBin::ReadChars(wchar_t* buffer, int count) {
  return utf16ReadChars(m_file, buffer, count, ReadStop::AtEnd);
}

int CSIFileUnicodeBin::ReadChars(char* buffer, int count) {
  return utf16ReadChars(m_file, buffer, count, ReadStop::AtEnd);
}

int CSIFileUnicodeBin::ReadString(wchar_t* buffer, int count) {
  return utf16ReadChars(m_file, buffer, count, ReadStop::AtNul);
}

int CSIFileUnicodeBin::ReadString(char* buffer, int count) {
  return utf16ReadChars(m_file, buffer, count, ReadStop::AtNul);
}

int CSIFileUnicodeBin::WriteString(const wchar_t* text) {
  return utf16Write(m_file, std::wstring_view(text ? text : L""));
}

int CSIFileUnicodeBin::WriteString(const char* text) { return utf16Write(m_file, std::string_view(text ? text : "")); }

int CSIFileUnicodeBin::WriteStringZ(const wchar_t* text) {
  const int written = WriteString(text);
  return written < 0 ? written : utf16Write(m_file, std::wstring_view(L"\0", 1));
}

int CSIFileUnicodeBin::WriteStringZ(const char* text) {
  const int written = WriteString(text);
  return written < 0 ? written : utf16Write(m_file, std::wstring_view(L"\0", 1));
}

}  // namespace kvt1
