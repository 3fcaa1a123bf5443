#pragma once
// One element of a page: tag, attributes in their order, runtime styles,
// state bits, child nodes, use count and event handlers.
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "htmlui/engine/DomAtoms.h"
#include "htmlui/engine/HtmlayoutApi.h"

namespace kvt1::html {

struct Element;

struct Attribute {
  std::string name;    // as written
  Atom key = kNoAtom;  // the lowered name
  std::wstring value;
};

// A child: an element, or text when element is null.
struct Node {
  Element* element = nullptr;
  std::wstring text;
};

struct HandlerEntry {
  LPELEMENT_EVENT_PROC proc = nullptr;
  LPVOID tag = nullptr;
  UINT subscription = 0;
};

struct Element {
  // What selectors read first, kept together.
  std::uint32_t number = 0;
  Atom tagAtom = kNoAtom;
  Atom idAtom = kNoAtom;  // cached from "id"
  UINT state = 0;
  Element* parent = nullptr;
  std::vector<Atom> classes;        // cached from "class"
  std::uint64_t classMask = 0;      // atomBit of each class
  std::uint64_t attributeMask = 0;  // atomBit of each attribute name
  std::vector<Attribute> attributes;
  std::vector<Node> children;
  // Place in the document order of its tree: itself at orderIndex, its
  // descendants up to orderEnd (see DomTree::order).
  std::uint32_t orderIndex = 0;
  std::uint32_t orderEnd = 0;

  std::string tag;                                                  // lowered
  std::vector<std::pair<std::string, std::wstring>> runtimeStyles;  // lowered names
  POINT scroll{0, 0};
  int useCount = 0;
  std::vector<HandlerEntry> handlers;
  HWND view = nullptr;  // set on the root of a view's page only
  bool behaviorsAttached = false;
  bool dying = false;
  std::wstring styleAnswer;  // holds the last style value handed out

  const Attribute* attribute(Atom key) const;
  const std::wstring* attributeValue(Atom key) const;
  std::size_t elementCount() const;
  Element* elementChild(std::size_t n) const;
  // Index among the parent's element children; 0 without a parent.
  std::size_t elementIndex() const;
  // Position of child in children; children.size() when absent.
  std::size_t nodePosition(const Element* child) const;
  const Element* top() const;
  Element* top();
  bool isAncestorOf(const Element* other) const;
};

// Calls f(element, depth) for each descendant of root in document order
// (depth 1: a child); when f returns false the element's own descendants are
// skipped. Iterative, so deep trees do not exhaust the stack.
template <class F>
void forEachDescendant(Element& root, F&& f) {
  struct Frame {
    Element* element;
    std::size_t next;
    std::size_t depth;
  };
  std::vector<Frame> stack{{&root, 0, 0}};
  while (!stack.empty()) {
    Frame& frame = stack.back();
    if (frame.next >= frame.element->children.size()) {
      stack.pop_back();
      continue;
    }
    Element* child = frame.element->children[frame.next++].element;
    if (child == nullptr) continue;
    const std::size_t depth = frame.depth + 1;
    if (f(*child, depth)) stack.push_back({child, 0, depth});
  }
}

// One bit per atom, shared by many: a clear bit proves an atom absent.
inline std::uint64_t atomBit(Atom atom) { return std::uint64_t{1} << (atom & 63); }

inline HELEMENT toHandle(const Element* element) {
  return element != nullptr ? reinterpret_cast<HELEMENT>(static_cast<std::uintptr_t>(element->number)) : nullptr;
}

inline std::uint32_t handleNumber(HELEMENT he) {
  const auto value = reinterpret_cast<std::uintptr_t>(he);
  return value <= 0xFFFFFFFFu ? static_cast<std::uint32_t>(value) : 0;
}

}  // namespace kvt1::html
