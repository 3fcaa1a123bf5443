#include "platform/DialogWindow.h"

#include <algorithm>

#include "platform/posix/HeadlessDesktop.h"

namespace kvt1::platform {
namespace {

HeadlessDesktop& desktop() { return HeadlessDesktop::instance(); }
HeadlessWindow* find(HWND window) { return desktop().find(window); }

}  // namespace

HWND createDialogWindow(HWND owner, std::uint32_t style, std::uint32_t exStyle, DialogWindowProcedure* procedure) {
  return desktop().create(owner, style, exStyle, procedure);
}

bool destroyWindow(HWND window) { return desktop().destroy(window); }
bool isWindow(HWND window) { return window != nullptr && find(window) != nullptr; }

std::uint32_t windowStyle(HWND window) {
  const HeadlessWindow* w = find(window);
  return w != nullptr ? w->style : 0;
}

std::uint32_t windowExStyle(HWND window) {
  const HeadlessWindow* w = find(window);
  return w != nullptr ? w->exStyle : 0;
}

bool setWindowStyles(HWND window, std::uint32_t style, std::uint32_t exStyle) {
  HeadlessWindow* w = find(window);
  if (w == nullptr) return false;
  w->style = style;
  w->exStyle = exStyle;
  return true;
}

void setTrackSizeLimits(std::intptr_t minMaxInfo, int minWidth, int minHeight, int maxWidth, int maxHeight) {
  auto* limits = reinterpret_cast<TrackSizeLimits*>(minMaxInfo);
  limits->minimum = WindowPoint{minWidth, minHeight};
  limits->maximum = WindowPoint{maxWidth, maxHeight};
}

HWND parentWindow(HWND window) {
  const HeadlessWindow* w = find(window);
  return w != nullptr ? w->owner : nullptr;
}

HWND ownerWindow(HWND window) {
  const HeadlessWindow* w = find(window);
  return w != nullptr && !w->isChild() ? w->owner : nullptr;
}

bool isChildWindow(HWND parent, HWND window) {
  for (const HeadlessWindow* w = find(window); w != nullptr && w->isChild(); w = find(w->owner)) {
    if (w->owner == parent) return true;
  }
  return false;
}

void setWindowUserData(HWND window, std::intptr_t value) {
  if (HeadlessWindow* w = find(window)) w->userData = value;
}

std::intptr_t windowUserData(HWND window) {
  const HeadlessWindow* w = find(window);
  return w != nullptr ? w->userData : 0;
}

bool postMessage(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam) {
  return desktop().post(window, message, wParam, lParam);
}

std::intptr_t sendMessage(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam) {
  return desktop().send(window, message, wParam, lParam);
}

bool setTimer(HWND window, std::uintptr_t id, unsigned periodMilliseconds) {
  return desktop().setTimer(window, id, periodMilliseconds);
}

bool killTimer(HWND window, std::uintptr_t id) { return desktop().killTimer(window, id); }

bool enableWindow(HWND window, bool enable) {
  HeadlessWindow* w = find(window);
  if (w == nullptr) return false;
  w->enabled = enable;
  return true;
}

bool isWindowEnabled(HWND window) {
  const HeadlessWindow* w = find(window);
  return w != nullptr && w->enabled;
}

bool showWindow(HWND window, bool show) {
  HeadlessWindow* w = find(window);
  if (w == nullptr) return false;
  w->visible = show;
  return true;
}

bool isWindowVisible(HWND window) {
  for (const HeadlessWindow* w = find(window); w != nullptr; w = w->isChild() ? find(w->owner) : nullptr) {
    if (!w->visible) return false;
    if (!w->isChild()) return true;
  }
  return false;
}

bool setForegroundWindow(HWND window) { return desktop().setForeground(window); }
HWND foregroundWindow() { return desktop().foreground(); }

bool setWindowText(HWND window, const std::wstring& text) {
  HeadlessWindow* w = find(window);
  if (w == nullptr) return false;
  w->text = text;
  return true;
}

std::wstring windowText(HWND window) {
  const HeadlessWindow* w = find(window);
  return w != nullptr ? w->text : std::wstring();
}

bool setWindowIcon(HWND window, void* image, const std::wstring& name) {
  // Nothing draws it: the name is kept for whoever shows the window.
  HeadlessWindow* w = find(window);
  if (w == nullptr || name.empty()) return false;
  w->iconName = name;
  return true;
}

bool setWindowProp(HWND window, const std::wstring& name, std::intptr_t value) {
  HeadlessWindow* w = find(window);
  if (w == nullptr) return false;
  w->props[name] = value;
  return true;
}

std::intptr_t windowProp(HWND window, const std::wstring& name) {
  const HeadlessWindow* w = find(window);
  if (w == nullptr) return 0;
  const auto found = w->props.find(name);
  return found != w->props.end() ? found->second : 0;
}

void removeWindowProp(HWND window, const std::wstring& name) {
  if (HeadlessWindow* w = find(window)) w->props.erase(name);
}

WindowRect windowRect(HWND window) { return desktop().screenRect(window); }

bool moveWindow(HWND window, int x, int y, int width, int height) {
  HeadlessWindow* w = find(window);
  if (w == nullptr) return false;
  // As on Windows, a window with a sizing frame is sized within the limits its procedure gives.
  if ((w->style & WS_THICKFRAME) != 0) {
    TrackSizeLimits limits;
    desktop().send(window, WM_GETMINMAXINFO, 0, reinterpret_cast<std::intptr_t>(&limits));
    if (find(window) != w) return false;
    width = std::max(std::min(width, limits.maximum.x), limits.minimum.x);
    height = std::max(std::min(height, limits.maximum.y), limits.minimum.y);
  }
  const bool resized = width != w->rect.width() || height != w->rect.height();
  w->rect = WindowRect{x, y, x + width, y + height};
  if (resized) {
    const auto size = static_cast<std::uint32_t>((height & 0xFFFF) << 16) | static_cast<std::uint32_t>(width & 0xFFFF);
    desktop().send(window, WM_SIZE, 0, static_cast<std::intptr_t>(size));
  }
  return true;
}

// Headless windows have no frame.
WindowRect adjustWindowRectForStyle(const WindowRect& client, std::uint32_t, std::uint32_t) { return client; }

WindowRect monitorWorkRect(const WindowRect&) { return desktop().rect(); }
WindowRect desktopRect() { return desktop().rect(); }

WindowPoint screenToClient(HWND window, WindowPoint screen) {
  const WindowRect rect = desktop().screenRect(window);
  return WindowPoint{screen.x - rect.left, screen.y - rect.top};
}

WindowPoint cursorPos() { return desktop().cursor(); }
HWND windowFromPoint(WindowPoint screen) { return desktop().windowAt(screen); }
HWND focusWindow() { return desktop().focus(); }
HWND setFocusWindow(HWND window) { return desktop().setFocus(window); }

void invalidateWindow(HWND) {}
bool paintWindow(HWND, const PaintProcedure&) { return false; }
// The desktop's pointer never leaves a window unannounced: hovers say where it goes.
void trackMouseLeave(HWND) {}

bool pumpMessage() { return desktop().pumpMessage(); }
void pumpPendingMessages() { desktop().pumpPendingMessages(); }

}  // namespace kvt1::platform
