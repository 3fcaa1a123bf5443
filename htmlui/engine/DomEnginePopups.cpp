// Popups: the popup and anchor states, and the behaviour events that say a
// popup came up or went away.
#include "htmlui/engine/DomEngine.h"

namespace kvt1::html {

HLDOM_RESULT DomEngine::showPopup(Element& popup, Element* anchor) {
  const auto previous = popupAnchors_.find(popup.number);
  if (previous != popupAnchors_.end()) {
    if (Element* old = tree_.find(previous->second)) old->state &= ~STATE_OWNS_POPUP;
    popupAnchors_.erase(previous);
  }
  popup.state |= STATE_POPUP;
  if (anchor != nullptr) {
    anchor->state |= STATE_OWNS_POPUP;
    popupAnchors_[popup.number] = anchor->number;
  }
  changed();
  sendBehaviorEvent(popup, POPUP_READY, anchor != nullptr ? anchor : &popup, 0);
  return HLDOM_OK;
}

void DomEngine::hidePopup(Element& popup) {
  popup.state &= ~STATE_POPUP;
  Element* anchor = nullptr;
  const auto found = popupAnchors_.find(popup.number);
  if (found != popupAnchors_.end()) {
    anchor = tree_.find(found->second);
    if (anchor != nullptr) anchor->state &= ~STATE_OWNS_POPUP;
    popupAnchors_.erase(found);
  }
  changed();
  sendBehaviorEvent(popup, POPUP_DISMISSED, anchor != nullptr ? anchor : &popup, 0);
}

bool DomEngine::clickMenuItem(Element& item) {
  const std::uint32_t n = item.number;
  const bool handled = sendBehaviorEvent(item, MENU_ITEM_CLICK, &item, BY_MOUSE_CLICK);
  Element* clicked = tree_.find(n);
  for (Element* p = clicked; p != nullptr; p = p->parent) {
    if ((p->state & STATE_POPUP) != 0) {
      hidePopup(*p);
      break;
    }
  }
  return handled;
}

HLDOM_RESULT DomEngine::ShowPopup(HELEMENT hePopup, HELEMENT heAnchor, UINT placement) {
  Element* popup = element(hePopup);
  Element* anchor = element(heAnchor);
  if (popup == nullptr || anchor == nullptr) return HLDOM_INVALID_HANDLE;
  if (popup == anchor) return HLDOM_INVALID_PARAMETER;
  return showPopup(*popup, anchor);
}

HLDOM_RESULT DomEngine::ShowPopupAt(HELEMENT hePopup, POINT pos, UINT mode) {
  Element* popup = element(hePopup);
  if (popup == nullptr) return HLDOM_INVALID_HANDLE;
  return showPopup(*popup, nullptr);
}

HLDOM_RESULT DomEngine::TrackPopupAt(HELEMENT hePopup, POINT posRoot, UINT mode, HELEMENT* pheItem) {
  Element* popup = element(hePopup);
  if (popup == nullptr) return HLDOM_INVALID_HANDLE;
  if (pheItem == nullptr) return HLDOM_INVALID_PARAMETER;
  *pheItem = nullptr;
  const std::uint32_t n = popup->number;
  showPopup(*popup, nullptr);
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

void DomEngine::setPopupUser(std::function<HELEMENT(HELEMENT popup)> user) { popupUser_ = std::move(user); }

}  // namespace kvt1::html
