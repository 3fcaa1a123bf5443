#include "htmlui/engine/DomOrder.h"

#include <algorithm>

namespace kvt1::html {

OrderEntry OrderEntry::of(Element& e, std::uint32_t parent) {
  OrderEntry entry;
  entry.element = &e;
  entry.parent = parent;
  entry.tagAtom = e.tagAtom;
  entry.idAtom = e.idAtom;
  entry.attributeMask = e.attributeMask;
  entry.classMask = e.classMask;
  entry.classCount = static_cast<std::uint8_t>(std::min<std::size_t>(e.classes.size(), kInlineClasses + 1));
  if (entry.classCount <= kInlineClasses) std::copy(e.classes.begin(), e.classes.end(), entry.classes);
  return entry;
}

bool OrderEntry::hasClass(Atom atom) const {
  if (classCount > kInlineClasses)
    return std::find(element->classes.begin(), element->classes.end(), atom) != element->classes.end();
  return std::find(classes, classes + classCount, atom) != classes + classCount;
}

}  // namespace kvt1::html
