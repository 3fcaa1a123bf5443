#include "support/CSIFileMBCSBin.h"

#include <string_view>

#include "support/AnsiStream.h"

namespace kvt1 {

int CSIFileMBCSBin::ReadChars(wchar_t* buffer, int count) {
  return ansiReadChars(m_file, buffer, count, ReadStop::AtEnd);
}

int CSIFileMBCSBin::ReadChars(char* buffer, int count) { return ansiReadChars(m_file, buffer, count, ReadStop::AtEnd); }

int CSIFileMBCSBin::ReadString(wchar_t* buffer, int count) {
  return ansiReadChars(m_file, buffer, count, ReadStop::AtNul);
}

int CSIFileMBCSBin::ReadString(char* buffer, int count) {
  return ansiReadChars(m_file, buffer, count, ReadStop::AtNul);
}

int CSIFileMBCSBin::WriteString(const wchar_t* text) { return ansiWrite(m_file, std::wstring_view(text ? text : L"")); }

int CSIFileMBCSBin::WriteString(const char* text) { return ansiWrite(m_file, std::string_view(text ? text : "")); }

int CSIFileMBCSBin::WriteStringZ(const wchar_t* text) {
  const int written = WriteString(text);
  return written < 0 ? written : ansiWrite(m_file, std::string_view("\0", 1));
}

int CSIFileMBCSBin::WriteStringZ(const char* text) {
  const int written = WriteString(text);
  return written < 0 ? written : ansiWrite(m_file, std::string_view("\0", 1));
}

}  // namespace kvt1
