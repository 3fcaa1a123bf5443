#include "htmlui/engine/DomPopups.h"

#include <algorithm>

namespace kvt1::html {
namespace {

// The top left of a popup of this size beside the anchor's box.
POINT besideAnchor(const LayoutBox& anchor, const LayoutBox& popup, UINT placement) {
  switch (placement) {
    case 8:
      return POINT{anchor.x, anchor.y - popup.height};
    case 4:
      return POINT{anchor.x - popup.width, anchor.y};
    case 6:
      return POINT{anchor.x + anchor.width, anchor.y};
    default:
      return POINT{anchor.x, anchor.y + anchor.height};
  }
}

// The top left of a popup of this size whose numpad point (7 top left, 5
// centre, 3 bottom right, ...) lies at point.
POINT atPoint(POINT point, const LayoutBox& popup, UINT corner) {
  if (corner < 1 || corner > 9) corner = 7;
  const int column = static_cast<int>((corner - 1) % 3);  // 0 left, 1 centre, 2 right
  const int row = corner >= 7 ? 0 : corner >= 4 ? 1 : 2;  // 0 top, 1 middle, 2 bottom
  return POINT{point.x - column * popup.width / 2, point.y - row * popup.height / 2};
}

// Moved inside the view in each direction in which it fits; one larger than
// the view stays where it was put, since no move would show it whole.
POINT keptInView(POINT p, const LayoutBox& popup, int width, int height) {
  if (popup.width <= width) p.x = std::max<LONG>(0, std::min<LONG>(p.x, width - popup.width));
  if (popup.height <= height) p.y = std::max<LONG>(0, std::min<LONG>(p.y, height - popup.height));
  return p;
}

}  // namespace

void DomPopups::show(Element& popup, Element* anchor, const Place& place) {
  const auto previous = shown_.find(popup.number);
  if (previous != shown_.end()) {
    if (Element* old = tree_.find(previous->second.anchor)) old->state &= ~STATE_OWNS_POPUP;
    shown_.erase(previous);
  }
  popup.state |= STATE_POPUP;
  if (anchor != nullptr) anchor->state |= STATE_OWNS_POPUP;
  shown_[popup.number] =
      Shown{anchor != nullptr ? anchor->number : 0, place, anchor != nullptr ? POINT{0, 0} : place.point};
}

Element* DomPopups::hide(Element& popup) {
  popup.state &= ~STATE_POPUP;
  const auto found = shown_.find(popup.number);
  if (found == shown_.end()) return nullptr;
  Element* anchor = tree_.find(found->second.anchor);
  if (anchor != nullptr) anchor->state &= ~STATE_OWNS_POPUP;
  shown_.erase(found);
  return anchor;
}

void DomPopups::forget(std::uint32_t element) { shown_.erase(element); }

std::map<std::uint32_t, POINT> DomPopups::positions(HWND view) const {
  std::map<std::uint32_t, POINT> positions;
  for (const auto& [number, shown] : shown_) {
    const Element* popup = tree_.find(number);
    if (popup != nullptr && (popup->state & STATE_POPUP) != 0 && popup->top()->view == view)
      positions[number] = shown.written;
  }
  return positions;
}

bool DomPopups::place(const LayoutProvider& layout, int width, int height) {
  bool moved = false;
  for (auto& [number, shown] : shown_) {
    const std::optional<LayoutBox> box = layout.box(static_cast<int>(number));
    if (!box) continue;
    POINT wanted{0, 0};
    if (shown.anchor != 0) {
      const std::optional<LayoutBox> anchor = layout.box(static_cast<int>(shown.anchor));
      if (!anchor) continue;
      wanted = besideAnchor(*anchor, *box, shown.place.placement);
    } else {
      wanted = atPoint(shown.place.point, *box, shown.place.corner);
    }
    wanted = keptInView(wanted, *box, width, height);
    if (wanted.x == box->x && wanted.y == box->y) continue;
    // "left" and "top" count from the popup's containing block: move by the difference.
    shown.written.x += wanted.x - box->x;
    shown.written.y += wanted.y - box->y;
    moved = true;
  }
  return moved;
}

std::vector<std::uint32_t> DomPopups::shownOutside(HWND view, const Element* inside) const {
  std::vector<std::uint32_t> open;
  for (const auto& [number, shown] : shown_) {
    const Element* popup = tree_.find(number);
    if (popup != nullptr && (popup->state & STATE_POPUP) != 0 && popup->top()->view == view &&
        (inside == nullptr || (popup != inside && !popup->isAncestorOf(inside))))
      open.push_back(number);
  }
  return open;
}

}  // namespace kvt1::html
