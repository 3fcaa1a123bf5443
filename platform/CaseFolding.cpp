#include "platform/CaseFolding.h"

namespace kvt1::platform {
namespace {

template <typename Char>
Char asciiLower(Char c) {
  return c >= Char('A') && c <= Char('Z') ? static_cast<Char>(c - Char('A') + Char('a')) : c;
}

template <typename Char>
std::basic_string<Char> asciiLowered(std::basic_string_view<Char> text) {
  std::basic_string<Char> out(text);
  for (Char& c : out) c = asciiLower(c);
  return out;
}

template <typename Char>
bool asciiEqual(std::basic_string_view<Char> a, std::basic_string_view<Char> b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (asciiLower(a[i]) != asciiLower(b[i])) return false;
  }
  return true;
}

}  // namespace

bool equalsIgnoringCase(std::wstring_view a, std::wstring_view b) {
  return a.size() == b.size() && upperCase(a) == upperCase(b);
}

bool startsWithIgnoringCase(std::wstring_view text, std::wstring_view prefix) {
  return text.size() >= prefix.size() && equalsIgnoringCase(text.substr(0, prefix.size()), prefix);
}

bool lessIgnoringCase(std::wstring_view a, std::wstring_view b) { return upperCase(a) < upperCase(b); }

std::string asciiLowerCase(std::string_view text) { return asciiLowered(text); }
std::wstring asciiLowerCase(std::wstring_view text) { return asciiLowered(text); }
bool asciiEqualsIgnoringCase(std::string_view a, std::string_view b) { return asciiEqual(a, b); }
bool asciiEqualsIgnoringCase(std::wstring_view a, std::wstring_view b) { return asciiEqual(a, b); }

}  // namespace kvt1::platform
