#pragma once
// A LISP value as the emulator reads it from a script and prints it back:
// nil, T, integers, reals, strings, symbols and lists.
#include <cstdint>
#include <string>
#include <vector>

namespace kvt1::emu {

struct LispValue {
  enum class Kind { Nil, T, Integer, Real, String, Symbol, List };

  Kind kind = Kind::Nil;
  std::int64_t integer = 0;
  double real = 0.0;
  std::wstring text;             // string contents or symbol name
  std::vector<LispValue> items;  // list elements

  static LispValue nil() { return {}; }
  static LispValue t() { return make(Kind::T); }
  static LispValue fromInteger(std::int64_t value);
  static LispValue fromReal(double value);
  static LispValue fromString(std::wstring value);
  static LispValue symbol(std::wstring name);
  static LispValue list(std::vector<LispValue> items);

  bool isNil() const { return kind == Kind::Nil; }

 private:
  static LispValue make(Kind kind);
};

// The value in AutoLISP notation: nil, T, 5, 1.5, "a\\b", (0 "x").
std::wstring toLispText(const LispValue& value);

}  // namespace kvt1::emu
