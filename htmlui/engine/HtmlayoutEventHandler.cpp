#include "htmlui/engine/HtmlayoutEventHandler.h"

#include <cstring>

namespace htmlayout {

BOOL event_handler::handle_mouse(HELEMENT he, MOUSE_PARAMS& params) {
  return on_mouse(he, params.target, params.cmd, params.pos, params.button_state, params.alt_state);
}

BOOL event_handler::handle_key(HELEMENT he, KEY_PARAMS& params) {
  return on_key(he, params.target, params.cmd, params.key_code, params.alt_state);
}

BOOL event_handler::handle_focus(HELEMENT he, FOCUS_PARAMS& params) { return on_focus(he, params.target, params.cmd); }

BOOL event_handler::handle_timer(HELEMENT he, TIMER_PARAMS& params) {
  return params.timerId != 0 ? on_timer(he, params.timerId) : on_timer(he);
}

BOOL event_handler::handle_draw(HELEMENT he, DRAW_PARAMS& params) {
  return on_draw(he, params.cmd, params.hdc, params.area);
}

BOOL event_handler::handle_method_call(HELEMENT he, METHOD_PARAMS& params) {
  return on_method_call(he, params.methodID, &params);
}

BOOL event_handler::handle_event(HELEMENT he, BEHAVIOR_EVENT_PARAMS& params) {
  return on_event(he, params.heTarget, static_cast<BEHAVIOR_EVENTS>(params.cmd), params.reason);
}

BOOL event_handler::handle_data_arrived(HELEMENT he, DATA_ARRIVED_PARAMS& params) {
  return on_data_arrived(he, params.initiator, params.data, params.dataSize, params.dataType);
}

BOOL event_handler::handle_scroll(HELEMENT he, SCROLL_PARAMS& params) {
  return on_scroll(he, params.target, params.cmd, params.pos, params.vertical);
}

BOOL HLCALLBACK event_handler::element_proc(LPVOID tag, HELEMENT he, UINT evtg, LPVOID prms) {
  event_handler* handler = static_cast<event_handler*>(tag);
  if (handler == nullptr) return FALSE;
  switch (evtg) {
    case HANDLE_INITIALIZATION:
      if (static_cast<INITIALIZATION_PARAMS*>(prms)->cmd == BEHAVIOR_DETACH)
        handler->detached(he);
      else if (static_cast<INITIALIZATION_PARAMS*>(prms)->cmd == BEHAVIOR_ATTACH)
        handler->attached(he);
      return TRUE;
    case HANDLE_MOUSE:
      return handler->handle_mouse(he, *static_cast<MOUSE_PARAMS*>(prms));
    case HANDLE_KEY:
      return handler->handle_key(he, *static_cast<KEY_PARAMS*>(prms));
    case HANDLE_FOCUS:
      return handler->handle_focus(he, *static_cast<FOCUS_PARAMS*>(prms));
    case HANDLE_TIMER:
      return handler->handle_timer(he, *static_cast<TIMER_PARAMS*>(prms));
    case HANDLE_SIZE:
      handler->handle_size(he);
      return FALSE;
    case HANDLE_DRAW:
      return handler->handle_draw(he, *static_cast<DRAW_PARAMS*>(prms));
    case HANDLE_METHOD_CALL:
      return handler->handle_method_call(he, *static_cast<METHOD_PARAMS*>(prms));
    case HANDLE_BEHAVIOR_EVENT:
      return handler->handle_event(he, *static_cast<BEHAVIOR_EVENT_PARAMS*>(prms));
    case HANDLE_DATA_ARRIVED:
      return handler->handle_data_arrived(he, *static_cast<DATA_ARRIVED_PARAMS*>(prms));
    case HANDLE_SCROLL:
      return handler->handle_scroll(he, *static_cast<SCROLL_PARAMS*>(prms));
    default:
      return FALSE;
  }
}

behavior* behavior::first_ = nullptr;

behavior::behavior(UINT subscriptions, const char* name) : event_handler(subscriptions), name_(name), next_(first_) {
  first_ = this;
}

behavior::~behavior() {
  for (behavior** link = &first_; *link != nullptr; link = &(*link)->next_) {
    if (*link == this) {
      *link = next_;
      break;
    }
  }
}

behavior* behavior::find(const char* name) {
  if (name == nullptr) return nullptr;
  for (behavior* b = first_; b != nullptr; b = b->next_)
    if (std::strcmp(b->name_, name) == 0) return b;
  return nullptr;
}

bool behavior::handle(NMHL_ATTACH_BEHAVIOR* request) {
  behavior* found = request != nullptr ? find(request->behaviorName) : nullptr;
  if (found == nullptr) return false;
  event_handler* handler = found->attach(request->element);
  request->elementProc = &event_handler::element_proc;
  request->elementTag = handler;
  request->elementEvents = handler->subscribed_to;
  return true;
}

}  // namespace htmlayout
