#include "platform/posix/HeadlessDesktop.h"

#include <algorithm>
#include <chrono>

#include "platform/HeadlessHost.h"
#include "platform/Win32.h"

namespace kvt1::platform {
namespace {

constexpr std::uint64_t kMinimumTimerPeriod = 10;

std::intptr_t pointParam(WindowPoint point) {
  return static_cast<std::intptr_t>((static_cast<std::uint32_t>(point.y & 0xFFFF) << 16) |
                                    static_cast<std::uint32_t>(point.x & 0xFFFF));
}

}  // namespace

bool HeadlessWindow::isChild() const { return (style & WS_CHILD) != 0; }

HeadlessDesktop& HeadlessDesktop::instance() {
  static HeadlessDesktop* const desktop = [] {
    auto shared = reinterpret_cast<Kvt1HeadlessDesktopFn>(mainProgramSymbol(KVT1_HEADLESS_DESKTOP));
    return shared != nullptr ? shared() : &local();
  }();
  return *desktop;
}

HeadlessDesktop& HeadlessDesktop::local() {
  static HeadlessDesktop desktop;
  return desktop;
}

void HeadlessDesktop::setSize(int width, int height) {
  width_ = width;
  height_ = height;
}

HWND HeadlessDesktop::create(HWND owner, std::uint32_t style, std::uint32_t exStyle, DialogWindowProcedure* procedure) {
  if ((style & WS_CHILD) != 0 && find(owner) == nullptr) return nullptr;
  auto window = std::make_unique<HeadlessWindow>();
  lastHandle_ += 4;
  window->handle = reinterpret_cast<HWND>(lastHandle_);
  window->owner = owner;
  window->style = style;
  window->exStyle = exStyle;
  window->procedure = procedure;
  const HWND handle = window->handle;
  windows_.push_back(std::move(window));
  ++activity_;
  send(handle, WM_INITDIALOG, 0, reinterpret_cast<std::intptr_t>(procedure));
  if (find(handle) == nullptr) return nullptr;
  if (createdHandler_) createdHandler_(handle);
  return handle;
}

bool HeadlessDesktop::destroy(HWND window) {
  if (find(window) == nullptr || destroying_.count(window) != 0) return false;
  destroying_.insert(window);
  send(window, WM_DESTROY, 0, 0);
  // Children and owned windows go with it, newest first.
  for (auto it = windows_.rbegin(); it != windows_.rend();) {
    const HeadlessWindow& other = **it;
    if (other.owner == window && other.handle != window && destroying_.count(other.handle) == 0) {
      destroy(other.handle);
      it = windows_.rbegin();
    } else {
      ++it;
    }
  }
  send(window, WM_NCDESTROY, 0, 0);
  forget(window);
  destroying_.erase(window);
  ++activity_;
  return true;
}

void HeadlessDesktop::forget(HWND window) {
  windows_.erase(std::remove_if(windows_.begin(), windows_.end(),
                                [&](const std::unique_ptr<HeadlessWindow>& w) { return w->handle == window; }),
                 windows_.end());
  queue_.erase(std::remove_if(queue_.begin(), queue_.end(), [&](const Message& m) { return m.window == window; }),
               queue_.end());
  timers_.erase(std::remove_if(timers_.begin(), timers_.end(), [&](const Timer& t) { return t.window == window; }),
                timers_.end());
  askedToClose_.erase(window);
  if (focus_ == window) focus_ = nullptr;
  if (foreground_ == window) foreground_ = nullptr;
}

HeadlessWindow* HeadlessDesktop::find(HWND window) {
  for (const auto& w : windows_) {
    if (w->handle == window) return w.get();
  }
  return nullptr;
}

std::vector<HWND> HeadlessDesktop::windows() const {
  std::vector<HWND> handles;
  for (const auto& w : windows_) handles.push_back(w->handle);
  return handles;
}

WindowRect HeadlessDesktop::screenRect(HWND window) {
  const HeadlessWindow* w = find(window);
  if (w == nullptr) return WindowRect{};
  WindowRect rect = w->rect;
  if (w->isChild()) {
    const WindowRect parent = screenRect(w->owner);
    rect =
        WindowRect{rect.left + parent.left, rect.top + parent.top, rect.right + parent.left, rect.bottom + parent.top};
  }
  return rect;
}

HWND HeadlessDesktop::windowAt(WindowPoint screen) {
  const auto shown = [&](const HeadlessWindow& w) {
    for (const HeadlessWindow* v = &w; v != nullptr; v = v->isChild() ? find(v->owner) : nullptr) {
      if (!v->visible) return false;
    }
    return true;
  };
  for (bool topmost : {true, false}) {
    // Children are newer than their parents, so the innermost window is met first.
    for (auto it = windows_.rbegin(); it != windows_.rend(); ++it) {
      const HeadlessWindow& w = **it;
      if (((w.exStyle & WS_EX_TOPMOST) != 0) == topmost && shown(w) &&
          screenRect(w.handle).contains(screen.x, screen.y)) {
        return w.handle;
      }
    }
  }
  return nullptr;
}

bool HeadlessDesktop::post(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam) {
  if (window != nullptr && find(window) == nullptr) return false;
  queue_.push_back(Message{window, message, wParam, lParam, nullptr, nullptr});
  ++activity_;
  return true;
}

void HeadlessDesktop::postCall(const void* owner, std::function<void()> call) {
  const std::lock_guard<std::mutex> lock(callsMutex_);
  calls_.push_back(Call{owner, std::move(call)});
  callPosted_.notify_all();
}

void HeadlessDesktop::dropCalls(const void* owner) {
  {
    const std::lock_guard<std::mutex> lock(callsMutex_);
    calls_.erase(std::remove_if(calls_.begin(), calls_.end(), [owner](const Call& c) { return c.owner == owner; }),
                 calls_.end());
  }
  queue_.erase(
      std::remove_if(queue_.begin(), queue_.end(), [owner](const Message& m) { return m.call && m.owner == owner; }),
      queue_.end());
}

bool HeadlessDesktop::waitForCall(unsigned milliseconds) {
  std::unique_lock<std::mutex> lock(callsMutex_);
  return callPosted_.wait_for(lock, std::chrono::milliseconds(milliseconds), [this] { return !calls_.empty(); });
}

void HeadlessDesktop::takeCalls() {
  const std::lock_guard<std::mutex> lock(callsMutex_);
  for (Call& call : calls_) {
    queue_.push_back(Message{nullptr, 0, 0, 0, std::move(call.call), call.owner});
    ++activity_;
  }
  calls_.clear();
}

std::intptr_t HeadlessDesktop::send(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam) {
  HeadlessWindow* w = find(window);
  if (w == nullptr || w->procedure == nullptr) return 0;
  bool handled = false;
  const std::intptr_t result = w->procedure->onMessage(window, message, wParam, lParam, handled);
  return handled ? result : 0;
}

bool HeadlessDesktop::pumpMessage() {
  takeCalls();
  if (queue_.empty()) {
    if (windows_.empty()) return false;
    waitIdle();
    // Windows came or went without a message: the caller looks again.
    if (queue_.empty()) return true;
  }
  return dispatchNext();
}

void HeadlessDesktop::pumpPendingMessages() {
  takeCalls();
  while (!queue_.empty()) {
    if (queue_.front().window == nullptr && queue_.front().message == WM_QUIT) return;
    dispatchNext();
  }
}

bool HeadlessDesktop::dispatchNext() {
  const Message next = std::move(queue_.front());
  queue_.pop_front();
  if (next.call) {
    next.call();
    return true;
  }
  if (next.window == nullptr) return next.message != WM_QUIT;
  send(next.window, next.message, next.wParam, next.lParam);
  return true;
}

void HeadlessDesktop::waitIdle() {
  const std::uint64_t before = activity_;
  if (idleHandler_ && !inIdle_) {
    inIdle_ = true;
    idleHandler_();
    inIdle_ = false;
  }
  if (activity_ == before) closeUnanswered();
}

void HeadlessDesktop::closeUnanswered() {
  // The newest enabled top-level window is the one the user would answer.
  if (windows_.empty()) return;
  HWND target = nullptr;
  for (auto it = windows_.rbegin(); it != windows_.rend() && target == nullptr; ++it) {
    if ((*it)->enabled && !(*it)->isChild()) target = (*it)->handle;
  }
  if (target == nullptr) target = windows_.back()->handle;
  // A window that ignored being asked once is destroyed.
  if (askedToClose_.insert(target).second) {
    post(target, WM_CLOSE, 0, 0);
  } else {
    destroy(target);
  }
}

bool HeadlessDesktop::setTimer(HWND window, std::uintptr_t id, unsigned periodMilliseconds) {
  if (find(window) == nullptr) return false;
  const std::uint64_t period = std::max<std::uint64_t>(periodMilliseconds, kMinimumTimerPeriod);
  for (Timer& timer : timers_) {
    if (timer.window == window && timer.id == id) {
      timer.period = period;
      timer.due = now_ + period;
      return true;
    }
  }
  timers_.push_back(Timer{window, id, period, now_ + period});
  return true;
}

bool HeadlessDesktop::killTimer(HWND window, std::uintptr_t id) {
  const auto matches = [&](const Timer& t) { return t.window == window && t.id == id; };
  const auto found = std::find_if(timers_.begin(), timers_.end(), matches);
  if (found == timers_.end()) return false;
  timers_.erase(found);
  queue_.erase(std::remove_if(queue_.begin(), queue_.end(), [&](const Message& m) { return isTick(m, window, id); }),
               queue_.end());
  return true;
}

bool HeadlessDesktop::timerQueued(HWND window, std::uintptr_t id) const {
  return std::any_of(queue_.begin(), queue_.end(), [&](const Message& m) { return isTick(m, window, id); });
}

bool HeadlessDesktop::isTick(const Message& message, HWND window, std::uintptr_t id) {
  return message.window == window && message.message == WM_TIMER && message.wParam == id;
}

void HeadlessDesktop::advance(std::uint64_t milliseconds) {
  const std::uint64_t until = now_ + milliseconds;
  for (;;) {
    // The earliest due timer; among equals, the one set first.
    auto next = timers_.end();
    for (auto it = timers_.begin(); it != timers_.end(); ++it) {
      if (it->due <= until && (next == timers_.end() || it->due < next->due)) next = it;
    }
    if (next == timers_.end()) break;
    now_ = next->due;
    next->due += next->period;
    if (!timerQueued(next->window, next->id)) post(next->window, WM_TIMER, next->id, 0);
  }
  now_ = until;
}

std::optional<std::uint64_t> HeadlessDesktop::nextTimerDue() const {
  std::optional<std::uint64_t> due;
  for (const Timer& timer : timers_)
    if (!due || timer.due < *due) due = timer.due;
  return due;
}

bool HeadlessDesktop::click(HWND window, WindowPoint client, bool rightButton) {
  if (!hover(window, client)) return false;
  const std::intptr_t at = pointParam(client);
  post(window, rightButton ? WM_RBUTTONDOWN : WM_LBUTTONDOWN, rightButton ? MK_RBUTTON : MK_LBUTTON, at);
  post(window, rightButton ? WM_RBUTTONUP : WM_LBUTTONUP, 0, at);
  return true;
}

bool HeadlessDesktop::hover(HWND window, WindowPoint client) {
  const WindowRect rect = screenRect(window);
  if (find(window) == nullptr) return false;
  cursor_ = WindowPoint{rect.left + client.x, rect.top + client.y};
  post(window, WM_MOUSEMOVE, 0, pointParam(client));
  return true;
}

HWND HeadlessDesktop::setFocus(HWND window) {
  if (window != nullptr && find(window) == nullptr) return nullptr;
  const HWND previous = focus_;
  if (previous == window) return previous;
  focus_ = window;
  send(previous, WM_KILLFOCUS, reinterpret_cast<std::uintptr_t>(window), 0);
  send(window, WM_SETFOCUS, reinterpret_cast<std::uintptr_t>(previous), 0);
  return previous;
}

bool HeadlessDesktop::setForeground(HWND window) {
  if (find(window) == nullptr) return false;
  foreground_ = window;
  return true;
}

}  // namespace kvt1::platform
