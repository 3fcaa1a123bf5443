#pragma once
// Helpers of the file tests: a temporary folder, raw file bytes, and
// encoders and decoders that do not use the module's code (iconv on Linux,
// the system's code page calls on Windows).
#include <filesystem>
#include <string>

namespace kvt1::test {

// A fresh folder, removed with everything in it when the object goes.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& path() const { return m_path; }
  // The file's path as the module takes it.
  std::wstring file(const std::wstring& name) const { return (m_path / name).wstring(); }

 private:
  std::filesystem::path m_path;
};

std::string readBytes(const std::wstring& path);
void writeBytes(const std::wstring& path, const std::string& bytes);
void makeReadOnly(const std::wstring& path, bool readOnly);

// The UTF-16LE bytes of a text as the compiler encoded it.
std::string utf16le(std::u16string_view text);

// The text in the ANSI code page. Empty when the system cannot convert it
// or some character has no form in the code page.
std::string independentAnsi(std::u16string_view text);

#ifndef _WIN32
// UTF-16 bytes (a leading mark is read as one) decoded to UTF-8 by iconv;
// empty when they are not valid UTF-16.
std::string iconvUtf16ToUtf8(const std::string& bytes);
#endif

}  // namespace kvt1::test
