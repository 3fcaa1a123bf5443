#pragma once
// Interned names: tag names, attribute names and class and id values become
// small numbers, so that selectors compare numbers instead of strings.
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace kvt1::html {

using Atom = std::uint32_t;
constexpr Atom kNoAtom = 0;  // never given to a name

class AtomTable {
 public:
  Atom intern(std::wstring_view name);
  // The atom of a name already interned; kNoAtom for a name never seen.
  Atom find(std::wstring_view name) const;

 private:
  std::unordered_map<std::wstring, Atom> atoms_;
};

// A narrow name (tag, attribute, style property) as a wide string.
std::wstring widenName(std::string_view name);

}  // namespace kvt1::html
