#include "htmlui/engine/litehtml/NodeGeometry.h"

#include <algorithm>
#include <cstdlib>

namespace kvt1::html {
namespace {

constexpr const char* kNodeAttribute = "kvt1-node";

bool readNode(const litehtml::element::ptr& element, int& node) {
  const char* text = element->get_attr(kNodeAttribute);
  if (!text || !*text) return false;
  char* end = nullptr;
  const long value = std::strtol(text, &end, 10);
  if (*end != '\0' || value < 0 || value > INT32_MAX) return false;
  node = static_cast<int>(value);
  return true;
}

LayoutBox borderBox(const litehtml::element::ptr& element) {
  const litehtml::position content = element->get_placement();
  LayoutBox box;
  box.x = content.x - element->padding_left() - element->border_left();
  box.y = content.y - element->padding_top() - element->border_top();
  box.width = content.width + element->padding_left() + element->padding_right() + element->border_left() +
              element->border_right();
  box.height = content.height + element->padding_top() + element->padding_bottom() + element->border_top() +
               element->border_bottom();
  return box;
}

LayoutBox unite(const LayoutBox& a, const LayoutBox& b) {
  LayoutBox box;
  box.x = std::min(a.x, b.x);
  box.y = std::min(a.y, b.y);
  box.width = std::max(a.x + a.width, b.x + b.width) - box.x;
  box.height = std::max(a.y + a.height, b.y + b.height) - box.y;
  return box;
}

bool holds(const LayoutBox& box, int x, int y) {
  return x >= box.x && y >= box.y && x < box.x + box.width && y < box.y + box.height;
}

}  // namespace

void NodeGeometry::collect(const litehtml::element::ptr& root) {
  entries_.clear();
  byNode_.clear();
  if (root) visit(root, 0, 0);
}

std::optional<LayoutBox> NodeGeometry::visit(const litehtml::element::ptr& element, int layer, int depth) {
  if (element->get_display() == litehtml::display_none) return std::nullopt;
  const litehtml::element_position position = element->get_element_position();
  if (position == litehtml::element_position_absolute || position == litehtml::element_position_fixed) ++layer;
  int node = 0;
  const bool numbered = readNode(element, node);
  const std::size_t index = entries_.size();
  if (numbered) {
    byNode_[node] = index;
    entries_.push_back({node, {}, layer, depth, element->get_visibility() == litehtml::visibility_visible});
  }
  std::optional<LayoutBox> children;
  for (std::size_t i = 0; i < element->get_children_count(); ++i) {
    if (auto child = visit(element->get_child(static_cast<int>(i)), layer, depth + 1)) {
      children = children ? unite(*children, *child) : *child;
    }
  }
  // Inline elements and table rows have no box of their own in litehtml:
  // they cover what they hold.
  LayoutBox own = borderBox(element);
  if (own.width == 0 && own.height == 0 && children) own = *children;
  if (numbered) entries_[index].box = own;
  return own;
}

std::optional<LayoutBox> NodeGeometry::box(int node) const {
  auto found = byNode_.find(node);
  if (found == byNode_.end()) return std::nullopt;
  return entries_[found->second].box;
}

int NodeGeometry::hitTest(int x, int y) const {
  const Entry* best = nullptr;
  for (const Entry& entry : entries_) {
    if (!entry.visible || !holds(entry.box, x, y)) continue;
    if (!best || entry.layer > best->layer || (entry.layer == best->layer && entry.depth >= best->depth)) {
      best = &entry;
    }
  }
  return best ? best->node : -1;
}

}  // namespace kvt1::html
