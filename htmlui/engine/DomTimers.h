#pragma once
// The engine's clock and what runs on it: the elements' timers, and the
// hover rest of each view (the pointer that stayed on one element for a
// while). Time moves only when advance() says so.
#include <cstdint>
#include <functional>
#include <map>
#include <vector>

#include "htmlui/engine/HtmlayoutApi.h"

namespace kvt1::html {

class DomTimers {
 public:
  static constexpr UINT kHoverRestMs = 500;

  std::uint64_t now() const { return now_; }

  // Starts the element's timer id anew, every milliseconds; 0 stops it.
  void set(std::uint32_t element, UINT_PTR id, UINT milliseconds);
  // The element is gone: its timers and hover rests go too.
  void forget(std::uint32_t element);
  // Moves the clock on by elapsed, calling fire for each timer that falls
  // due, earliest first, with the clock at its time. A timer whose fire
  // returns false stops, unless it was set anew meanwhile.
  void advance(UINT elapsedMs, const std::function<bool(std::uint32_t element, UINT_PTR id)>& fire);

  // The view's pointer moved onto element (0: onto nothing); its rest starts now.
  void hoverMoved(HWND view, std::uint32_t element);
  void forgetView(HWND view);
  // The views whose pointer has rested kHoverRestMs and not been reported yet.
  std::vector<HWND> restingViews() const;
  void restReported(HWND view);

 private:
  struct Timer {
    std::uint32_t element = 0;
    UINT_PTR id = 0;
    UINT period = 0;
    std::uint64_t due = 0;
  };
  struct HoverRest {
    std::uint32_t element = 0;
    std::uint64_t since = 0;
    bool reported = false;
  };

  std::uint64_t now_ = 0;
  std::vector<Timer> timers_;
  std::map<HWND, HoverRest> rests_;
};

}  // namespace kvt1::html
