#include "htmlui/engine/DomElement.h"

namespace kvt1::html {

const Attribute* Element::attribute(Atom key) const {
  for (const Attribute& a : attributes)
    if (a.key == key) return &a;
  return nullptr;
}

const std::wstring* Element::attributeValue(Atom key) const {
  const Attribute* a = attribute(key);
  return a != nullptr ? &a->value : nullptr;
}

std::size_t Element::elementCount() const {
  std::size_t count = 0;
  for (const Node& n : children)
    if (n.element != nullptr) ++count;
  return count;
}

Element* Element::elementChild(std::size_t n) const {
  for (const Node& node : children) {
    if (node.element == nullptr) continue;
    if (n == 0) return node.element;
    --n;
  }
  return nullptr;
}

std::size_t Element::elementIndex() const {
  if (parent == nullptr) return 0;
  std::size_t index = 0;
  for (const Node& node : parent->children) {
    if (node.element == this) return index;
    if (node.element != nullptr) ++index;
  }
  return 0;
}

std::size_t Element::nodePosition(const Element* child) const {
  for (std::size_t i = 0; i < children.size(); ++i)
    if (children[i].element == child) return i;
  return children.size();
}

const Element* Element::top() const {
  const Element* e = this;
  while (e->parent != nullptr) e = e->parent;
  return e;
}

Element* Element::top() {
  Element* e = this;
  while (e->parent != nullptr) e = e->parent;
  return e;
}

bool Element::isAncestorOf(const Element* other) const {
  for (const Element* e = other != nullptr ? other->parent : nullptr; e != nullptr; e = e->parent)
    if (e == this) return true;
  return false;
}

}  // namespace kvt1::html
