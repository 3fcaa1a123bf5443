#include "support/CSIFileMBCSText.h"

#include <string_view>

#include "support/AnsiStream.h"

namespace kvt1 {

int CSIFileMBCSText::ReadChars(wchar_t* buffer, int count) {
  return ansiReadChars(m_file, buffer, count, ReadStop::AtEnd);
}

int CSIFileMBCSText::ReadChars(char* buffer, int count) {
  return ansiReadChars(m_file, buffer, count, ReadStop::AtEnd);
}

int CSIFileMBCSText::ReadString(wchar_t* buffer, int count) {
  return ansiReadChars(m_file, buffer, count, ReadStop::AtNul);
}

int CSIFileMBCSText::ReadString(char* buffer, int count) {
  return ansiReadChars(m_file, buffer, count, ReadStop::AtNul);
}

int CSIFileMBCSText::WriteString(const wchar_t* text) {
  return ansiWrite(m_file, std::wstring_view(text ? text : L""));
}

int CSIFileMBCSText::WriteString(const char* text) { return ansiWrite(m_file, std::string_view(text ? text : "")); }

int CSIFileMBCSText::WriteStringZ(const wchar_t* text) {
  const int written = WriteString(text);
  return written < 0 ? written : ansiWrite(m_file, std::string_view("\0", 1));
}

int CSIFileMBCSText::WriteStringZ(const char* text) {
  const int written = WriteString(text);
  return written < 0 ? written : ansiWrite(m_file, std::string_view("\0", 1));
}

int CSIFileMBCSText::ReadLine(wchar_t* buffer, int count) { return ansiReadLine(m_file, buffer, count, LineEnd::CrLf); }

int CSIFileMBCSText::ReadLine(char* buffer, int count) { return ansiReadLine(m_file, buffer, count, LineEnd::CrLf); }

int CSIFileMBCSText::WriteLine(const wchar_t* text) {
  const int written = WriteString(text);
  return written < 0 ? written : WriteString(L"\r\n");
}

int CSIFileMBCSText::WriteLine(const char* text) {
  const int written = WriteString(text);
  return written < 0 ? written : WriteString("\r\n");
}

}  // namespace kvt1
