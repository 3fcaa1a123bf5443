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

// The border box around a content box: padding and border widths come from
// the element's computed style, percentages against the containing width.
LayoutBox aroundContent(const litehtml::position& content, const litehtml::element::ptr& element, int containingWidth) {
  const litehtml::css_properties& css = element->css();
  const litehtml::css_margins& padding = css.get_padding();
  const litehtml::css_borders& borders = css.get_borders();
  const auto px = [containingWidth](const litehtml::css_length& length) {
    return length.calc_percent(containingWidth);
  };
  const int left = px(padding.left) + px(borders.left.width), right = px(padding.right) + px(borders.right.width);
  const int top = px(padding.top) + px(borders.top.width), bottom = px(padding.bottom) + px(borders.bottom.width);
  return {content.x - left, content.y - top, content.width + left + right, content.height + top + bottom};
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
  if (root) visit(root, 0, 0, root->get_placement().width);
}

std::optional<LayoutBox> NodeGeometry::visit(const litehtml::element::ptr& element, int stacking, int depth,
                                             int containingWidth) {
  const litehtml::css_properties& css = element->css();
  if (css.get_display() == litehtml::display_none) return std::nullopt;
  if (css.get_position() == litehtml::element_position_absolute ||
      css.get_position() == litehtml::element_position_fixed) {
    stacking = ++positioned_;
  }
  int node = 0;
  const bool numbered = readNode(element, node);
  const std::size_t index = entries_.size();
  if (numbered) {
    byNode_[node] = index;
    entries_.push_back({node, {}, stacking, depth, css.get_visibility() == litehtml::visibility_visible});
  }
  // litehtml finds a placement by walking up the element's ancestors: once per element.
  const litehtml::position placement = element->get_placement();
  std::optional<LayoutBox> children;
  for (const litehtml::element::ptr& child : element->children()) {
    if (auto box = visit(child, stacking, depth + 1, placement.width))
      children = children ? unite(*children, *box) : *box;
  }
  // litehtml places the content box of an element, but inline elements and
  // table rows have none of their own: they cover what they hold (an inline
  // element with its padding and border).
  LayoutBox own;
  if (children && css.get_display() == litehtml::display_inline) {
    own = aroundContent({children->x, children->y, children->width, children->height}, element, containingWidth);
  } else {
    own = aroundContent(placement, element, containingWidth);
    if (own.width == 0 && own.height == 0 && children) own = *children;
  }
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
    // What is drawn last at the point: the latest positioned box, then the deepest element in it.
    if (!best || entry.stacking > best->stacking || (entry.stacking == best->stacking && entry.depth >= best->depth)) {
      best = &entry;
    }
  }
  return best ? best->node : -1;
}

}  // namespace kvt1::html
