#include "tools/kvt1-host/LispReader.h"

#include <cwchar>
#include <cwctype>

#include "platform/CaseFolding.h"

namespace kvt1::emu {
namespace {

bool isDelimiter(wchar_t c) {
  return c == L'\0' || std::iswspace(c) || c == L'(' || c == L')' || c == L'"' || c == L';' || c == L'\'';
}

}  // namespace

LispReader::LispReader(std::wstring text) : text_(std::move(text)) {}

void LispReader::skipBlanks() {
  while (!atEnd()) {
    const wchar_t c = peek();
    if (c == L'\n') {
      ++line_;
      ++pos_;
    } else if (std::iswspace(c)) {
      ++pos_;
    } else if (c == L';') {
      while (!atEnd() && peek() != L'\n') ++pos_;
    } else {
      return;
    }
  }
}

std::optional<ScriptItem> LispReader::next() {
  skipBlanks();
  if (atEnd()) return std::nullopt;

  ScriptItem item;
  item.line = line_;
  if (peek() == L')') {
    ++pos_;
    item.error = L"unbalanced parentheses: ')' closes nothing";
    return item;
  }
  if (peek() == L'@') {
    item.directive = readDirective();
    if (item.directive.empty()) item.error = L"\"@\" without a directive";
    return item;
  }
  error_.clear();
  const std::size_t start = pos_;
  if (!readDatum(item.form)) {
    item.line = errorLine_;
    item.error = error_;
    // A fault where no value can start (a NUL character) is passed over, so that reading goes on.
    if (pos_ == start) ++pos_;
  }
  return item;
}

bool LispReader::readDatum(LispValue& out) {
  skipBlanks();
  const wchar_t c = peek();
  if (c == L'(') {
    const int openLine = line_;
    ++pos_;
    return readList(out, openLine);
  }
  if (c == L'"') return readString(out);
  if (c == L'\'') {
    ++pos_;
    LispValue quoted;
    if (!readDatum(quoted)) return false;
    out = LispValue::list({LispValue::symbol(L"quote"), std::move(quoted)});
    return true;
  }
  if (c == L')' || c == L'\0') {
    error_ = L"a value was expected";
    errorLine_ = line_;
    return false;
  }
  out = readAtom();
  return true;
}

bool LispReader::readList(LispValue& out, int openLine) {
  std::vector<LispValue> items;
  for (;;) {
    skipBlanks();
    if (atEnd() || (peek() == L'(' && atLineStart())) {
      error_ = L"unbalanced parentheses: '(' is not closed";
      errorLine_ = openLine;
      return false;
    }
    if (peek() == L')') {
      ++pos_;
      out = LispValue::list(std::move(items));
      return true;
    }
    LispValue item;
    if (!readDatum(item)) return false;
    items.push_back(std::move(item));
  }
}

bool LispReader::readString(LispValue& out) {
  const int openLine = line_;
  ++pos_;  // opening quote
  std::wstring text;
  while (!atEnd()) {
    wchar_t c = text_[pos_++];
    if (c == L'"') {
      out = LispValue::fromString(std::move(text));
      return true;
    }
    if (c == L'\n') ++line_;
    if (c == L'\\' && !atEnd()) {
      c = text_[pos_++];
      switch (c) {
        case L'n':
          c = L'\n';
          break;
        case L't':
          c = L'\t';
          break;
        case L'r':
          c = L'\r';
          break;
        case L'e':
          c = 0x1B;
          break;
        default:
          break;  // "\\" and "\"" stand for themselves
      }
    }
    text += c;
  }
  error_ = L"the string is not closed";
  errorLine_ = openLine;
  return false;
}

LispValue LispReader::readAtom() {
  const std::size_t start = pos_;
  while (!isDelimiter(peek())) ++pos_;
  const std::wstring token = text_.substr(start, pos_ - start);

  if (platform::equalsIgnoringCase(token, L"nil")) return LispValue::nil();
  if (platform::equalsIgnoringCase(token, L"t")) return LispValue::t();

  // Numbers are written with digits, a sign, a point and an exponent only.
  if (token.find_first_not_of(L"0123456789+-.eE") != std::wstring::npos ||
      token.find_first_of(L"0123456789") == std::wstring::npos) {
    return LispValue::symbol(token);
  }
  wchar_t* end = nullptr;
  const long long integer = std::wcstoll(token.c_str(), &end, 10);
  if (end && *end == L'\0' && end != token.c_str()) return LispValue::fromInteger(integer);
  const double real = std::wcstod(token.c_str(), &end);
  if (end && *end == L'\0' && end != token.c_str()) return LispValue::fromReal(real);
  return LispValue::symbol(token);
}

std::wstring LispReader::readDirective() {
  const std::size_t start = ++pos_;
  while (!atEnd() && peek() != L'\n') ++pos_;
  std::wstring text = text_.substr(start, pos_ - start);
  while (!text.empty() && std::iswspace(text.back())) text.pop_back();
  return text;
}

}  // namespace kvt1::emu
