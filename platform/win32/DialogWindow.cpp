#include "platform/DialogWindow.h"

#include <windows.h>

#include <algorithm>

#include "platform/HeadlessHost.h"
#include "platform/ThisModule.h"

namespace kvt1::platform {
namespace {

// The procedure of a window lives in the dialog's own slot, DWLP_USER, so
// that GWLP_USERDATA stays free for the caller's user data.
DialogWindowProcedure* procedureOf(HWND window) {
  return reinterpret_cast<DialogWindowProcedure*>(GetWindowLongPtrW(window, DWLP_USER));
}

INT_PTR CALLBACK dialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) SetWindowLongPtrW(window, DWLP_USER, lParam);
  DialogWindowProcedure* procedure = procedureOf(window);
  if (procedure == nullptr) return FALSE;
  bool handled = false;
  const std::intptr_t result = procedure->onMessage(window, message, wParam, lParam, handled);
  if (message == WM_NCDESTROY) SetWindowLongPtrW(window, DWLP_USER, 0);
  // WM_INITDIALOG answers directly (TRUE: the system sets the default focus);
  // other answers of a dialog procedure go through DWLP_MSGRESULT.
  if (message == WM_INITDIALOG) return handled ? result : TRUE;
  if (!handled) return FALSE;
  SetWindowLongPtrW(window, DWLP_MSGRESULT, result);
  return TRUE;
}

// A template without items, font, menu, class or title: DLGTEMPLATE followed
// by three empty words; the system wants it DWORD-aligned.
struct alignas(4) EmptyDialogTemplate {
  DLGTEMPLATE dialog;
  WORD menu;
  WORD windowClass;
  WORD title;
};

WindowRect fromRect(const RECT& rect) { return WindowRect{rect.left, rect.top, rect.right, rect.bottom}; }

RECT toRect(const WindowRect& rect) { return RECT{rect.left, rect.top, rect.right, rect.bottom}; }

}  // namespace

HWND createDialogWindow(HWND owner, std::uint32_t style, std::uint32_t exStyle, DialogWindowProcedure* procedure) {
  EmptyDialogTemplate dialogTemplate = {};
  dialogTemplate.dialog.style = style;
  dialogTemplate.dialog.dwExtendedStyle = exStyle;
  HWND window = CreateDialogIndirectParamW(static_cast<HINSTANCE>(thisModuleHandle()), &dialogTemplate.dialog, owner,
                                           dialogProcedure, reinterpret_cast<LPARAM>(procedure));
  static const auto created =
      reinterpret_cast<Kvt1HeadlessWindowCreatedFn>(mainProgramSymbol(KVT1_HEADLESS_WINDOW_CREATED));
  if (window != nullptr && created != nullptr) created(window);
  return window;
}

bool destroyWindow(HWND window) { return DestroyWindow(window) != FALSE; }
bool isWindow(HWND window) { return window != nullptr && IsWindow(window) != FALSE; }

std::uint32_t windowStyle(HWND window) { return static_cast<std::uint32_t>(GetWindowLongW(window, GWL_STYLE)); }
std::uint32_t windowExStyle(HWND window) { return static_cast<std::uint32_t>(GetWindowLongW(window, GWL_EXSTYLE)); }

bool setWindowStyles(HWND window, std::uint32_t style, std::uint32_t exStyle) {
  if (!isWindow(window)) return false;
  SetWindowLongW(window, GWL_STYLE, static_cast<LONG>(style));
  SetWindowLongW(window, GWL_EXSTYLE, static_cast<LONG>(exStyle));
  return SetWindowPos(window, nullptr, 0, 0, 0, 0,
                      SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE) != FALSE;
}

void setTrackSizeLimits(std::intptr_t minMaxInfo, int minWidth, int minHeight, int maxWidth, int maxHeight) {
  auto* info = reinterpret_cast<MINMAXINFO*>(minMaxInfo);
  info->ptMinTrackSize = POINT{minWidth, minHeight};
  info->ptMaxTrackSize = POINT{maxWidth, maxHeight};
}

HWND parentWindow(HWND window) { return GetParent(window); }
HWND ownerWindow(HWND window) { return GetWindow(window, GW_OWNER); }
bool isChildWindow(HWND parent, HWND window) { return IsChild(parent, window) != FALSE; }

void setWindowUserData(HWND window, std::intptr_t value) { SetWindowLongPtrW(window, GWLP_USERDATA, value); }
std::intptr_t windowUserData(HWND window) { return GetWindowLongPtrW(window, GWLP_USERDATA); }

bool postMessage(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam) {
  return PostMessageW(window, message, wParam, lParam) != FALSE;
}

std::intptr_t sendMessage(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam) {
  return SendMessageW(window, message, wParam, lParam);
}

bool setTimer(HWND window, std::uintptr_t id, unsigned periodMilliseconds) {
  return SetTimer(window, id, periodMilliseconds, nullptr) != 0;
}

bool killTimer(HWND window, std::uintptr_t id) { return KillTimer(window, id) != FALSE; }

bool enableWindow(HWND window, bool enable) {
  if (!isWindow(window)) return false;
  EnableWindow(window, enable ? TRUE : FALSE);
  return true;
}

bool isWindowEnabled(HWND window) { return IsWindowEnabled(window) != FALSE; }

bool showWindow(HWND window, bool show) {
  if (!isWindow(window)) return false;
  ShowWindow(window, show ? SW_SHOW : SW_HIDE);
  return true;
}

bool isWindowVisible(HWND window) { return IsWindowVisible(window) != FALSE; }
bool setForegroundWindow(HWND window) { return SetForegroundWindow(window) != FALSE; }
HWND foregroundWindow() { return GetForegroundWindow(); }

bool setWindowText(HWND window, const std::wstring& text) { return SetWindowTextW(window, text.c_str()) != FALSE; }

std::wstring windowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

bool setWindowIcon(HWND window, void* image, const std::wstring& name) {
  // Shared icons belong to the system, which frees them with the module.
  const auto load = [&](int width, int height) {
    return static_cast<HICON>(
        LoadImageW(static_cast<HINSTANCE>(image), name.c_str(), IMAGE_ICON, width, height, LR_SHARED));
  };
  HICON largeIcon = load(GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON));
  HICON smallIcon = load(GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON));
  if (largeIcon == nullptr || smallIcon == nullptr || !isWindow(window)) return false;
  SendMessageW(window, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(largeIcon));
  SendMessageW(window, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(smallIcon));
  return true;
}

bool setWindowProp(HWND window, const std::wstring& name, std::intptr_t value) {
  return SetPropW(window, name.c_str(), reinterpret_cast<HANDLE>(value)) != FALSE;
}

std::intptr_t windowProp(HWND window, const std::wstring& name) {
  return reinterpret_cast<std::intptr_t>(GetPropW(window, name.c_str()));
}

void removeWindowProp(HWND window, const std::wstring& name) { RemovePropW(window, name.c_str()); }

WindowRect windowRect(HWND window) {
  RECT rect = {};
  GetWindowRect(window, &rect);
  return fromRect(rect);
}

bool moveWindow(HWND window, int x, int y, int width, int height) {
  return SetWindowPos(window, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE) != FALSE;
}

WindowRect adjustWindowRectForStyle(const WindowRect& client, std::uint32_t style, std::uint32_t exStyle) {
  RECT rect = toRect(client);
  AdjustWindowRectEx(&rect, style, FALSE, exStyle);
  return fromRect(rect);
}

WindowRect monitorWorkRect(const WindowRect& rect) {
  const RECT area = toRect(rect);
  MONITORINFO info = {};
  info.cbSize = sizeof info;
  if (!GetMonitorInfoW(MonitorFromRect(&area, MONITOR_DEFAULTTONEAREST), &info)) return desktopRect();
  return fromRect(info.rcWork);
}

WindowRect desktopRect() { return windowRect(GetDesktopWindow()); }

WindowPoint screenToClient(HWND window, WindowPoint screen) {
  POINT point = {screen.x, screen.y};
  ScreenToClient(window, &point);
  return WindowPoint{point.x, point.y};
}

WindowPoint cursorPos() {
  POINT point = {};
  GetCursorPos(&point);
  return WindowPoint{point.x, point.y};
}

HWND windowFromPoint(WindowPoint screen) { return WindowFromPoint(POINT{screen.x, screen.y}); }
HWND focusWindow() { return GetFocus(); }
HWND setFocusWindow(HWND window) { return SetFocus(window); }

void invalidateWindow(HWND window) { InvalidateRect(window, nullptr, FALSE); }

bool paintWindow(HWND window, const PaintProcedure& draw) {
  PAINTSTRUCT paint;
  HDC target = BeginPaint(window, &paint);
  if (target == nullptr) return false;
  RECT client = {};
  GetClientRect(window, &client);
  // A 32-bit top-down DIB, so that drawing libraries that blend (GDI+) work on its pixels directly.
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = std::max<LONG>(client.right, 1);
  info.bmiHeader.biHeight = -std::max<LONG>(client.bottom, 1);
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* bits = nullptr;
  HDC buffer = CreateCompatibleDC(target);
  HBITMAP bitmap = CreateDIBSection(target, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  if (buffer != nullptr && bitmap != nullptr) {
    HGDIOBJ previous = SelectObject(buffer, bitmap);
    const RECT& area = paint.rcPaint;
    draw(reinterpret_cast<std::uintptr_t>(buffer), fromRect(area));
    GdiFlush();
    BitBlt(target, area.left, area.top, area.right - area.left, area.bottom - area.top, buffer, area.left, area.top,
           SRCCOPY);
    SelectObject(buffer, previous);
  }
  if (bitmap != nullptr) DeleteObject(bitmap);
  if (buffer != nullptr) DeleteDC(buffer);
  EndPaint(window, &paint);
  return true;
}

void trackMouseLeave(HWND window) {
  TRACKMOUSEEVENT track = {};
  track.cbSize = sizeof track;
  track.dwFlags = TME_LEAVE;
  track.hwndTrack = window;
  TrackMouseEvent(&track);
}

bool pumpMessage() {
  MSG message;
  static const auto idle = reinterpret_cast<Kvt1HeadlessIdleFn>(mainProgramSymbol(KVT1_HEADLESS_IDLE));
  if (idle != nullptr && !PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE)) idle();
  const BOOL got = GetMessageW(&message, nullptr, 0, 0);
  if (got == 0 || got == -1) return false;
  TranslateMessage(&message);
  DispatchMessageW(&message);
  return true;
}

void pumpPendingMessages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      // Left for the loop that waits for it.
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace kvt1::platform
