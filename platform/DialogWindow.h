#pragma once
// Dialog windows and their messages: real windows made from an in-memory
// dialog template on Windows; elsewhere the windows of the headless desktop
// (platform/posix/HeadlessDesktop.h), which scripts and tests drive.
// Windows belong to the thread that made them: call all of this from one thread.
#include <cstdint>
#include <functional>
#include <string>

#include "platform/Win32.h"

namespace kvt1::platform {

// Screen rectangles and points, in pixels.
struct WindowRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  int width() const { return right - left; }
  int height() const { return bottom - top; }
  bool contains(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
};

struct WindowPoint {
  int x = 0;
  int y = 0;
};

// Receives every message of a dialog window, WM_INITDIALOG included (with the
// window's handle already valid) and WM_NCDESTROY last. handled = false leaves
// the message to the system's default handling.
class DialogWindowProcedure {
 public:
  virtual std::intptr_t onMessage(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam,
                                  bool& handled) = 0;

 protected:
  ~DialogWindowProcedure() = default;
};

// A dialog window with no items at 0,0 and of size 0,0, hidden until shown;
// a child of owner when style holds WS_CHILD, else owned by it (owner may be
// null). procedure (null: a window that handles nothing) gets WM_INITDIALOG
// before this returns. Null when the window could not be made.
HWND createDialogWindow(HWND owner, std::uint32_t style, std::uint32_t exStyle, DialogWindowProcedure* procedure);
bool destroyWindow(HWND window);
bool isWindow(HWND window);

std::uint32_t windowStyle(HWND window);
std::uint32_t windowExStyle(HWND window);
// Gives the window new styles; its frame follows at once.
bool setWindowStyles(HWND window, std::uint32_t style, std::uint32_t exStyle);

// The answer to WM_GETMINMAXINFO (its lParam): the smallest and largest
// window size to which the user, or a move, can size a window with a sizing
// frame (WS_THICKFRAME).
void setTrackSizeLimits(std::intptr_t minMaxInfo, int minWidth, int minHeight, int maxWidth, int maxHeight);
// GetParent: the parent of a child window, the owner of any other.
HWND parentWindow(HWND window);
HWND ownerWindow(HWND window);
// Whether window is a child (at any depth) of parent.
bool isChildWindow(HWND parent, HWND window);

// A value of the caller's own, kept with the window (0 until set).
void setWindowUserData(HWND window, std::intptr_t value);
std::intptr_t windowUserData(HWND window);

// Posting queues the message for the pumps; sending runs the procedure now.
bool postMessage(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam);
std::intptr_t sendMessage(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam);
// WM_TIMER with wParam = id every period; setting a running id restarts it.
bool setTimer(HWND window, std::uintptr_t id, unsigned periodMilliseconds);
bool killTimer(HWND window, std::uintptr_t id);

bool enableWindow(HWND window, bool enable);
bool isWindowEnabled(HWND window);
bool showWindow(HWND window, bool show);
bool isWindowVisible(HWND window);
bool setForegroundWindow(HWND window);
HWND foregroundWindow();

bool setWindowText(HWND window, const std::wstring& text);
std::wstring windowText(HWND window);
// Sends the icon resource name of image (a module's instance handle) to the
// window as its large and small icon; false when there is no such icon.
bool setWindowIcon(HWND window, void* image, const std::wstring& name);

// Named values kept with the window (0 for a name never set).
bool setWindowProp(HWND window, const std::wstring& name, std::intptr_t value);
std::intptr_t windowProp(HWND window, const std::wstring& name);
void removeWindowProp(HWND window, const std::wstring& name);

// The window's rectangle in screen coordinates.
WindowRect windowRect(HWND window);
// Moves and sizes the window without changing its Z order; x and y are in
// the parent's client coordinates for a child window, screen ones otherwise.
bool moveWindow(HWND window, int x, int y, int width, int height);
// The window rectangle whose client area is client, for a window of these styles.
WindowRect adjustWindowRectForStyle(const WindowRect& client, std::uint32_t style, std::uint32_t exStyle);
// The work area of the monitor that holds most of rect (the nearest one when none does).
WindowRect monitorWorkRect(const WindowRect& rect);
WindowRect desktopRect();
WindowPoint screenToClient(HWND window, WindowPoint screen);

// rect moved (not resized) into area; when it is larger, its left and top edges stay inside.
inline WindowRect movedInside(WindowRect rect, const WindowRect& area) {
  const int width = rect.width();
  const int height = rect.height();
  if (rect.right > area.right) rect.left = area.right - width;
  if (rect.bottom > area.bottom) rect.top = area.bottom - height;
  if (rect.left < area.left) rect.left = area.left;
  if (rect.top < area.top) rect.top = area.top;
  return WindowRect{rect.left, rect.top, rect.left + width, rect.top + height};
}

// rect moved into the work area of its monitor.
inline WindowRect keptOnMonitor(const WindowRect& rect) { return movedInside(rect, monitorWorkRect(rect)); }

WindowPoint cursorPos();
HWND windowFromPoint(WindowPoint screen);
HWND focusWindow();
// Gives the window the keyboard focus (null: no window); returns the window that had it.
HWND setFocusWindow(HWND window);

// Asks for the window's client area to be painted again (WM_PAINT once the
// thread has nothing else to do); nothing on the headless desktop, which
// draws no windows.
void invalidateWindow(HWND window);
// Answers WM_PAINT without flicker: draw gets the drawing context of a back
// buffer the size of the client area (an HDC on Windows) and the part to
// draw, in client coordinates; that part is then copied onto the window in
// one step. False where windows are not drawn (the headless desktop).
using PaintProcedure = std::function<void(std::uintptr_t context, const WindowRect& area)>;
bool paintWindow(HWND window, const PaintProcedure& draw);
// Asks for one WM_MOUSELEAVE when the pointer next leaves the window.
void trackMouseLeave(HWND window);

// Waits for the next message of this thread, translates and dispatches it;
// false on WM_QUIT. Headless, waiting runs the desktop's idle script, and
// false also means that no window is left to receive anything.
bool pumpMessage();
// Translates and dispatches the messages already queued, without waiting.
void pumpPendingMessages();

}  // namespace kvt1::platform
