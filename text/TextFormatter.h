#pragma once
// The hook that every successful text lookup passes its text through, and the
// process-wide pointer to the formatter in use. The built-in formatter leaves
// texts as they are; a product may install its own to rewrite them.
#include <string>

namespace NTxtRes {

class CTextFormatterInterface {
 public:
  virtual void FormatText(std::wstring& text) = 0;

 protected:
  ~CTextFormatterInterface() = default;
};

class CTxtResTextFormatter : public CTextFormatterInterface {
 public:
  void FormatText(std::wstring& text) override;
};

// The current formatter; the built-in one unless another was installed.
CTextFormatterInterface& GetTextFormatter();
// Installs formatter as the current one; null restores the built-in one.
void SetTextFormatter(CTextFormatterInterface* formatter);

}  // namespace NTxtRes
