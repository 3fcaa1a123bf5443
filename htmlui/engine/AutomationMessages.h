#pragma once
// Private window messages through which a program that plays the user (the
// host emulator, tests) reaches the page of a dialog window from outside the
// module: the dialog's window procedure hands them to the engine's ProcND.
// They lie in the WM_APP range (0x8000-0xBFFF), which the system leaves to
// applications. Our DOM engine answers them; an engine that does not (the
// library's DLL) answers 0, which reads as "not found" and "not rendered".
#include "platform/Win32.h"

namespace kvt1::html {

// A rectangle in the window's client coordinates.
struct AutomationRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

// lParam: AutomationQuery*. Finds the first element of the page that matches
// selector (a CSS selector); answers 1 and fills rect and visible when there
// is one, else 0. Given a text buffer, it also receives the element's text,
// cut to fit and ending in a NUL.
constexpr unsigned kWmAutomationLocate = WM_APP + 0x0A10;
struct AutomationQuery {
  const wchar_t* selector = nullptr;
  AutomationRect rect;
  bool visible = false;
  wchar_t* text = nullptr;
  unsigned textCapacity = 0;  // in characters, the NUL included
};

// lParam: const wchar_t* path. Lays the page out and draws the window as its
// user sees it into a PNG file: the page at the client area's size, in the
// window's frame and under its caption; answers 1 when the file was written.
constexpr unsigned kWmAutomationRender = WM_APP + 0x0A11;

// wParam: milliseconds. Moves the engine's clock on: element timers that
// fall due fire and posted events are delivered. Answers 1.
constexpr unsigned kWmAutomationAdvance = WM_APP + 0x0A12;

}  // namespace kvt1::html
