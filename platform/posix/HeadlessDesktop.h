#pragma once
// The desktop of a system without a window system. Dialog windows are records
// with styles, a rectangle, texts and properties; one message queue feeds
// their procedures; their timers run on a clock that moves only when told.
// A script (the host emulator) or a test plays the user: it moves the cursor,
// clicks, advances the clock and answers dialogs from the idle handler, which
// runs whenever a message loop waits on an empty queue. When that handler is
// missing or does nothing, the topmost enabled dialog is closed as if the user
// had closed its window, so a session never waits for ever.
// Nothing here is specific to one system; DialogWindow.h is its interface.
#include <climits>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/DialogWindow.h"

// A main program that hosts modules exports a C function of this name and
// type, returning its HeadlessDesktop::local() (never instance(), which asks
// for the export), so that its modules put their windows on its desktop.
#define KVT1_HEADLESS_DESKTOP "kvt1HeadlessDesktop"
namespace kvt1::platform {
class HeadlessDesktop;
}
extern "C" typedef kvt1::platform::HeadlessDesktop* (*Kvt1HeadlessDesktopFn)();

namespace kvt1::platform {

struct HeadlessWindow {
  HWND handle = nullptr;
  // The parent of a child window; the owner, or null, of any other.
  HWND owner = nullptr;
  std::uint32_t style = 0;
  std::uint32_t exStyle = 0;
  DialogWindowProcedure* procedure = nullptr;
  std::wstring text;
  std::wstring iconName;
  // In the parent's client coordinates for a child window, screen ones
  // otherwise. Windows have no frame: the client area is the whole window.
  WindowRect rect;
  bool enabled = true;
  bool visible = false;
  std::intptr_t userData = 0;
  std::map<std::wstring, std::intptr_t> props;

  bool isChild() const;
};

// What WM_GETMINMAXINFO carries on this desktop (its lParam points to it):
// the window sizes a window with a sizing frame is kept within.
struct TrackSizeLimits {
  WindowPoint minimum{0, 0};
  WindowPoint maximum{INT_MAX, INT_MAX};
};

class HeadlessDesktop {
 public:
  HeadlessDesktop() = default;
  HeadlessDesktop(const HeadlessDesktop&) = delete;
  HeadlessDesktop& operator=(const HeadlessDesktop&) = delete;

  // The desktop of this process: the main program's when it exports
  // KVT1_HEADLESS_DESKTOP, else local().
  static HeadlessDesktop& instance();
  // This image's own desktop.
  static HeadlessDesktop& local();

  // Screen size, 1920 by 1080 until set; one monitor covers it all.
  void setSize(int width, int height);
  WindowRect rect() const { return WindowRect{0, 0, width_, height_}; }

  // Runs when a message loop waits on an empty queue.
  void setIdleHandler(std::function<void()> handler) { idleHandler_ = std::move(handler); }
  // Runs for every new window, once its procedure has had WM_INITDIALOG.
  void setWindowCreatedHandler(std::function<void(HWND)> handler) { createdHandler_ = std::move(handler); }

  HWND create(HWND owner, std::uint32_t style, std::uint32_t exStyle, DialogWindowProcedure* procedure);
  // Destroys the window and its children and owned windows.
  bool destroy(HWND window);
  HeadlessWindow* find(HWND window);
  // The live windows, oldest first.
  std::vector<HWND> windows() const;
  WindowRect screenRect(HWND window);
  // The topmost visible window at the point: topmost-styled ones first, then the newest.
  HWND windowAt(WindowPoint screen);

  // A null window posts to the thread (WM_QUIT ends the message loop).
  bool post(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam);
  // From any thread: a call that the pumps run in turn with the messages.
  // Everything else here belongs to the desktop's own thread.
  void postCall(const void* owner, std::function<void()> call);
  // Drops the owner's calls that have not run (before the code that made
  // them may go, with the module that holds it).
  void dropCalls(const void* owner);
  // Waits up to milliseconds of real time for a call from another thread;
  // true when one has been posted and not yet run.
  bool waitForCall(unsigned milliseconds);
  std::intptr_t send(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam);
  // Dispatches the next message, first waiting for one as described above;
  // false on WM_QUIT or when no window is left.
  bool pumpMessage();
  void pumpPendingMessages();

  // Periods below 10 ms count as 10 ms, as on Windows. Like Windows, the
  // queue holds at most one WM_TIMER per timer.
  bool setTimer(HWND window, std::uintptr_t id, unsigned periodMilliseconds);
  bool killTimer(HWND window, std::uintptr_t id);
  std::uint64_t now() const { return now_; }
  // Moves the clock on, posting WM_TIMER for the timers that fall due, in order.
  void advance(std::uint64_t milliseconds);
  // The time at which the next timer falls due; nothing while no timer runs.
  std::optional<std::uint64_t> nextTimerDue() const;

  WindowPoint cursor() const { return cursor_; }
  void setCursor(WindowPoint screen) { cursor_ = screen; }
  // Moves the cursor to a point of the window's client area and clicks there
  // with the left (or right) button: mouse move, button down and button up
  // are posted.
  bool click(HWND window, WindowPoint client, bool rightButton = false);
  // Moves the cursor to a point of the window's client area: a mouse move is posted.
  bool hover(HWND window, WindowPoint client);

  HWND focus() const { return focus_; }
  // Sends WM_KILLFOCUS and WM_SETFOCUS; returns the window that had the focus.
  HWND setFocus(HWND window);
  HWND foreground() const { return foreground_; }
  bool setForeground(HWND window);

 private:
  struct Message {
    HWND window;
    unsigned message;
    std::uintptr_t wParam;
    std::intptr_t lParam;
    std::function<void()> call;  // a posted call instead of a message
    const void* owner;
  };
  struct Call {
    const void* owner;
    std::function<void()> call;
  };
  struct Timer {
    HWND window;
    std::uintptr_t id;
    std::uint64_t period;
    std::uint64_t due;
  };

  // Moves the calls posted from other threads into the queue.
  void takeCalls();
  bool dispatchNext();
  void waitIdle();
  void closeUnanswered();
  void forget(HWND window);
  bool timerQueued(HWND window, std::uintptr_t id) const;
  static bool isTick(const Message& message, HWND window, std::uintptr_t id);

  int width_ = 1920;
  int height_ = 1080;
  std::vector<std::unique_ptr<HeadlessWindow>> windows_;
  std::uintptr_t lastHandle_ = 0x10000;
  std::deque<Message> queue_;
  std::mutex callsMutex_;
  std::condition_variable callPosted_;
  std::deque<Call> calls_;
  std::vector<Timer> timers_;
  std::uint64_t now_ = 0;
  // Counts posts, creations and destructions: how the desktop sees that an idle handler acted.
  std::uint64_t activity_ = 0;
  bool inIdle_ = false;
  // Windows already asked to close by the desktop: the next time, they are destroyed.
  std::set<HWND> askedToClose_;
  std::set<HWND> destroying_;
  std::function<void()> idleHandler_;
  std::function<void(HWND)> createdHandler_;
  WindowPoint cursor_;
  HWND focus_ = nullptr;
  HWND foreground_ = nullptr;
};

}  // namespace kvt1::platform
