// The engine in a real window: the page is painted on WM_PAINT from the
// layout, each change asks for one repaint, the pointer leaving the window
// ends the hover, and with a clock set the engine's timers follow real time.
// On the headless desktop none of this is needed: pictures come from
// renderWindowPng and the desktop's director moves the clock.
#include "htmlui/engine/DomEngine.h"
#include "htmlui/engine/WindowFrame.h"
#include "platform/DialogWindow.h"

namespace kvt1::html {
namespace {

// The engine's own window timer, out of the range that dialogs use.
constexpr UINT_PTR kClockTimerId = 0x4B565431;
constexpr unsigned kClockPeriodMs = 25;

}  // namespace

void DomEngine::setClock(std::function<std::uint64_t()> milliseconds) {
  clock_ = std::move(milliseconds);
  for (auto& [hwnd, view] : views_) startClock(view);
}

void DomEngine::startClock(View& view) {
  if (!clock_ || view.clockRunning) return;
  view.clockRunning = platform::setTimer(view.hwnd, kClockTimerId, kClockPeriodMs);
  view.clockRead = clock_();
}

void DomEngine::changed() {
  ++generation_;
  if (repaintAsked_) return;
  repaintAsked_ = true;
  for (const auto& [hwnd, view] : views_) platform::invalidateWindow(hwnd);
}

bool DomEngine::answerWindow(HWND hwnd, UINT msg, WPARAM wParam, LRESULT& result) {
  result = 0;
  switch (msg) {
    case WM_PAINT: {
      repaintAsked_ = false;
      return platform::paintWindow(hwnd, [&](std::uintptr_t context, const platform::WindowRect& area) {
        View* view = findView(hwnd);
        if (view != nullptr && ensureLayout(*view, view->width))
          layout_->paint(context, LayoutBox{area.left, area.top, area.width(), area.height()});
      });
    }
    case WM_ERASEBKGND:
      // WM_PAINT covers every pixel from a back buffer: erasing first would flicker.
      result = 1;
      return true;
    case WM_TIMER: {
      if (wParam != kClockTimerId || !clock_) return false;
      View* view = findView(hwnd);
      if (view == nullptr) return true;
      const std::uint64_t now = clock_();
      const std::uint64_t elapsed = now - view->clockRead;
      view->clockRead = now;
      tick(static_cast<UINT>(elapsed));
      pumpPosted();
      return true;
    }
    case WM_MOUSEMOVE:
      if (View* view = findView(hwnd); view != nullptr && !view->pointerTracked) {
        platform::trackMouseLeave(hwnd);
        view->pointerTracked = true;
      }
      return false;  // the move itself is input
    case WM_MOUSELEAVE:
      if (View* view = findView(hwnd)) view->pointerTracked = false;
      setHover(hwnd, nullptr);
      return true;
    default:
      return false;
  }
}

bool DomEngine::renderWindowPng(HWND hwnd, const std::string& path) {
  View* view = findView(hwnd);
  return view != nullptr && ensureLayout(*view, view->width) &&
         layout_->renderWindowPng(windowPicture(hwnd, view->width, view->height), path);
}

}  // namespace kvt1::html
