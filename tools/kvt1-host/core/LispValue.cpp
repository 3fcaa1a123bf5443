#include "tools/kvt1-host/core/LispValue.h"

#include <cmath>
#include <cwchar>

namespace kvt1::emu {

LispValue LispValue::make(Kind kind) {
  LispValue value;
  value.kind = kind;
  return value;
}

LispValue LispValue::fromInteger(std::int64_t integer) {
  LispValue value = make(Kind::Integer);
  value.integer = integer;
  return value;
}

LispValue LispValue::fromReal(double real) {
  LispValue value = make(Kind::Real);
  value.real = real;
  return value;
}

LispValue LispValue::fromString(std::wstring text) {
  LispValue value = make(Kind::String);
  value.text = std::move(text);
  return value;
}

LispValue LispValue::symbol(std::wstring name) {
  LispValue value = make(Kind::Symbol);
  value.text = std::move(name);
  return value;
}

LispValue LispValue::list(std::vector<LispValue> items) {
  if (items.empty()) return nil();
  LispValue value = make(Kind::List);
  value.items = std::move(items);
  return value;
}

namespace {

std::wstring realText(double real) {
  if (!std::isfinite(real)) return real != real ? L"1.#QNAN" : (real > 0 ? L"1.#INF" : L"-1.#INF");
  wchar_t buffer[64];
  std::swprintf(buffer, 64, L"%.6g", real);
  std::wstring text(buffer);
  if (text.find_first_of(L".e") == std::wstring::npos) text += L".0";
  return text;
}

std::wstring quotedString(const std::wstring& text) {
  std::wstring out = L"\"";
  for (wchar_t c : text) {
    switch (c) {
      case L'\\':
        out += L"\\\\";
        break;
      case L'"':
        out += L"\\\"";
        break;
      case L'\n':
        out += L"\\n";
        break;
      case L'\t':
        out += L"\\t";
        break;
      case L'\r':
        out += L"\\r";
        break;
      default:
        out += c;
    }
  }
  return out + L"\"";
}

}  // namespace

std::wstring toLispText(const LispValue& value) {
  switch (value.kind) {
    case LispValue::Kind::Nil:
      return L"nil";
    case LispValue::Kind::T:
      return L"T";
    case LispValue::Kind::Integer:
      return std::to_wstring(value.integer);
    case LispValue::Kind::Real:
      return realText(value.real);
    case LispValue::Kind::String:
      return quotedString(value.text);
    case LispValue::Kind::Symbol:
      return value.text;
    case LispValue::Kind::List: {
      std::wstring out = L"(";
      for (std::size_t i = 0; i < value.items.size(); ++i) {
        if (i > 0) out += L' ';
        out += toLispText(value.items[i]);
      }
      return out + L")";
    }
  }
  return L"nil";
}

}  // namespace kvt1::emu
