#include "htmlui/engine/DomEngine.h"

#include <algorithm>

#include "htmlui/engine/DomEngineInput.h"
#include "htmlui/engine/HtmlParser.h"
#include "htmlui/engine/HtmlWriter.h"
#include "htmlui/engine/InlineStyle.h"
#include "htmlui/engine/PageText.h"
#include "platform/CaseFolding.h"
#include "platform/Unicode.h"
#include "platform/Win32.h"

namespace kvt1::html {
namespace {

constexpr UINT kTransientStates = STATE_FOCUS | STATE_HOVER | STATE_POPUP | STATE_OWNS_POPUP;

bool isBlank(const std::wstring& text) {
  return std::all_of(text.begin(), text.end(),
                     [](wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n'; });
}

}  // namespace

DomEngine::DomEngine() = default;
// Handlers are not called here: their objects may already be gone.
DomEngine::~DomEngine() = default;

DomEngine::View* DomEngine::findView(HWND hwnd) {
  const auto found = views_.find(hwnd);
  return found != views_.end() ? &found->second : nullptr;
}

DomEngine::View& DomEngine::ensureView(HWND hwnd) {
  View& view = views_[hwnd];
  view.hwnd = hwnd;
  return view;
}

DomEngine::View* DomEngine::viewOf(const Element& e) {
  const Element* top = e.top();
  return top->view != nullptr ? findView(top->view) : nullptr;
}

void DomEngine::collect(Element& top, bool force) {
  if (top.parent != nullptr && !top.parent->dying) tree_.remove(top);
  std::vector<Element*> doomed;
  std::vector<Element*> pending{&top};
  while (!pending.empty()) {
    Element* e = pending.back();
    pending.pop_back();
    doomed.push_back(e);
    // Children still in use live on, detached.
    for (const Node& node : tree_.takeChildren(*e))
      if (node.element != nullptr && (force || node.element->useCount == 0)) pending.push_back(node.element);
  }
  for (Element* e : doomed) e->dying = true;
  for (Element* e : doomed) {
    const std::vector<HandlerEntry> handlers = std::move(e->handlers);
    for (const HandlerEntry& h : handlers)
      if ((h.subscription & DISABLE_INITIALIZATION) == 0) initialize(h.proc, h.tag, toHandle(e), BEHAVIOR_DETACH);
  }
  for (Element* e : doomed) {
    const std::uint32_t n = e->number;
    timers_.forget(n);
    popups_.forget(n);
    editing_.deselect(n);
    for (auto& [hwnd, view] : views_) {
      if (view.root == n) view.root = 0;
      if (view.focus == n) view.focus = 0;
      if (view.hover == n) view.hover = 0;
    }
  }
  for (Element* e : doomed) tree_.erase(e);
  changed();
}

void DomEngine::initialStates(Element& top) {
  struct Marker {
    Atom key;
    UINT states;
  };
  const Marker markers[] = {{tree_.attributeKey("checked"), STATE_CHECKED},
                            {tree_.attributeKey("selected"), STATE_CHECKED | STATE_CURRENT},
                            {tree_.attributeKey("disabled"), STATE_DISABLED},
                            {tree_.attributeKey("readonly"), STATE_READONLY}};
  const auto apply = [&](Element& e) {
    for (const Marker& marker : markers)
      if ((e.attributeMask & atomBit(marker.key)) != 0 && e.attribute(marker.key) != nullptr) e.state |= marker.states;
  };
  apply(top);
  forEachDescendant(top, [&](Element& e, std::size_t) {
    apply(e);
    return true;
  });
}

void DomEngine::installPage(View& view, std::vector<Node> nodes) {
  Element* html = nullptr;
  for (const Node& node : nodes)
    if (html == nullptr && node.element != nullptr && node.element->tag == "html") html = node.element;
  if (html != nullptr) {
    for (const Node& node : nodes)
      if (node.element != nullptr && node.element != html) collect(*node.element, true);
  } else {
    html = tree_.create("html");
    Element* body = nullptr;
    for (Node& node : nodes) {
      Element* e = node.element;
      if (e != nullptr && (e->tag == "head" || (e->tag == "body" && body == nullptr))) {
        if (e->tag == "body") body = e;
        tree_.append(*html, std::move(node));
        continue;
      }
      if (e == nullptr && body == nullptr && isBlank(node.text)) continue;
      if (body == nullptr) {
        body = tree_.create("body");
        tree_.append(*html, Node{body, {}});
      }
      tree_.append(*body, std::move(node));
    }
  }
  html->view = view.hwnd;
  view.root = html->number;
}

BOOL DomEngine::LoadHtmlEx(HWND hwnd, LPCBYTE html, UINT htmlSize, LPCWSTR baseUrl) {
  if (hwnd == nullptr || (html == nullptr && htmlSize != 0)) return FALSE;
  View& view = ensureView(hwnd);
  if (Element* old = tree_.find(view.root)) {
    old->view = nullptr;
    view.root = 0;
    collect(*old, false);
  }
  view.importedStyles.clear();
  view.pictures.clear();
  view.sheetBehaviors = StyleBehaviors();
  view.baseUrl = baseUrl != nullptr ? baseUrl : L"";
  installPage(view, parseHtml(decodePageBytes(html, htmlSize), tree_));
  startClock(view);
  Element* root = tree_.find(view.root);
  initialStates(*root);
  changed();
  loadResources(view);
  if (View* loaded = findView(hwnd)) gatherStyleBehaviors(*loaded);
  if (Element* page = tree_.find(view.root)) attachBehaviors(*page);
  NMHDR loaded{hwnd, 0, HLN_DOCUMENT_LOADED};
  notify(hwnd, loaded);
  NMHDR complete{hwnd, 0, HLN_DOCUMENT_COMPLETE};
  notify(hwnd, complete);
  return TRUE;
}

VOID DomEngine::SetCallback(HWND hwnd, LPHTMLAYOUT_NOTIFY cb, LPVOID cbParam) {
  if (hwnd == nullptr) return;
  View& view = ensureView(hwnd);
  view.callback = cb;
  view.callbackParam = cbParam;
}

LRESULT DomEngine::ProcND(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam, BOOL* pbHandled) {
  if (pbHandled != nullptr) *pbHandled = FALSE;
  if (hwnd == nullptr) return 0;
  if (msg == WM_SIZE) {
    setViewSize(hwnd, static_cast<int>(lParam & 0xFFFF), static_cast<int>((lParam >> 16) & 0xFFFF));
    return 0;
  }
  // The window is gone: so is its page (elements still in use stay valid, detached).
  if (msg == WM_NCDESTROY) {
    closeView(hwnd);
    return 0;
  }
  LRESULT answer = 0;
  if (answerWindow(hwnd, msg, wParam, answer)) {
    if (pbHandled != nullptr) *pbHandled = TRUE;
    return answer;
  }
  bool handled = false;
  const LRESULT result = answerInput(*this, hwnd, msg, wParam, lParam, handled);
  if (pbHandled != nullptr) *pbHandled = handled ? TRUE : FALSE;
  return result;
}

void DomEngine::closeView(HWND hwnd) {
  View* view = findView(hwnd);
  if (view == nullptr) return;
  if (Element* root = tree_.find(view->root)) {
    root->view = nullptr;
    view->root = 0;
    collect(*root, false);
  }
  views_.erase(hwnd);
  timers_.forgetView(hwnd);
  if (laidOutView_ == hwnd) laidOutView_ = nullptr;
}

HLDOM_RESULT DomEngine::GetRootElement(HWND hwnd, HELEMENT* phe) {
  if (phe == nullptr) return HLDOM_INVALID_PARAMETER;
  View* view = findView(hwnd);
  if (view == nullptr) return HLDOM_INVALID_HWND;
  *phe = toHandle(tree_.find(view->root));
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::GetParentElement(HELEMENT he, HELEMENT* pParent) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (pParent == nullptr) return HLDOM_INVALID_PARAMETER;
  *pParent = toHandle(e->parent);
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::GetNthChild(HELEMENT he, UINT n, HELEMENT* phe) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (phe == nullptr) return HLDOM_INVALID_PARAMETER;
  *phe = toHandle(e->elementChild(n));
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::GetChildrenCount(HELEMENT he, UINT* count) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (count == nullptr) return HLDOM_INVALID_PARAMETER;
  *count = static_cast<UINT>(e->elementCount());
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::GetElementIndex(HELEMENT he, LPUINT pIndex) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (pIndex == nullptr) return HLDOM_INVALID_PARAMETER;
  *pIndex = static_cast<UINT>(e->elementIndex());
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::GetElementType(HELEMENT he, LPCSTR* pType) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (pType == nullptr) return HLDOM_INVALID_PARAMETER;
  *pType = e->tag.c_str();
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::GetElementHwnd(HELEMENT he, HWND* pHwnd, BOOL rootWindow) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (pHwnd == nullptr) return HLDOM_INVALID_PARAMETER;
  View* view = viewOf(*e);
  *pHwnd = view != nullptr ? view->hwnd : nullptr;
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::GetElementState(HELEMENT he, UINT* pStateBits) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (pStateBits == nullptr) return HLDOM_INVALID_PARAMETER;
  *pStateBits = e->state;
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::SetElementState(HELEMENT he, UINT bitsToSet, UINT bitsToClear, BOOL updateView) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  e->state = (e->state & ~bitsToClear) | bitsToSet;
  changed();
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::GetAttributeByName(HELEMENT he, LPCSTR name, LPCWSTR* pValue) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (name == nullptr || pValue == nullptr) return HLDOM_INVALID_PARAMETER;
  const std::wstring* value = tree_.attributeValue(*e, name);
  *pValue = value != nullptr ? value->c_str() : nullptr;
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::SetAttributeByName(HELEMENT he, LPCSTR name, LPCWSTR value) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (name == nullptr || *name == '\0') return HLDOM_INVALID_PARAMETER;
  if (value == nullptr)
    tree_.removeAttribute(*e, name);
  else
    tree_.setAttribute(*e, name, value);
  changed();
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::GetStyleAttribute(HELEMENT he, LPCSTR name, LPCWSTR* pValue) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (name == nullptr || pValue == nullptr) return HLDOM_INVALID_PARAMETER;
  e->styleAnswer = effectiveStyle(*e, tree_.attributeValue(*e, "style"), name).value_or(std::wstring());
  *pValue = e->styleAnswer.c_str();
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::SetStyleAttribute(HELEMENT he, LPCSTR name, LPCWSTR value) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (name == nullptr || *name == '\0') return HLDOM_INVALID_PARAMETER;
  const std::string key = platform::asciiLowerCase(name);
  auto& styles = e->runtimeStyles;
  const auto found = std::find_if(styles.begin(), styles.end(), [&](const auto& s) { return s.first == key; });
  if (value == nullptr || *value == L'\0') {
    if (found != styles.end()) styles.erase(found);
  } else if (found != styles.end()) {
    found->second = value;
  } else {
    styles.emplace_back(key, value);
  }
  changed();
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::UseElement(HELEMENT he) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  ++e->useCount;
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::UnuseElement(HELEMENT he) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (e->useCount == 0) return HLDOM_PASSIVE_HANDLE;
  if (--e->useCount == 0) {
    Element* top = e->top();
    if (top->view == nullptr && top->useCount == 0) collect(*top, false);
  }
  return HLDOM_OK;
}

Element* DomEngine::cloneTree(const Element& source) {
  Element* copy = tree_.create(source.tag);
  for (const Attribute& a : source.attributes) tree_.setAttribute(*copy, a.name, a.value);
  copy->runtimeStyles = source.runtimeStyles;
  copy->state = source.state & ~kTransientStates;
  for (const Node& node : source.children)
    tree_.append(*copy, Node{node.element != nullptr ? cloneTree(*node.element) : nullptr, node.text});
  return copy;
}

HLDOM_RESULT DomEngine::CreateElement(LPCSTR tagName, LPCWSTR textOrNull, HELEMENT* phe) {
  if (tagName == nullptr || *tagName == '\0' || phe == nullptr) return HLDOM_INVALID_PARAMETER;
  Element* e = tree_.create(tagName);
  if (textOrNull != nullptr && *textOrNull != L'\0') tree_.append(*e, Node{nullptr, textOrNull});
  e->useCount = 1;
  *phe = toHandle(e);
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::CloneElement(HELEMENT he, HELEMENT* phe) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (phe == nullptr) return HLDOM_INVALID_PARAMETER;
  Element* copy = cloneTree(*e);
  copy->useCount = 1;
  *phe = toHandle(copy);
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::InsertElement(HELEMENT he, HELEMENT hParent, UINT index) {
  Element* e = element(he);
  Element* parent = element(hParent);
  if (e == nullptr || parent == nullptr) return HLDOM_INVALID_HANDLE;
  if (e == parent || e->isAncestorOf(parent) || e->view != nullptr) return HLDOM_INVALID_PARAMETER;
  tree_.remove(*e);
  Element* before = parent->elementChild(index);
  tree_.insert(*parent, before != nullptr ? parent->nodePosition(before) : parent->children.size(), {Node{e, {}}});
  changed();
  attachBehaviors(*e);
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::DetachElement(HELEMENT he) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (e->view != nullptr) return HLDOM_OPERATION_FAILED;
  tree_.remove(*e);
  changed();
  if (e->useCount == 0) collect(*e, false);
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::DeleteElement(HELEMENT he) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (View* view = e->view != nullptr ? findView(e->view) : nullptr) view->root = 0;
  e->view = nullptr;
  tree_.remove(*e);
  collect(*e, true);
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::SwapElements(HELEMENT he1, HELEMENT he2) {
  Element* a = element(he1);
  Element* b = element(he2);
  if (a == nullptr || b == nullptr) return HLDOM_INVALID_HANDLE;
  if (a == b) return HLDOM_OK;
  if (a->parent == nullptr || b->parent == nullptr || a->isAncestorOf(b) || b->isAncestorOf(a))
    return HLDOM_INVALID_PARAMETER;
  tree_.swap(*a, *b);
  changed();
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::UpdateElement(HELEMENT he, BOOL remeasure) {
  if (element(he) == nullptr) return HLDOM_INVALID_HANDLE;
  changed();
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::UpdateElementEx(HELEMENT he, UINT flags) { return UpdateElement(he, TRUE); }

}  // namespace kvt1::html
