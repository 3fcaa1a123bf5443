// The director with real windows: the module's modal loops call the
// program's idle export when their queue is empty, and each dialog window
// the module makes is announced through the window-created export (see
// platform/HeadlessHost.h). Input is posted as the system would post it,
// and time is real.
#include <windows.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "platform/DialogWindow.h"
#include "platform/HeadlessHost.h"
#include "tools/kvt1-host/DialogDirector.h"

namespace kvt1::emu {
namespace {

std::function<void()> g_idle;
std::function<void(HWND)> g_created;
std::vector<HWND> g_dialogs;  // the dialog windows made so far, oldest first

std::uint64_t nowMilliseconds() {
  using namespace std::chrono;
  return static_cast<std::uint64_t>(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

LPARAM pointParam(int x, int y) { return MAKELPARAM(static_cast<WORD>(x), static_cast<WORD>(y)); }

}  // namespace

void DialogDirector::attach() {
  g_idle = [this] { onIdle(); };
  g_created = [this](HWND window) { onCreated(window); };
}

void DialogDirector::detach() {
  g_idle = nullptr;
  g_created = nullptr;
  g_dialogs.clear();
}

HWND DialogDirector::waitingDialog() {
  g_dialogs.erase(std::remove_if(g_dialogs.begin(), g_dialogs.end(), [](HWND w) { return !IsWindow(w); }),
                  g_dialogs.end());
  for (auto it = g_dialogs.rbegin(); it != g_dialogs.rend(); ++it)
    if (IsWindowEnabled(*it) && isTopLevelDialog(*it)) return *it;
  return nullptr;
}

std::wstring DialogDirector::title(HWND dialog) { return platform::windowText(dialog); }

bool DialogDirector::isTopLevelDialog(HWND window) {
  return IsWindow(window) && (GetWindowLongW(window, GWL_STYLE) & WS_CHILD) == 0;
}

void DialogDirector::point(HWND dialog, int x, int y, Pointer pointer) {
  // The pointer is where the user acts: the dialog reads it for its context menu and its focus.
  POINT screen{x, y};
  ClientToScreen(dialog, &screen);
  SetCursorPos(screen.x, screen.y);
  const LPARAM at = pointParam(x, y);
  PostMessageW(dialog, WM_MOUSEMOVE, 0, at);
  if (pointer == Pointer::Click) {
    PostMessageW(dialog, WM_LBUTTONDOWN, MK_LBUTTON, at);
    PostMessageW(dialog, WM_LBUTTONUP, 0, at);
  } else if (pointer == Pointer::RightClick) {
    PostMessageW(dialog, WM_RBUTTONDOWN, MK_RBUTTON, at);
    PostMessageW(dialog, WM_RBUTTONUP, 0, at);
  }
}

void DialogDirector::closeUnanswered(HWND dialog, bool again) {
  // A window that ignored being asked once is destroyed.
  if (again) {
    DestroyWindow(dialog);
  } else {
    PostMessageW(dialog, WM_CLOSE, 0, 0);
  }
}

void DialogDirector::serveHostLoop(bool waitForMessage) {
  if (waitForMessage) WaitMessage();
  platform::pumpPendingMessages();
}

void DialogDirector::waitForHostMessage(unsigned milliseconds) {
  MsgWaitForMultipleObjects(0, nullptr, FALSE, milliseconds, QS_ALLINPUT);
}

// Real time passes while the dialog's loop goes on; its timers fire as they fall due.
DialogDirector::Outcome DialogDirector::wait(DialogDirective& directive, HWND dialog) {
  if (!waitAnnounced_) {
    print_(label(dialog) + L": " + directive.text + L" ms\n");
    waitAnnounced_ = true;
    waitUntil_ = nowMilliseconds() + directive.milliseconds;
  }
  if (nowMilliseconds() < waitUntil_) return Outcome::Playing;
  waitAnnounced_ = false;
  return Outcome::Played;
}

// The program's exports that the module's window port calls.
extern "C" __declspec(dllexport) void kvt1HeadlessIdle() {
  if (g_idle) g_idle();
}

extern "C" __declspec(dllexport) void kvt1HeadlessWindowCreated(HWND window) {
  g_dialogs.push_back(window);
  if (g_created) g_created(window);
}

}  // namespace kvt1::emu
