#include "htmlui/engine/DomEngineInput.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "htmlui/engine/AutomationMessages.h"
#include "platform/Unicode.h"
#include "platform/Win32.h"

namespace kvt1::html {
namespace {

// The elements that act on a click; a click elsewhere does nothing.
const char* const kClickableTags[] = {"button", "input", "a", "li", "option", "select", "textarea"};

POINT pointOf(LPARAM lParam) {
  // Signed 16-bit coordinates, as GET_X_LPARAM and GET_Y_LPARAM read them.
  return POINT{static_cast<short>(lParam & 0xFFFF), static_cast<short>((lParam >> 16) & 0xFFFF)};
}

HELEMENT elementAt(DomEngine& engine, HWND hwnd, LPARAM lParam) {
  HELEMENT he = nullptr;
  return engine.FindElement(hwnd, pointOf(lParam), &he) == HLDOM_OK ? he : nullptr;
}

bool isClickable(DomEngine& engine, HELEMENT he) {
  LPCSTR tag = nullptr;
  if (engine.GetElementType(he, &tag) != HLDOM_OK || tag == nullptr) return false;
  for (const char* clickable : kClickableTags)
    if (std::strcmp(tag, clickable) == 0) return true;
  return engine.behaviorOf(he).has_value();
}

// The element under the point that takes the click: the innermost clickable
// one that holds it; null when there is none.
HELEMENT clickTargetAt(DomEngine& engine, HWND hwnd, LPARAM lParam) {
  for (HELEMENT he = elementAt(engine, hwnd, lParam); he != nullptr;) {
    if (isClickable(engine, he)) return he;
    HELEMENT parent = nullptr;
    if (engine.GetParentElement(he, &parent) != HLDOM_OK) return nullptr;
    he = parent;
  }
  return nullptr;
}

bool isPressed(DomEngine& engine, HELEMENT he) {
  UINT state = 0;
  return engine.GetElementState(he, &state) == HLDOM_OK && (state & STATE_PRESSED) != 0;
}

BOOL HLCALLBACK releaseOne(HELEMENT he, LPVOID param) {
  auto& engine = *static_cast<DomEngine*>(param);
  if (isPressed(engine, he)) engine.SetElementState(he, 0, STATE_PRESSED, FALSE);
  return FALSE;
}

// The button goes up: the element pressed before is released wherever it is.
void releasePressed(DomEngine& engine, HWND hwnd) {
  HELEMENT root = nullptr;
  if (engine.GetRootElement(hwnd, &root) != HLDOM_OK || root == nullptr) return;
  releaseOne(root, &engine);
  engine.VisitElements(root, nullptr, nullptr, nullptr, &releaseOne, &engine, 0);
}

// A click is a press and a release on the same element.
void buttonUp(DomEngine& engine, HWND hwnd, LPARAM lParam) {
  HELEMENT target = clickTargetAt(engine, hwnd, lParam);
  const bool click = target != nullptr && isPressed(engine, target);
  releasePressed(engine, hwnd);
  if (!click) return;
  engine.click(target);
  engine.pumpPosted();
}

struct FirstMatch {
  HELEMENT he = nullptr;
};

BOOL HLCALLBACK takeFirst(HELEMENT he, LPVOID param) {
  static_cast<FirstMatch*>(param)->he = he;
  return TRUE;
}

VOID HLCALLBACK appendText(LPCWSTR text, UINT length, LPVOID param) {
  static_cast<std::wstring*>(param)->append(text, length);
}

LRESULT locate(DomEngine& engine, HWND hwnd, AutomationQuery* query) {
  HELEMENT root = nullptr;
  if (query == nullptr || query->selector == nullptr || engine.GetRootElement(hwnd, &root) != HLDOM_OK ||
      root == nullptr)
    return 0;
  FirstMatch match;
  if (engine.SelectElementsW(root, query->selector, &takeFirst, &match) != HLDOM_OK || match.he == nullptr) return 0;
  RECT box{0, 0, 0, 0};
  engine.GetElementLocation(match.he, &box, ROOT_RELATIVE | BORDER_BOX);
  BOOL visible = FALSE;
  engine.IsElementVisible(match.he, &visible);
  query->rect = AutomationRect{box.left, box.top, box.right, box.bottom};
  query->visible = visible != FALSE && box.right > box.left && box.bottom > box.top;
  if (query->text != nullptr && query->textCapacity > 0) {
    std::wstring text;
    engine.GetElementInnerTextCB(match.he, &appendText, &text);
    const std::size_t length = std::min<std::size_t>(text.size(), query->textCapacity - 1);
    text.copy(query->text, length);
    query->text[length] = L'\0';
  }
  return 1;
}

}  // namespace

LRESULT answerInput(DomEngine& engine, HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam, bool& handled) {
  handled = true;
  switch (msg) {
    case WM_MOUSEMOVE:
      engine.setHover(hwnd, elementAt(engine, hwnd, lParam));
      return 0;
    case WM_LBUTTONDOWN:
      releasePressed(engine, hwnd);
      if (HELEMENT under = elementAt(engine, hwnd, lParam)) engine.mouse(hwnd, MOUSE_DOWN, under, pointOf(lParam));
      if (HELEMENT target = clickTargetAt(engine, hwnd, lParam)) engine.SetElementState(target, STATE_PRESSED, 0, TRUE);
      return 0;
    case WM_LBUTTONUP:
      if (HELEMENT under = elementAt(engine, hwnd, lParam)) engine.mouse(hwnd, MOUSE_UP, under, pointOf(lParam));
      buttonUp(engine, hwnd, lParam);
      return 0;
    case WM_KEYDOWN:
      engine.key(hwnd, KEY_DOWN, static_cast<UINT>(wParam), 0);
      engine.pumpPosted();
      return 0;
    case WM_KEYUP:
      engine.key(hwnd, KEY_UP, static_cast<UINT>(wParam), 0);
      engine.pumpPosted();
      return 0;
    case WM_CHAR:
      engine.key(hwnd, KEY_CHAR, static_cast<UINT>(wParam), 0);
      engine.pumpPosted();
      return 0;
    case WM_RBUTTONDOWN:
      // A press elsewhere dismisses the open popups, as a menu does.
      engine.closePopupsOutside(hwnd, elementAt(engine, hwnd, lParam));
      return 0;
    case WM_RBUTTONUP:
      if (HELEMENT under = elementAt(engine, hwnd, lParam)) engine.contextMenu(hwnd, under, pointOf(lParam));
      engine.pumpPosted();
      return 0;
    case kWmAutomationLocate:
      return locate(engine, hwnd, reinterpret_cast<AutomationQuery*>(lParam));
    case kWmAutomationRender: {
      const auto* path = reinterpret_cast<const wchar_t*>(lParam);
      return path != nullptr && engine.renderWindowPng(hwnd, platform::toUtf8(path)) ? 1 : 0;
    }
    case kWmAutomationAdvance:
      engine.tick(static_cast<UINT>(wParam));
      engine.pumpPosted();
      return 1;
    default:
      handled = false;
      return 0;
  }
}

}  // namespace kvt1::html
