// Timers on the engine's clock, and the hover rest: the pointer that stays
// on one element for a while asks that element for its tooltip, once, with
// a POPUP_REQUEST.
#include "htmlui/engine/DomEngine.h"

namespace kvt1::html {

HLDOM_RESULT DomEngine::SetTimerEx(HELEMENT he, UINT milliseconds, UINT_PTR timerId) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  timers_.set(e->number, timerId, milliseconds);
  return HLDOM_OK;
}

void DomEngine::tick(UINT elapsedMs) {
  timers_.advance(elapsedMs, [this](std::uint32_t element, UINT_PTR id) {
    TIMER_PARAMS params{id};
    return callHandlers(element, HANDLE_TIMER, &params);
  });
  reportHoverRest();
}

void DomEngine::reportHoverRest() {
  for (const HWND hwnd : timers_.restingViews()) {
    View* view = findView(hwnd);  // an earlier request's handler may have closed it
    if (view == nullptr) continue;
    timers_.restReported(hwnd);
    if (Element* hovered = tree_.find(view->hover)) sendBehaviorEvent(*hovered, POPUP_REQUEST, hovered, 0);
  }
}

}  // namespace kvt1::html
