#pragma once
// Reads the forms of an AutoLISP script one by one. A form may span lines; a
// line that starts with "(" in its first column always starts a new form, so
// one unbalanced form costs only its own lines. ";" starts a comment. A line
// whose first non-blank character is "@", outside a form, is a directive for
// the dialogs: the rest of the line, as it stands.
#include <optional>
#include <string>

#include "tools/kvt1-host/core/LispValue.h"

namespace kvt1::emu {

struct ScriptItem {
  int line = 0;            // where the form (or the fault) starts
  LispValue form;          // valid when error and directive are empty
  std::wstring directive;  // a dialog directive without its "@" ("click OK")
  std::wstring error;      // what is wrong with the text at that line
};

class LispReader {
 public:
  explicit LispReader(std::wstring text);

  // The next form or fault; nothing at the end of the text.
  std::optional<ScriptItem> next();

 private:
  wchar_t peek() const { return pos_ < text_.size() ? text_[pos_] : L'\0'; }
  bool atEnd() const { return pos_ >= text_.size(); }
  bool atLineStart() const { return pos_ == 0 || text_[pos_ - 1] == L'\n'; }
  void skipBlanks();
  // Reads one datum; false with error_ set on a fault.
  bool readDatum(LispValue& out);
  bool readList(LispValue& out, int openLine);
  bool readString(LispValue& out);
  LispValue readAtom();
  std::wstring readDirective();

  std::wstring text_;
  std::size_t pos_ = 0;
  int line_ = 1;
  std::wstring error_;
  int errorLine_ = 0;
};

}  // namespace kvt1::emu
