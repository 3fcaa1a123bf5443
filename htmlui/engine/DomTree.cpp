#include "htmlui/engine/DomTree.h"

#include <cwctype>

namespace kvt1::html {

Element* DomTree::create(std::string_view tag) {
  auto element = std::make_unique<Element>();
  element->number = nextNumber_++;
  element->tag = asciiLower(tag);
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

void DomTree::erase(Element* element) { elements_.erase(element->number); }

Atom DomTree::attributeKey(std::string_view name) { return atoms_.intern(asciiLower(widenName(name))); }

const std::wstring* DomTree::attributeValue(const Element& element, std::string_view name) const {
  const Atom key = atoms_.find(asciiLower(widenName(name)));
  return key != kNoAtom ? element.attributeValue(key) : nullptr;
}

void DomTree::setAttribute(Element& element, std::string_view name, std::wstring_view value) {
  ++attributeVersion_;
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
  const Atom key = atoms_.find(asciiLower(widenName(name)));
  for (auto it = element.attributes.begin(); it != element.attributes.end(); ++it) {
    if (it->key != key) continue;
    element.attributes.erase(it);
    ++attributeVersion_;
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
