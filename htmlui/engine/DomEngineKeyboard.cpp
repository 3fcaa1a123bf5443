// Keys go to the focused element, and a TAB that nobody handled moves the
// focus on (back with SHIFT) through the elements that take it; pointer
// presses and releases go to the element under the pointer, and a press that
// nobody handled moves the focus to the nearest element that can take it.
#include <algorithm>
#include <vector>

#include "htmlui/engine/DomEngine.h"
#include "platform/Win32.h"

namespace kvt1::html {
namespace {

bool isFocusable(const DomTree& tree, const Element& e) {
  if (e.tag == "input" || e.tag == "textarea" || e.tag == "select" || e.tag == "button") return true;
  if (e.tag == "a" && tree.attributeValue(e, "href") != nullptr) return true;
  return tree.attributeValue(e, "tabindex") != nullptr;
}

}  // namespace

bool DomEngine::key(HWND hwnd, UINT cmd, UINT code, UINT altState) {
  View* view = findView(hwnd);
  if (view == nullptr) return false;
  Element* target = tree_.find(view->focus);
  if (target == nullptr) target = tree_.find(view->root);
  if (target == nullptr) return false;
  const std::uint32_t n = target->number;
  KEY_PARAMS params{cmd, toHandle(target), code, altState};
  const bool handled = dispatch(*target, HANDLE_KEY, &params.cmd, &params);
  if (handled) return true;
  // A key nobody took moves the focus (TAB) or edits the focused text field.
  if (cmd == KEY_DOWN && code == VK_TAB) {
    tabFocus(hwnd, (altState & SHIFT_KEY_PRESSED) != 0);
  } else {
    editByKey(n, cmd, code);
  }
  return false;
}

void DomEngine::tabFocus(HWND hwnd, bool backwards) {
  View* view = findView(hwnd);
  Element* root = view != nullptr ? tree_.find(view->root) : nullptr;
  if (root == nullptr) return;
  std::vector<Element*> order;
  forEachDescendant(*root, [&](Element& e, std::size_t) {
    if ((e.state & STATE_DISABLED) != 0) return false;
    BOOL visible = FALSE;
    IsElementVisible(toHandle(&e), &visible);
    if (visible == FALSE) return false;
    if (isFocusable(tree_, e)) order.push_back(&e);
    return true;
  });
  if (order.empty()) return;
  const auto at = std::find(order.begin(), order.end(), tree_.find(view->focus));
  std::size_t next = 0;
  if (at == order.end()) {
    next = backwards ? order.size() - 1 : 0;
  } else {
    const std::size_t current = static_cast<std::size_t>(at - order.begin());
    next = backwards ? (current + order.size() - 1) % order.size() : (current + 1) % order.size();
  }
  setFocus(hwnd, toHandle(order[next]));
}

bool DomEngine::mouse(HWND hwnd, UINT cmd, HELEMENT he, POINT pt) {
  View* view = findView(hwnd);
  Element* target = element(he);
  if (view == nullptr || target == nullptr || viewOf(*target) != view) return false;
  const std::uint32_t n = target->number;
  MOUSE_PARAMS params{};
  params.cmd = cmd;
  params.target = he;
  params.pos_document = pt;
  params.pos = pt;
  if (const std::optional<LayoutBox> box = boxOf(*target)) params.pos = POINT{pt.x - box->x, pt.y - box->y};
  params.button_state = MAIN_MOUSE_BUTTON;
  const bool handled = dispatch(*target, HANDLE_MOUSE, &params.cmd, &params);
  if (handled || cmd != MOUSE_DOWN) return handled;
  for (Element* e = tree_.find(n); e != nullptr; e = e->parent) {
    if ((e->state & STATE_DISABLED) != 0) return false;
    if (isFocusable(tree_, *e)) {
      setFocus(hwnd, toHandle(e));
      break;
    }
  }
  return false;
}

}  // namespace kvt1::html
