#pragma once
// A text file of UTF-16LE units that begins with the byte order mark U+FEFF,
// with CR LF line ends.
#include "support/CSIFileImpl.h"

namespace kvt1 {

class CSIFileUnicodeText : public CSIFileImpl {
 public:
  // The create modes write the byte order mark U+FEFF; the append modes write
  // it only when the file did not exist; the read mode 5 skips the first
  // unit unchecked; mode 3 opens the stream only; mode 0 and others fail.
  bool Open(const std::wstring& path, int mode) override;
  int ReadChars(wchar_t* buffer, int count) override;
  int ReadChars(char* buffer, int count) override;
  int ReadString(wchar_t* buffer, int count) override;
  int ReadString(char* buffer, int count) override;
  int WriteString(const wchar_t* text) override;
  int WriteString(const char* text) override;
  int WriteStringZ(const wchar_t* text) override;
  int WriteStringZ(const char* text) override;
  // Lines end in CR LF on disk; a line read ends in a single LF.
  int ReadLine(wchar_t* buffer, int count) override;
  int ReadLine(char* buffer, int count) override;
  int WriteLine(const wchar_t* text) override;
  int WriteLine(const char* text) override;
  bool IsUnicode() const override { return true; }
};

}  // namespace kvt1
