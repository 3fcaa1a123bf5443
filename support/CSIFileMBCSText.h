#pragma once
// A text file of bytes in the ANSI code page, with CR LF line ends.
#include "support/CSIFileImpl.h"

namespace kvt1 {

class CSIFileMBCSText : public CSIFileImpl {
 public:
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
  bool IsUnicode() const override { return false; }
};

}  // namespace kvt1
