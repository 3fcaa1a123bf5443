#include "support/CSIFileUnicodeText.h"

#include <string_view>

#include "platform/File.h"
#include "support/SIFileMode.h"
#include "support/Utf16Stream.h"

namespace kvt1 {
namespace {

bool writeMark(std::FILE* file) { return utf16Write(file, std::wstring_view(&kByteOrderMark, 1)) >= 0; }

}  // namespace

bool CSIFileUnicodeText::Open(const std::wstring& path, int mode) {
  switch (mode) {
    case kSIWriteBinary:
    case kSICreateUpdateBinary:
    case kSIWriteText:
      if (CSIFileImpl::Open(path, mode)) writeMark(m_file);
      return IsOpen();
    case kSIAppendBinary:
    case kSIAppendText: {
      // An existing file keeps its single mark; a new one gets it.
      std::FILE* existing = platform::openFile(path, "rb");
      if (existing != nullptr) {
        std::fclose(existing);
        return CSIFileImpl::Open(path, mode);
      }
      if (CSIFileImpl::Open(path, mode)) writeMark(m_file);
      return IsOpen();
    }
    case kSIReadText:
      // Text files of this class begin with the mark: the first unit is skipped unchecked.
      if (CSIFileImpl::Open(path, mode)) utf16ReadUnit(m_file);
      return IsOpen();
    case kSIUpdateBinary:
      return CSIFileImpl::Open(path, mode);
    default:
      Close();
      m_path = path;
      return false;
  }
}

int CSIFileUnicodeText::ReadChars(wchar_t* buffer, int count) {
  return utf16ReadChars(m_file, buffer, count, ReadStop::AtEnd);
}

int CSIFileUnicodeText::ReadChars(char* buffer, int count) {
  return utf16ReadChars(m_file, buffer, count, ReadStop::AtEnd);
}

int CSIFileUnicodeText::ReadString(wchar_t* buffer, int count) {
  return utf16ReadChars(m_file, buffer, count, ReadStop::AtNul);
}

int CSIFileUnicodeText::ReadString(char* buffer, int count) {
  return utf16ReadChars(m_file, buffer, count, ReadStop::AtNul);
}

int CSIFileUnicodeText::WriteString(const wchar_t* text) {
  return utf16Write(m_file, std::wstring_view(text ? text : L""));
}

int CSIFileUnicodeText::WriteString(const char* text) { return utf16Write(m_file, std::string_view(text ? text : "")); }

int CSIFileUnicodeText::WriteStringZ(const wchar_t* text) {
  const int written = WriteString(text);
  return written < 0 ? written : utf16Write(m_file, std::wstring_view(L"\0", 1));
}

int CSIFileUnicodeText::WriteStringZ(const char* text) {
  const int written = WriteString(text);
  return written < 0 ? written : utf16Write(m_file, std::wstring_view(L"\0", 1));
}

int CSIFileUnicodeText::ReadLine(wchar_t* buffer, int count) {
  return utf16ReadLine(m_file, buffer, count, LineEnd::CrLf);
}

int CSIFileUnicodeText::ReadLine(char* buffer, int count) {
  return utf16ReadLine(m_file, buffer, count, LineEnd::CrLf);
}

int CSIFileUnicodeText::WriteLine(const wchar_t* text) {
  const int written = WriteString(text);
  return written < 0 ? written : WriteString(L"\r\n");
}

int CSIFileUnicodeText::WriteLine(const char* text) {
  const int written = WriteString(text);
  return written < 0 ? written : WriteString("\r\n");
}

}  // namespace kvt1
