// Popups: the popup and anchor states, where a popup goes on the page, the
// behaviour events that say a popup came up or went away, and menus (items
// that choose, items that open a sub-menu).
#include <algorithm>

#include "htmlui/engine/DomEngine.h"

namespace kvt1::html {
namespace {

// The child "menu" of an item: the sub-menu it opens.
Element* subMenuOf(const Element& item) {
  for (const Node& node : item.children)
    if (node.element != nullptr && node.element->tag == "menu") return node.element;
  return nullptr;
}

bool insidePopup(const Element& e) {
  for (const Element* p = e.parent; p != nullptr; p = p->parent)
    if ((p->state & STATE_POPUP) != 0) return true;
  return false;
}

// The top left of a popup of this size beside the anchor's box.
POINT besideAnchor(const LayoutBox& anchor, const LayoutBox& popup, UINT placement) {
  switch (placement) {
    case 8: return POINT{anchor.x, anchor.y - popup.height};
    case 4: return POINT{anchor.x - popup.width, anchor.y};
    case 6: return POINT{anchor.x + anchor.width, anchor.y};
    default: return POINT{anchor.x, anchor.y + anchor.height};
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

HLDOM_RESULT DomEngine::showPopup(Element& popup, Element* anchor, const PopupPlace& place) {
  const auto previous = popupAnchors_.find(popup.number);
  if (previous != popupAnchors_.end()) {
    if (Element* old = tree_.find(previous->second.anchor)) old->state &= ~STATE_OWNS_POPUP;
    popupAnchors_.erase(previous);
  }
  popup.state |= STATE_POPUP;
  PopupPlace placed = place;
  placed.anchor = anchor != nullptr ? anchor->number : 0;
  placed.written = anchor != nullptr ? POINT{0, 0} : place.point;
  if (anchor != nullptr) anchor->state |= STATE_OWNS_POPUP;
  popupAnchors_[popup.number] = placed;
  changed();
  sendBehaviorEvent(popup, POPUP_READY, anchor != nullptr ? anchor : &popup, 0);
  return HLDOM_OK;
}

void DomEngine::hidePopup(Element& popup) {
  popup.state &= ~STATE_POPUP;
  Element* anchor = nullptr;
  const auto found = popupAnchors_.find(popup.number);
  if (found != popupAnchors_.end()) {
    anchor = tree_.find(found->second.anchor);
    if (anchor != nullptr) anchor->state &= ~STATE_OWNS_POPUP;
    popupAnchors_.erase(found);
  }
  changed();
  sendBehaviorEvent(popup, POPUP_DISMISSED, anchor != nullptr ? anchor : &popup, 0);
}

void DomEngine::openSubMenu(Element& item, Element& menu) {
  // One sub-menu open per level: the item's siblings close theirs.
  std::vector<std::uint32_t> open;
  if (item.parent != nullptr) {
    for (const Node& node : item.parent->children) {
      if (node.element == nullptr || node.element == &item) continue;
      forEachDescendant(*node.element, [&](Element& e, std::size_t) {
        if ((e.state & STATE_POPUP) != 0) open.push_back(e.number);
        return true;
      });
    }
  }
  const std::uint32_t itemNumber = item.number;
  const std::uint32_t menuNumber = menu.number;
  for (const std::uint32_t n : open)
    if (Element* e = tree_.find(n); e != nullptr && (e->state & STATE_POPUP) != 0) hidePopup(*e);
  Element* anchor = tree_.find(itemNumber);
  Element* popup = tree_.find(menuNumber);
  if (anchor == nullptr || popup == nullptr || (popup->state & STATE_POPUP) != 0) return;
  PopupPlace place;
  place.placement = insidePopup(*anchor) ? 6 : 2;  // beside an item of a menu, below one of a bar
  showPopup(*popup, anchor, place);
}

bool DomEngine::clickMenuItem(Element& item) {
  if (Element* menu = subMenuOf(item)) {
    openSubMenu(item, *menu);
    return true;
  }
  const std::uint32_t n = item.number;
  const bool handled = sendBehaviorEvent(item, MENU_ITEM_CLICK, &item, BY_MOUSE_CLICK);
  // The choice closes the whole chain of popups that led to the item.
  std::vector<std::uint32_t> chain;
  for (Element* p = tree_.find(n); p != nullptr; p = p->parent)
    if ((p->state & STATE_POPUP) != 0) chain.push_back(p->number);
  for (const std::uint32_t popup : chain)
    if (Element* p = tree_.find(popup); p != nullptr && (p->state & STATE_POPUP) != 0) hidePopup(*p);
  return handled;
}

std::map<std::uint32_t, POINT> DomEngine::popupPositions(const View& view) const {
  std::map<std::uint32_t, POINT> positions;
  for (const auto& [number, place] : popupAnchors_) {
    const Element* popup = tree_.find(number);
    if (popup != nullptr && (popup->state & STATE_POPUP) != 0 && popup->top()->view == view.hwnd)
      positions[number] = place.written;
  }
  return positions;
}

bool DomEngine::placePopups(const View& view) {
  bool moved = false;
  for (auto& [number, place] : popupAnchors_) {
    const std::optional<LayoutBox> box = layout_->box(static_cast<int>(number));
    if (!box) continue;
    POINT wanted{0, 0};
    if (place.anchor != 0) {
      const std::optional<LayoutBox> anchor = layout_->box(static_cast<int>(place.anchor));
      if (!anchor) continue;
      wanted = besideAnchor(*anchor, *box, place.placement);
    } else {
      wanted = atPoint(place.point, *box, place.corner);
    }
    wanted = keptInView(wanted, *box, view.width, view.height);
    if (wanted.x == box->x && wanted.y == box->y) continue;
    // "left" and "top" count from the popup's containing block: move by the difference.
    place.written.x += wanted.x - box->x;
    place.written.y += wanted.y - box->y;
    moved = true;
  }
  return moved;
}

HLDOM_RESULT DomEngine::ShowPopup(HELEMENT hePopup, HELEMENT heAnchor, UINT placement) {
  Element* popup = element(hePopup);
  Element* anchor = element(heAnchor);
  if (popup == nullptr || anchor == nullptr) return HLDOM_INVALID_HANDLE;
  if (popup == anchor) return HLDOM_INVALID_PARAMETER;
  PopupPlace place;
  place.placement = placement;
  return showPopup(*popup, anchor, place);
}

HLDOM_RESULT DomEngine::ShowPopupAt(HELEMENT hePopup, POINT pos, UINT mode) {
  Element* popup = element(hePopup);
  if (popup == nullptr) return HLDOM_INVALID_HANDLE;
  PopupPlace place;
  place.point = pos;
  place.corner = (mode >> 16) & 0xFFFF;
  return showPopup(*popup, nullptr, place);
}

HLDOM_RESULT DomEngine::TrackPopupAt(HELEMENT hePopup, POINT posRoot, UINT mode, HELEMENT* pheItem) {
  Element* popup = element(hePopup);
  if (popup == nullptr) return HLDOM_INVALID_HANDLE;
  if (pheItem == nullptr) return HLDOM_INVALID_PARAMETER;
  *pheItem = nullptr;
  const std::uint32_t n = popup->number;
  ShowPopupAt(hePopup, posRoot, mode);
  const HELEMENT chosen = popupUser_ ? popupUser_(hePopup) : nullptr;
  popup = tree_.find(n);
  if (popup == nullptr) return HLDOM_OK;
  Element* item = element(chosen);
  if (item != nullptr && popup->isAncestorOf(item)) *pheItem = chosen;
  if ((popup->state & STATE_POPUP) != 0) hidePopup(*popup);
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::HidePopup(HELEMENT he) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  for (Element* p = e; p != nullptr; p = p->parent) {
    if ((p->state & STATE_POPUP) != 0) {
      hidePopup(*p);
      break;
    }
  }
  return HLDOM_OK;
}

void DomEngine::closePopupsOutside(HWND hwnd, HELEMENT he) {
  View* view = findView(hwnd);
  if (view == nullptr) return;
  const Element* inside = he != nullptr ? element(he) : nullptr;
  std::vector<std::uint32_t> open;
  for (const auto& [number, place] : popupAnchors_) {
    const Element* popup = tree_.find(number);
    if (popup != nullptr && (popup->state & STATE_POPUP) != 0 && popup->top()->view == hwnd &&
        (inside == nullptr || (popup != inside && !popup->isAncestorOf(inside))))
      open.push_back(number);
  }
  for (const std::uint32_t n : open)
    if (Element* popup = tree_.find(n); popup != nullptr && (popup->state & STATE_POPUP) != 0) hidePopup(*popup);
}

void DomEngine::setPopupUser(std::function<HELEMENT(HELEMENT popup)> user) { popupUser_ = std::move(user); }

}  // namespace kvt1::html
