#pragma once
// The C++ side of the engine's event interface: an event handler object that
// the engine calls through the static element_proc, named behaviours that a
// page attaches with its "behavior" attribute, and the notification mixin.
#include "htmlui/engine/HtmlEngine.h"
#include "htmlui/engine/HtmlayoutApi.h"

namespace htmlayout {

class event_handler {
 public:
  explicit event_handler(UINT subscriptions = HANDLE_ALL) : subscribed_to(subscriptions) {}
  virtual ~event_handler() = default;

  // The handler to attach to an element; this one by default.
  virtual event_handler* attach(HELEMENT he) { return this; }
  virtual void detached(HELEMENT he) {}
  virtual void attached(HELEMENT he) {}

  // Entry points, one per event group; the defaults call the on_* handlers.
  virtual BOOL handle_mouse(HELEMENT he, MOUSE_PARAMS& params);
  virtual BOOL handle_key(HELEMENT he, KEY_PARAMS& params);
  virtual BOOL handle_focus(HELEMENT he, FOCUS_PARAMS& params);
  virtual BOOL handle_timer(HELEMENT he, TIMER_PARAMS& params);
  virtual void handle_size(HELEMENT he) { on_size(he); }
  virtual BOOL handle_draw(HELEMENT he, DRAW_PARAMS& params);
  virtual BOOL handle_method_call(HELEMENT he, METHOD_PARAMS& params);
  virtual BOOL handle_event(HELEMENT he, BEHAVIOR_EVENT_PARAMS& params);
  virtual BOOL handle_data_arrived(HELEMENT he, DATA_ARRIVED_PARAMS& params);
  virtual BOOL handle_scroll(HELEMENT he, SCROLL_PARAMS& params);

  virtual BOOL on_mouse(HELEMENT he, HELEMENT target, UINT event_type, POINT pt, UINT mouseButtons,
                        UINT keyboardStates) {
    return FALSE;
  }
  virtual BOOL on_key(HELEMENT he, HELEMENT target, UINT event_type, UINT code, UINT keyboardStates) { return FALSE; }
  virtual BOOL on_focus(HELEMENT he, HELEMENT target, UINT event_type) { return FALSE; }
  // FALSE stops the timer.
  virtual BOOL on_timer(HELEMENT he) { return FALSE; }
  virtual BOOL on_timer(HELEMENT he, UINT_PTR timerId) { return on_timer(he); }
  // FALSE leaves the drawing to the engine.
  virtual BOOL on_draw(HELEMENT he, UINT draw_type, HDC hdc, const RECT& rc) { return FALSE; }
  virtual void on_size(HELEMENT he) {}
  virtual BOOL on_method_call(HELEMENT he, UINT methodID, METHOD_PARAMS* params) { return FALSE; }
  virtual BOOL on_event(HELEMENT he, HELEMENT target, BEHAVIOR_EVENTS type, UINT_PTR reason) { return FALSE; }
  virtual BOOL on_data_arrived(HELEMENT he, HELEMENT initiator, LPCBYTE data, UINT dataSize, UINT dataType) {
    return FALSE;
  }
  virtual BOOL on_scroll(HELEMENT he, HELEMENT target, UINT cmd, INT pos, BOOL isVertical) { return FALSE; }

  // The engine's entry: tag is the event_handler.
  static BOOL HLCALLBACK element_proc(LPVOID tag, HELEMENT he, UINT evtg, LPVOID prms);

  UINT subscribed_to;
};

// An event handler found by name when an element names it in "behavior".
// Behaviours are static objects; each enters itself in one process-wide list.
class behavior : public event_handler {
 public:
  behavior(UINT subscriptions, const char* name);
  ~behavior() override;

  const char* name() const { return name_; }
  static behavior* find(const char* name);
  // Answers the engine's attach request when a behaviour of that name exists.
  static bool handle(NMHL_ATTACH_BEHAVIOR* request);

 private:
  const char* name_;
  behavior* next_;
  static behavior* first_;
};

// Sends the engine's notifications of one view to the virtuals of BASE.
template <class BASE>
class notification_handler {
 public:
  virtual ~notification_handler() = default;

  void setup_callback(kvt1::html::HtmlEngine& engine, HWND hwnd) {
    engine.SetCallback(hwnd, &notification_handler::callback, static_cast<BASE*>(this));
  }

  static LRESULT HLCALLBACK callback(UINT uMsg, WPARAM wParam, LPARAM lParam, LPVOID vParam) {
    return static_cast<BASE*>(vParam)->handle_notification(uMsg, wParam, lParam);
  }

  LRESULT handle_notification(UINT uMsg, WPARAM wParam, LPARAM lParam) {
    if (uMsg != WM_NOTIFY || lParam == 0) return 0;
    NMHDR* header = reinterpret_cast<NMHDR*>(lParam);
    switch (header->code) {
      case HLN_CREATE_CONTROL:
        return on_create_control(reinterpret_cast<LPNMHL_CREATE_CONTROL>(lParam));
      case HLN_CONTROL_CREATED:
        return on_control_created(reinterpret_cast<LPNMHL_CREATE_CONTROL>(lParam));
      case HLN_DESTROY_CONTROL:
        return on_destroy_control(reinterpret_cast<LPNMHL_DESTROY_CONTROL>(lParam));
      case HLN_LOAD_DATA:
        return on_load_data(reinterpret_cast<LPNMHL_LOAD_DATA>(lParam));
      case HLN_DATA_LOADED:
        return on_data_loaded(reinterpret_cast<LPNMHL_DATA_LOADED>(lParam));
      case HLN_DOCUMENT_COMPLETE:
        return on_document_complete();
      case HLN_DOCUMENT_LOADED:
        return on_document_loaded();
      case HLN_ATTACH_BEHAVIOR:
        return on_attach_behavior(reinterpret_cast<LPNMHL_ATTACH_BEHAVIOR>(lParam));
      case HLN_DIALOG_CREATED:
        return on_dialog_created();
      case HLN_DIALOG_CLOSE_RQ:
        return on_dialog_close(reinterpret_cast<LPNMHL_DIALOG_CLOSE_RQ>(lParam));
      default:
        return 0;
    }
  }

  virtual LRESULT on_create_control(LPNMHL_CREATE_CONTROL) { return 0; }
  virtual LRESULT on_control_created(LPNMHL_CREATE_CONTROL) { return 0; }
  virtual LRESULT on_destroy_control(LPNMHL_DESTROY_CONTROL) { return 0; }
  virtual LRESULT on_load_data(LPNMHL_LOAD_DATA) { return LOAD_OK; }
  virtual LRESULT on_data_loaded(LPNMHL_DATA_LOADED) { return 0; }
  virtual LRESULT on_document_complete() { return 0; }
  virtual LRESULT on_document_loaded() { return 0; }
  virtual LRESULT on_attach_behavior(LPNMHL_ATTACH_BEHAVIOR request) {
    behavior::handle(request);
    return 0;
  }
  virtual LRESULT on_dialog_created() { return 0; }
  virtual LRESULT on_dialog_close(LPNMHL_DIALOG_CLOSE_RQ) { return 0; }
};

}  // namespace htmlayout
