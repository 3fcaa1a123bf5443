#pragma once
// A binary file of bytes in the ANSI code page; nothing is added to lines.
#include "support/CSIFileImpl.h"

namespace kvt1 {

class CSIFileMBCSBin : public CSIFileImpl {
 public:
  int ReadChars(wchar_t* buffer, int count) override;
  int ReadChars(char* buffer, int count) override;
  int ReadString(wchar_t* buffer, int count) override;
  int ReadString(char* buffer, int count) override;
  int WriteString(const wchar_t* text) override;
  int WriteString(const char* text) override;
  int WriteStringZ(const wchar_t* text) override;
  int WriteStringZ(const char* text) override;
  bool IsUnicode() const override { return false; }
};

}  // namespace kvt1
