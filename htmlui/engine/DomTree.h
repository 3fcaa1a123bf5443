#pragma once
// The store of every element the engine knows: numbers never given twice,
// handles checked against the store, and attribute changes that keep the
// cached id and classes in step.
#include <cstdint>
#include <memory>
#include <string_view>
#include <unordered_map>

#include "htmlui/engine/DomAtoms.h"
#include "htmlui/engine/DomElement.h"

namespace kvt1::html {

class DomTree {
 public:
  Element* create(std::string_view tag);
  // The live element of a handle; null for a stale or foreign handle and
  // for an element being destroyed.
  Element* find(HELEMENT he) const;
  Element* find(std::uint32_t number) const;
  void erase(Element* element);

  void setAttribute(Element& element, std::string_view name, std::wstring_view value);
  bool removeAttribute(Element& element, std::string_view name);
  Atom attributeKey(std::string_view name);
  const std::wstring* attributeValue(const Element& element, std::string_view name) const;

  AtomTable& atoms() { return atoms_; }
  const AtomTable& atoms() const { return atoms_; }
  std::size_t size() const { return elements_.size(); }
  // Counts attribute changes, so that copies of ids, classes and masks can tell they are stale.
  std::uint64_t attributeVersion() const { return attributeVersion_; }

 private:
  void refreshCache(Element& element, const Attribute& changed);

  AtomTable atoms_;
  std::unordered_map<std::uint32_t, std::unique_ptr<Element>> elements_;
  std::uint32_t nextNumber_ = 1;
  std::uint64_t attributeVersion_ = 0;
  Atom idKey_ = atoms_.intern(L"id");
  Atom classKey_ = atoms_.intern(L"class");
};

}  // namespace kvt1::html
