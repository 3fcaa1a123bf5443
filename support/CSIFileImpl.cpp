#include "support/CSIFileImpl.h"

#include "platform/File.h"
#include "support/AnsiStream.h"
#include "support/SIFileMode.h"
#include "support/Utf16Stream.h"

namespace kvt1 {
namespace {

// The folder part of a file path: up to its last "\" or "/".
std::wstring folderOf(const std::wstring& path) {
  const std::size_t separator = path.find_last_of(L"\\/");
  return separator == std::wstring::npos ? std::wstring() : path.substr(0, separator);
}

}  // namespace

CSIFileImpl::~CSIFileImpl() { Close(); }

bool CSIFileImpl::Open(const std::wstring& path, int mode) {
  Close();
  m_path = path;
  const char* streamMode = SIFileStreamMode(mode);
  if (*streamMode == '\0') return false;
  const std::wstring folder = folderOf(path);
  if (SIFileModeCreates(mode) && !folder.empty()) platform::createFolders(folder);
  m_file = platform::openFile(path, streamMode);
  return m_file != nullptr;
}

int CSIFileImpl::ReadBytes(void* buffer, std::size_t size) {
  if (m_file == nullptr || buffer == nullptr) return 0;
  return static_cast<int>(std::fread(buffer, size, 1, m_file));
}

int CSIFileImpl::ReadLine(wchar_t* buffer, int count) {
  return IsUnicode() ? utf16ReadLine(m_file, buffer, count, LineEnd::Lf)
                     : ansiReadLine(m_file, buffer, count, LineEnd::Lf);
}

int CSIFileImpl::ReadLine(char* buffer, int count) {
  return IsUnicode() ? utf16ReadLine(m_file, buffer, count, LineEnd::Lf)
                     : ansiReadLine(m_file, buffer, count, LineEnd::Lf);
}

int CSIFileImpl::WriteLine(const wchar_t* text) { return WriteStringAndChar(text, L'\n'); }

int CSIFileImpl::WriteLine(const char* text) { return WriteStringAndChar(text, '\n'); }

int CSIFileImpl::WriteStringAndChar(const wchar_t* text, wchar_t character) {
  if (character == L'\0') return WriteStringZ(text);
  const int written = WriteString(text);
  if (written < 0) return written;
  const wchar_t tail[] = {character, L'\0'};
  return WriteString(tail);
}

int CSIFileImpl::WriteStringAndChar(const char* text, char character) {
  if (character == '\0') return WriteStringZ(text);
  const int written = WriteString(text);
  if (written < 0) return written;
  const char tail[] = {character, '\0'};
  return WriteString(tail);
}

void CSIFileImpl::Close() {
  if (m_file != nullptr) std::fclose(m_file);
  m_file = nullptr;
}

}  // namespace kvt1
