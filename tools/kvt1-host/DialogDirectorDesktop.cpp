// The director on the emulator's headless desktop: the module's dialog
// windows live there, time is the desktop's own clock, and the desktop
// itself closes a dialog that its idle left unanswered.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "htmlui/engine/AutomationMessages.h"
#include "platform/posix/HeadlessDesktop.h"
#include "tools/kvt1-host/DialogDirector.h"

namespace kvt1::emu {
namespace {

using platform::HeadlessDesktop;
using platform::HeadlessWindow;

HeadlessDesktop& desktop() { return HeadlessDesktop::local(); }

}  // namespace

void DialogDirector::attach() {
  desktop().setIdleHandler([this] { onIdle(); });
  desktop().setWindowCreatedHandler([this](HWND window) { onCreated(window); });
}

void DialogDirector::detach() {
  desktop().setIdleHandler(nullptr);
  desktop().setWindowCreatedHandler(nullptr);
}

HWND DialogDirector::waitingDialog() {
  const std::vector<HWND> windows = desktop().windows();
  for (auto it = windows.rbegin(); it != windows.rend(); ++it) {
    const HeadlessWindow* w = desktop().find(*it);
    if (w != nullptr && w->enabled && !w->isChild()) return *it;
  }
  return nullptr;
}

std::wstring DialogDirector::title(HWND dialog) {
  const HeadlessWindow* w = desktop().find(dialog);
  return w != nullptr ? w->text : std::wstring();
}

bool DialogDirector::isTopLevelDialog(HWND window) {
  const HeadlessWindow* w = desktop().find(window);
  return w != nullptr && !w->isChild();
}

void DialogDirector::point(HWND dialog, int x, int y, Pointer pointer) {
  const platform::WindowPoint at{x, y};
  if (pointer == Pointer::Hover) {
    desktop().hover(dialog, at);
  } else {
    desktop().click(dialog, at, pointer == Pointer::RightClick);
  }
}

void DialogDirector::closeUnanswered(HWND, bool) {}

// Nothing to wait for: a @wait moves the desktop's clock itself.
void DialogDirector::serveHostLoop(bool) { desktop().pumpPendingMessages(); }

void DialogDirector::waitForHostMessage(unsigned milliseconds) { desktop().waitForCall(milliseconds); }

// Moves the clock on to the next timer within the wait, so that each tick
// is handled before the next one falls due.
DialogDirector::Outcome DialogDirector::wait(DialogDirective& directive, HWND dialog) {
  if (!waitAnnounced_) {
    print_(label(dialog) + L": " + directive.text + L" ms\n");
    waitAnnounced_ = true;
  }
  const std::uint64_t now = desktop().now();
  const std::optional<std::uint64_t> due = desktop().nextTimerDue();
  const bool ticks = due && *due - now <= directive.milliseconds;
  const unsigned step = ticks ? static_cast<unsigned>(*due - now) : directive.milliseconds;
  desktop().advance(step);
  desktop().send(dialog, html::kWmAutomationAdvance, step, 0);
  directive.milliseconds -= step;
  if (directive.milliseconds > 0) return Outcome::Playing;
  waitAnnounced_ = false;
  return ticks ? Outcome::Played : Outcome::Passed;
}

}  // namespace kvt1::emu
