// The right button: a context-menu request that the page may answer, else
// the menu that the style "context-menu" names, opened at the pointer.
#include "htmlui/engine/DomEngine.h"
#include "htmlui/engine/InlineStyle.h"
#include "platform/CaseFolding.h"

namespace kvt1::html {
namespace {

BOOL HLCALLBACK takeFirstElement(HELEMENT he, LPVOID param) {
  *static_cast<HELEMENT*>(param) = he;
  return TRUE;
}

// "selector(menu#id)" without its function name; empty for any other value.
std::wstring selectorOf(const std::wstring& value) {
  const std::wstring prefix = L"selector(";
  if (value.size() <= prefix.size() + 1 || platform::asciiLowerCase(value.substr(0, prefix.size())) != prefix ||
      value.back() != L')')
    return {};
  return value.substr(prefix.size(), value.size() - prefix.size() - 1);
}

}  // namespace

Element* DomEngine::contextMenuOf(Element& e) {
  for (Element* p = &e; p != nullptr; p = p->parent) {
    const std::optional<std::wstring> style = effectiveStyle(*p, tree_.attributeValue(*p, "style"), "context-menu");
    if (!style) continue;
    const std::wstring selector = selectorOf(*style);
    HELEMENT found = nullptr;
    if (selector.empty() || select(toHandle(p->top()), selector, &takeFirstElement, &found) != HLDOM_OK) return nullptr;
    return element(found);
  }
  return nullptr;
}

bool DomEngine::contextMenu(HWND hwnd, HELEMENT target, POINT pt) {
  View* view = findView(hwnd);
  Element* e = element(target);
  if (view == nullptr || e == nullptr || viewOf(*e) != view) return false;
  contextPoint_ = pt;
  Element* menu = contextMenuOf(*e);
  const std::uint32_t menuNumber = menu != nullptr ? menu->number : 0;
  if (sendBehaviorEvent(*e, CONTEXT_MENU_REQUEST, menu, BY_MOUSE_CLICK)) return true;
  menu = tree_.find(menuNumber);
  view = findView(hwnd);
  if (menu == nullptr || view == nullptr || viewOf(*menu) != view) return false;
  DomPopups::Place place;
  place.point = pt;
  showPopup(*menu, nullptr, place);
  return true;
}

}  // namespace kvt1::html
