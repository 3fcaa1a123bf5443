// Hover rest: the pointer that stays on one element for a while asks that
// element for its tooltip, once, with a POPUP_REQUEST.
#include <vector>

#include "htmlui/engine/DomEngine.h"

namespace kvt1::html {

void DomEngine::hoverMoved(View& view) {
  view.hoverSince = now_;
  view.hoverRestReported = false;
}

void DomEngine::reportHoverRest() {
  std::vector<HWND> due;
  for (const auto& [hwnd, view] : views_)
    if (view.hover != 0 && !view.hoverRestReported && now_ - view.hoverSince >= kHoverRestMs) due.push_back(hwnd);
  for (const HWND hwnd : due) {
    View* view = findView(hwnd);  // an earlier request's handler may have closed it
    if (view == nullptr) continue;
    view->hoverRestReported = true;
    if (Element* hovered = tree_.find(view->hover)) sendBehaviorEvent(*hovered, POPUP_REQUEST, hovered, 0);
  }
}

}  // namespace kvt1::html
