#include "htmlui/engine/DomTimers.h"

#include <algorithm>

namespace kvt1::html {

void DomTimers::set(std::uint32_t element, UINT_PTR id, UINT milliseconds) {
  timers_.erase(std::remove_if(timers_.begin(), timers_.end(),
                               [&](const Timer& t) { return t.element == element && t.id == id; }),
                timers_.end());
  if (milliseconds != 0) timers_.push_back(Timer{element, id, milliseconds, now_ + milliseconds});
}

void DomTimers::forget(std::uint32_t element) {
  timers_.erase(std::remove_if(timers_.begin(), timers_.end(), [&](const Timer& t) { return t.element == element; }),
                timers_.end());
  for (auto& [view, rest] : rests_)
    if (rest.element == element) rest.element = 0;
}

void DomTimers::advance(UINT elapsedMs, const std::function<bool(std::uint32_t element, UINT_PTR id)>& fire) {
  const std::uint64_t until = now_ + elapsedMs;
  for (;;) {
    auto next = timers_.end();
    for (auto t = timers_.begin(); t != timers_.end(); ++t)
      if (t->due <= until && (next == timers_.end() || t->due < next->due)) next = t;
    if (next == timers_.end()) break;
    now_ = next->due;
    next->due += next->period;
    const Timer fired = *next;
    if (fire(fired.element, fired.id)) continue;
    // Nobody wants it any more, unless a handler set it anew meanwhile.
    timers_.erase(std::remove_if(timers_.begin(), timers_.end(),
                                 [&](const Timer& t) {
                                   return t.element == fired.element && t.id == fired.id && t.due == fired.due &&
                                          t.period == fired.period;
                                 }),
                  timers_.end());
  }
  now_ = until;
}

void DomTimers::hoverMoved(HWND view, std::uint32_t element) { rests_[view] = HoverRest{element, now_, false}; }

void DomTimers::forgetView(HWND view) { rests_.erase(view); }

std::vector<HWND> DomTimers::restingViews() const {
  std::vector<HWND> resting;
  for (const auto& [view, rest] : rests_)
    if (rest.element != 0 && !rest.reported && now_ - rest.since >= kHoverRestMs) resting.push_back(view);
  return resting;
}

void DomTimers::restReported(HWND view) {
  const auto found = rests_.find(view);
  if (found != rests_.end()) found->second.reported = true;
}

}  // namespace kvt1::html
