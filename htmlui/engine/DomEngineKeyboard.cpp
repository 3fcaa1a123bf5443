// Keys go to the focused element; pointer presses and releases go to the
// element under the pointer, and a press that nobody handled moves the focus
// to the nearest element that can take it.
#include "htmlui/engine/DomEngine.h"

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
  KEY_PARAMS params{cmd, toHandle(target), code, altState};
  return dispatch(*target, HANDLE_KEY, &params.cmd, &params);
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
