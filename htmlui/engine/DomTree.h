#pragma once
// The store of every element the engine knows: numbers never given twice,
// handles checked against the store, attribute changes that keep the cached
// id and classes in step, and the changes of parents and children. Each
// change of structure or attributes goes through here and drops the cached
// document orders, so no order outlives the tree it was read from.
#include <cstdint>
#include <map>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "htmlui/engine/DomAtoms.h"
#include "htmlui/engine/DomElement.h"
#include "htmlui/engine/DomOrder.h"

namespace kvt1::html {

class DomTree {
 public:
  Element* create(std::string_view tag);
  // The live element of a handle; null for a stale or foreign handle and
  // for an element being destroyed.
  Element* find(HELEMENT he) const;
  Element* find(std::uint32_t number) const;
  void erase(Element* element);

  // Structure.
  void insert(Element& parent, std::size_t position, std::vector<Node> nodes);
  void append(Element& parent, Node node);
  // Takes element out of its parent's children; nothing without a parent.
  void remove(Element& element);
  // The former children of element; their elements are left without a parent.
  std::vector<Node> takeChildren(Element& element);
  // a and b trade places; both have parents and neither holds the other.
  void swap(Element& a, Element& b);

  void setAttribute(Element& element, std::string_view name, std::wstring_view value);
  bool removeAttribute(Element& element, std::string_view name);
  Atom attributeKey(std::string_view name);
  const std::wstring* attributeValue(const Element& element, std::string_view name) const;

  AtomTable& atoms() { return atoms_; }
  const AtomTable& atoms() const { return atoms_; }
  std::size_t size() const { return elements_.size(); }
  // Every element of top's tree in document order, with the copies that
  // selectors read; each element's orderIndex and orderEnd say where it
  // lies. Kept until the structure or an attribute changes.
  const std::vector<OrderEntry>& order(Element& top);
  // Counts changes of structure: elements are only ever destroyed with one,
  // so an element found while it stays the same is still alive.
  std::uint64_t structureVersion() const { return structureVersion_; }

 private:
  void refreshCache(Element& element, const Attribute& changed);
  void structureChanged();

  AtomTable atoms_;
  std::unordered_map<std::uint32_t, std::unique_ptr<Element>> elements_;
  std::uint32_t nextNumber_ = 1;
  std::uint64_t structureVersion_ = 1;
  std::map<std::uint32_t, std::vector<OrderEntry>> orders_;  // by the number of the tree's top
  Atom idKey_ = atoms_.intern(L"id");
  Atom classKey_ = atoms_.intern(L"class");
};

}  // namespace kvt1::html
