#pragma once
// CSS selectors as the engine knows them: type, *, .class, #id, attribute
// tests ([a], =, ~=, ^=, $=, *=, quoted or bare values, names without case),
// state pseudo-classes, :root (the element a query is scoped to),
// :first-child, :last-child, :not(simple), child and descendant combinators
// and comma groups. Compiled once, then matched against many elements.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "htmlui/engine/DomAtoms.h"
#include "htmlui/engine/DomElement.h"
#include "htmlui/engine/DomOrder.h"

namespace kvt1::html {

class Selector {
 public:
  // None when the text is not a selector the engine knows.
  static std::optional<Selector> compile(std::wstring_view text, const AtomTable& atoms);
  // The same, with the names it holds interned: it stays good for elements
  // made later, as a style sheet's rules must.
  static std::optional<Selector> compileInterned(std::wstring_view text, AtomTable& atoms);

  bool matches(const Element& element, const Element* scope) const;
  // The specificity of the most specific alternative that matches element
  // (ids 100, classes, attributes and pseudo-classes 10, types 1); -1 when none does.
  int matchSpecificity(const Element& element, const Element* scope) const;
  // The same test for order[index], read from the order's copies first.
  bool matches(const OrderEntry* order, std::uint32_t index, const Element* scope) const;
  // True when no element with these names can match: a test that reads no
  // more than copies of an element's tag, id and masks.
  bool rejects(const OrderEntry& entry) const;

  enum class Op { Exists, Equals, Includes, Prefix, Suffix, Contains };
  struct AttributeTest {
    Atom key = kNoAtom;
    Op op = Op::Exists;
    std::wstring value;
  };
  struct Compound {
    Atom tag = kNoAtom;  // kNoAtom: any type
    Atom id = kNoAtom;
    bool hasId = false;
    std::vector<Atom> classes;
    std::vector<AttributeTest> attributes;
    UINT states = 0;
    bool root = false;
    bool firstChild = false;
    bool lastChild = false;
    bool impossible = false;          // names something no element has
    std::uint64_t classMask = 0;      // atomBit of each class required
    std::uint64_t attributeMask = 0;  // atomBit of each attribute required
    std::vector<Compound> negations;
  };
  struct Complex {
    std::vector<Compound> compounds;  // left to right
    std::vector<bool> child;          // child[i]: ">" between compounds[i] and compounds[i + 1]
  };

 private:
  std::vector<Complex> alternatives_;
};

}  // namespace kvt1::html
