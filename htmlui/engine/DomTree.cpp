#include "htmlui/engine/DomTree.h"

#include <algorithm>
#include <cwctype>

#include "platform/CaseFolding.h"

namespace kvt1::html {

Element* DomTree::create(std::string_view tag) {
  auto element = std::make_unique<Element>();
  element->number = nextNumber_++;
  element->tag = platform::asciiLowerCase(tag);
  element->tagAtom = atoms_.intern(widenName(element->tag));
  Element* raw = element.get();
  elements_.emplace(raw->number, std::move(element));
  return raw;
}

Element* DomTree::find(HELEMENT he) const { return find(handleNumber(he)); }

Element* DomTree::find(std::uint32_t number) const {
  if (number == 0) return nullptr;
  const auto found = elements_.find(number);
  return found != elements_.end() && !found->second->dying ? found->second.get() : nullptr;
}

void DomTree::erase(Element* element) {
  structureChanged();
  elements_.erase(element->number);
}

void DomTree::structureChanged() {
  ++structureVersion_;
  orders_.clear();
}

void DomTree::insert(Element& parent, std::size_t position, std::vector<Node> nodes) {
  structureChanged();
  for (Node& node : nodes)
    if (node.element != nullptr) node.element->parent = &parent;
  position = std::min(position, parent.children.size());
  parent.children.insert(parent.children.begin() + static_cast<std::ptrdiff_t>(position),
                         std::make_move_iterator(nodes.begin()), std::make_move_iterator(nodes.end()));
}

void DomTree::append(Element& parent, Node node) {
  structureChanged();
  if (node.element != nullptr) node.element->parent = &parent;
  parent.children.push_back(std::move(node));
}

void DomTree::remove(Element& element) {
  if (element.parent == nullptr) return;
  structureChanged();
  std::vector<Node>& siblings = element.parent->children;
  const std::size_t position = element.parent->nodePosition(&element);
  if (position < siblings.size()) siblings.erase(siblings.begin() + static_cast<std::ptrdiff_t>(position));
  element.parent = nullptr;
}

std::vector<Node> DomTree::takeChildren(Element& element) {
  structureChanged();
  std::vector<Node> taken = std::move(element.children);
  element.children.clear();
  for (const Node& node : taken)
    if (node.element != nullptr) node.element->parent = nullptr;
  return taken;
}

void DomTree::swap(Element& a, Element& b) {
  structureChanged();
  Element* parentA = a.parent;
  Element* parentB = b.parent;
  const std::size_t positionA = parentA->nodePosition(&a);
  const std::size_t positionB = parentB->nodePosition(&b);
  parentA->children[positionA].element = &b;
  parentB->children[positionB].element = &a;
  a.parent = parentB;
  b.parent = parentA;
}

const std::vector<OrderEntry>& DomTree::order(Element& top) {
  std::vector<OrderEntry>& order = orders_[top.number];
  if (!order.empty()) return order;
  const auto add = [&](Element& e, std::uint32_t parent) {
    e.orderIndex = e.orderEnd = static_cast<std::uint32_t>(order.size());
    order.push_back(OrderEntry::of(e, parent));
  };
  add(top, OrderEntry::kNoParent);
  // Parents are added before their children, so a parent's index is known.
  forEachDescendant(top, [&](Element& e, std::size_t) {
    add(e, e.parent->orderIndex);
    return true;
  });
  // Parents come before their children: a backward pass carries each end up.
  for (OrderEntry& entry : order) ++entry.element->orderEnd;
  for (std::size_t i = order.size(); i-- > 1;) {
    Element* parent = order[i].element->parent;
    parent->orderEnd = std::max(parent->orderEnd, order[i].element->orderEnd);
  }
  return order;
}

Atom DomTree::attributeKey(std::string_view name) { return atoms_.intern(platform::asciiLowerCase(widenName(name))); }

const std::wstring* DomTree::attributeValue(const Element& element, std::string_view name) const {
  const Atom key = atoms_.find(platform::asciiLowerCase(widenName(name)));
  return key != kNoAtom ? element.attributeValue(key) : nullptr;
}

void DomTree::setAttribute(Element& element, std::string_view name, std::wstring_view value) {
  orders_.clear();
  const Atom key = attributeKey(name);
  element.attributeMask |= atomBit(key);
  for (Attribute& a : element.attributes) {
    if (a.key == key) {
      a.value = value;
      refreshCache(element, a);
      return;
    }
  }
  element.attributes.push_back(Attribute{std::string(name), key, std::wstring(value)});
  refreshCache(element, element.attributes.back());
}

bool DomTree::removeAttribute(Element& element, std::string_view name) {
  const Atom key = atoms_.find(platform::asciiLowerCase(widenName(name)));
  for (auto it = element.attributes.begin(); it != element.attributes.end(); ++it) {
    if (it->key != key) continue;
    element.attributes.erase(it);
    orders_.clear();
    element.attributeMask = 0;
    for (const Attribute& a : element.attributes) element.attributeMask |= atomBit(a.key);
    if (key == idKey_) element.idAtom = kNoAtom;
    if (key == classKey_) {
      element.classes.clear();
      element.classMask = 0;
    }
    return true;
  }
  return false;
}

void DomTree::refreshCache(Element& element, const Attribute& changed) {
  if (changed.key == idKey_) {
    element.idAtom = atoms_.intern(changed.value);
  } else if (changed.key == classKey_) {
    element.classes.clear();
    element.classMask = 0;
    const std::wstring& v = changed.value;
    std::size_t pos = 0;
    while (pos < v.size()) {
      while (pos < v.size() && iswspace(v[pos])) ++pos;
      std::size_t end = pos;
      while (end < v.size() && !iswspace(v[end])) ++end;
      if (end > pos) {
        element.classes.push_back(atoms_.intern(std::wstring_view(v).substr(pos, end - pos)));
        element.classMask |= atomBit(element.classes.back());
      }
      pos = end;
    }
  }
}

}  // namespace kvt1::html
