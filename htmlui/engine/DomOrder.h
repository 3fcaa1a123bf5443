#pragma once
// A tree's elements in document order, each with copies of what selectors
// test first: a query scans this one array and reaches into an element only
// for states, attribute values and the rarer tests.
#include <cstdint>

#include "htmlui/engine/DomAtoms.h"
#include "htmlui/engine/DomElement.h"

namespace kvt1::html {

struct OrderEntry {
  static constexpr std::uint32_t kNoParent = 0xFFFFFFFF;
  static constexpr std::uint8_t kInlineClasses = 4;

  Element* element = nullptr;
  std::uint32_t parent = kNoParent;  // the parent's index in the same order
  Atom tagAtom = kNoAtom;
  Atom idAtom = kNoAtom;
  std::uint8_t classCount = 0;  // above kInlineClasses: the classes are the element's
  Atom classes[kInlineClasses] = {};
  std::uint64_t attributeMask = 0;
  std::uint64_t classMask = 0;

  // The copies of e, whose parent sits at parent.
  static OrderEntry of(Element& e, std::uint32_t parent);
  bool hasClass(Atom atom) const;
};

}  // namespace kvt1::html
