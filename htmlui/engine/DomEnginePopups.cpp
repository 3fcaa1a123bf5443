// Popups in the engine: the behaviour events that say a popup came up or went
// away, the library's popup calls, and menus (items that choose, items that
// open a sub-menu). DomPopups keeps where each shown popup goes.
#include <vector>

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

}  // namespace

HLDOM_RESULT DomEngine::showPopup(Element& popup, Element* anchor, const DomPopups::Place& place) {
  popups_.show(popup, anchor, place);
  changed();
  sendBehaviorEvent(popup, POPUP_READY, anchor != nullptr ? anchor : &popup, 0);
  return HLDOM_OK;
}

void DomEngine::hidePopup(Element& popup) {
  Element* anchor = popups_.hide(popup);
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
  DomPopups::Place place;
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

HLDOM_RESULT DomEngine::ShowPopup(HELEMENT hePopup, HELEMENT heAnchor, UINT placement) {
  Element* popup = element(hePopup);
  Element* anchor = element(heAnchor);
  if (popup == nullptr || anchor == nullptr) return HLDOM_INVALID_HANDLE;
  if (popup == anchor) return HLDOM_INVALID_PARAMETER;
  DomPopups::Place place;
  place.placement = placement;
  return showPopup(*popup, anchor, place);
}

HLDOM_RESULT DomEngine::ShowPopupAt(HELEMENT hePopup, POINT pos, UINT mode) {
  Element* popup = element(hePopup);
  if (popup == nullptr) return HLDOM_INVALID_HANDLE;
  DomPopups::Place place;
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
  const HELEMENT chosen = popups_.choose(hePopup);
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
  for (const std::uint32_t n : popups_.shownOutside(hwnd, inside))
    if (Element* popup = tree_.find(n); popup != nullptr && (popup->state & STATE_POPUP) != 0) hidePopup(*popup);
}

void DomEngine::setPopupUser(std::function<HELEMENT(HELEMENT popup)> user) { popups_.setUser(std::move(user)); }

}  // namespace kvt1::html
