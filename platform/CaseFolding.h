#pragma once
// Case-insensitive keys and comparisons over the whole of Unicode, the same in
// every locale (no language's own rules). Each character maps to one
// character, so positions found in the lowered text hold in the original.
#include <string>
#include <string_view>

namespace kvt1::platform {

std::wstring lowerCase(std::wstring_view text);
std::wstring upperCase(std::wstring_view text);

// Comparisons as Windows makes them for names (registry keys, resources,
// commands): character by character in upper case.
bool equalsIgnoringCase(std::wstring_view a, std::wstring_view b);
bool startsWithIgnoringCase(std::wstring_view text, std::wstring_view prefix);
bool lessIgnoringCase(std::wstring_view a, std::wstring_view b);

// lessIgnoringCase as the order of a map or set; finds by any string view.
struct LessIgnoringCase {
  using is_transparent = void;
  bool operator()(std::wstring_view a, std::wstring_view b) const { return lessIgnoringCase(a, b); }
};

// A to Z only, for names that are ASCII by definition and whose rules fold no
// other letter: HTML tag and attribute names, CSS keywords, HTTP header
// names, encoding names.
std::string asciiLowerCase(std::string_view text);
std::wstring asciiLowerCase(std::wstring_view text);
bool asciiEqualsIgnoringCase(std::string_view a, std::string_view b);
bool asciiEqualsIgnoringCase(std::wstring_view a, std::wstring_view b);

}  // namespace kvt1::platform
