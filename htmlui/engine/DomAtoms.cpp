#include "htmlui/engine/DomAtoms.h"

#include "platform/Unicode.h"

namespace kvt1::html {

Atom AtomTable::intern(std::wstring_view name) {
  const auto found = atoms_.find(std::wstring(name));
  if (found != atoms_.end()) return found->second;
  const Atom atom = static_cast<Atom>(atoms_.size() + 1);
  atoms_.emplace(std::wstring(name), atom);
  return atom;
}

Atom AtomTable::find(std::wstring_view name) const {
  const auto found = atoms_.find(std::wstring(name));
  return found != atoms_.end() ? found->second : kNoAtom;
}

std::wstring asciiLower(std::wstring_view text) {
  std::wstring out(text);
  for (wchar_t& c : out)
    if (c >= L'A' && c <= L'Z') c = static_cast<wchar_t>(c - L'A' + L'a');
  return out;
}

std::string asciiLower(std::string_view text) {
  std::string out(text);
  for (char& c : out)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return out;
}

bool equalsNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    char x = a[i], y = b[i];
    if (x >= 'A' && x <= 'Z') x = static_cast<char>(x - 'A' + 'a');
    if (y >= 'A' && y <= 'Z') y = static_cast<char>(y - 'A' + 'a');
    if (x != y) return false;
  }
  return true;
}

std::wstring widenName(std::string_view name) { return platform::fromUtf8(name); }

}  // namespace kvt1::html
