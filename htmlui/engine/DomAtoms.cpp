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

std::wstring widenName(std::string_view name) { return platform::fromUtf8(name); }

}  // namespace kvt1::html
