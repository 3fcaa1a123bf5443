// Event handlers, the sinking and bubbling walk, posted events, behaviours,
// and what a user's click, focus and pointer do.
#include <algorithm>

#include "htmlui/engine/DomEngine.h"
#include "htmlui/engine/HtmlValue.h"
#include "htmlui/engine/InlineStyle.h"
#include "platform/CaseFolding.h"
#include "platform/Unicode.h"

namespace kvt1::html {
namespace {

bool sameHandler(const HandlerEntry& h, LPELEMENT_EVENT_PROC proc, LPVOID tag) {
  return h.proc == proc && h.tag == tag;
}

bool attached(const std::vector<HandlerEntry>& handlers, const HandlerEntry& h) {
  return std::any_of(handlers.begin(), handlers.end(),
                     [&](const HandlerEntry& other) { return sameHandler(other, h.proc, h.tag); });
}

bool wants(const HandlerEntry& h, UINT group) { return (h.subscription & group) != 0; }

}  // namespace

void DomEngine::initialize(LPELEMENT_EVENT_PROC proc, LPVOID tag, HELEMENT he, UINT cmd) {
  INITIALIZATION_PARAMS params{cmd};
  proc(tag, he, HANDLE_INITIALIZATION, &params);
}

HLDOM_RESULT DomEngine::AttachEventHandlerEx(HELEMENT he, LPELEMENT_EVENT_PROC pep, LPVOID tag, UINT subscription) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (pep == nullptr) return HLDOM_INVALID_PARAMETER;
  for (HandlerEntry& h : e->handlers) {
    if (sameHandler(h, pep, tag)) {
      h.subscription = subscription;
      return HLDOM_OK;
    }
  }
  e->handlers.push_back(HandlerEntry{pep, tag, subscription});
  if ((subscription & DISABLE_INITIALIZATION) == 0) initialize(pep, tag, he, BEHAVIOR_ATTACH);
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::DetachEventHandler(HELEMENT he, LPELEMENT_EVENT_PROC pep, LPVOID tag) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  const auto found = std::find_if(e->handlers.begin(), e->handlers.end(),
                                  [&](const HandlerEntry& h) { return sameHandler(h, pep, tag); });
  if (found == e->handlers.end()) return HLDOM_INVALID_PARAMETER;
  const HandlerEntry removed = *found;
  e->handlers.erase(found);
  if ((removed.subscription & DISABLE_INITIALIZATION) == 0) initialize(pep, tag, he, BEHAVIOR_DETACH);
  return HLDOM_OK;
}

// No handler is ever attached to a window: there is nothing to detach.
HLDOM_RESULT DomEngine::WindowDetachEventHandler(HWND hwnd, LPELEMENT_EVENT_PROC pep, LPVOID tag) {
  return findView(hwnd) == nullptr ? HLDOM_INVALID_HWND : HLDOM_INVALID_PARAMETER;
}

bool DomEngine::callHandlers(std::uint32_t number, UINT group, void* params) {
  Element* e = tree_.find(number);
  if (e == nullptr) return false;
  const std::vector<HandlerEntry> snapshot = e->handlers;
  for (const HandlerEntry& h : snapshot) {
    if (!wants(h, group)) continue;
    e = tree_.find(number);  // an earlier handler may have removed the element or this handler
    if (e == nullptr) return false;
    if (!attached(e->handlers, h)) continue;
    if (h.proc(h.tag, toHandle(e), group, params)) return true;
  }
  return false;
}

bool DomEngine::dispatch(Element& target, UINT group, UINT* cmd, void* params) {
  std::vector<std::uint32_t> path;
  for (const Element* e = &target; e != nullptr; e = e->parent) path.push_back(e->number);
  const UINT plain = *cmd;
  *cmd = plain | SINKING;
  for (auto n = path.rbegin(); n != path.rend(); ++n)
    if (callHandlers(*n, group, params)) return true;
  *cmd = plain;
  for (const std::uint32_t n : path)
    if (callHandlers(n, group, params)) return true;
  return false;
}

bool DomEngine::sendBehaviorEvent(Element& target, UINT code, Element* source, UINT_PTR reason) {
  BEHAVIOR_EVENT_PARAMS params{};
  params.cmd = code;
  params.heTarget = toHandle(&target);
  params.he = toHandle(source);
  params.reason = static_cast<UINT>(reason);
  valueInit(&params.data);
  return dispatch(target, HANDLE_BEHAVIOR_EVENT, &params.cmd, &params);
}

HLDOM_RESULT DomEngine::SendEvent(HELEMENT he, UINT appEventCode, HELEMENT heSource, UINT_PTR reason, BOOL* handled) {
  Element* target = element(he);
  Element* source = heSource != nullptr ? element(heSource) : nullptr;
  if (target == nullptr || (heSource != nullptr && source == nullptr)) return HLDOM_INVALID_HANDLE;
  const bool result = sendBehaviorEvent(*target, appEventCode, source, reason);
  if (handled != nullptr) *handled = result ? TRUE : FALSE;
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::PostEvent(HELEMENT he, UINT appEventCode, HELEMENT heSource, UINT reason) {
  Element* target = element(he);
  Element* source = heSource != nullptr ? element(heSource) : nullptr;
  if (target == nullptr || (heSource != nullptr && source == nullptr)) return HLDOM_INVALID_HANDLE;
  posted_.push_back(PostedEvent{target->number, appEventCode, source != nullptr ? source->number : 0, reason});
  return HLDOM_OK;
}

std::size_t DomEngine::pumpPosted() {
  std::size_t delivered = 0;
  for (std::size_t queued = posted_.size(); queued > 0 && !posted_.empty(); --queued) {
    const PostedEvent event = posted_.front();
    posted_.pop_front();
    Element* target = tree_.find(event.target);
    if (target == nullptr) continue;
    sendBehaviorEvent(*target, event.code, tree_.find(event.source), event.reason);
    ++delivered;
  }
  return delivered;
}

HLDOM_RESULT DomEngine::CallBehaviorMethod(HELEMENT he, METHOD_PARAMS* params) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (params == nullptr) return HLDOM_INVALID_PARAMETER;
  if (callHandlers(e->number, HANDLE_METHOD_CALL, params)) return HLDOM_OK;
  if (params->methodID == DO_CLICK) {
    click(he);
    return HLDOM_OK;
  }
  if (params->methodID == XCALL) return callEditMethod(*e, *static_cast<XCALL_PARAMS*>(params));
  return HLDOM_OK_NOT_HANDLED;
}

std::optional<std::wstring> DomEngine::behaviorNames(const Element& e, const View* view) const {
  if (const std::wstring* attribute = tree_.attributeValue(e, "behavior")) return *attribute;
  if (std::optional<std::wstring> styled = effectiveStyle(e, tree_.attributeValue(e, "style"), "behavior"))
    return styled;
  return view != nullptr ? view->sheetBehaviors.of(e) : std::nullopt;
}

std::optional<std::wstring> DomEngine::behaviorOf(HELEMENT he) {
  Element* e = element(he);
  return e != nullptr ? behaviorNames(*e, viewOf(*e)) : std::nullopt;
}

void DomEngine::attachBehaviors(Element& top) {
  View* view = viewOf(top);
  if (view == nullptr) return;
  const HWND hwnd = view->hwnd;
  std::vector<std::pair<std::uint32_t, std::string>> pending;
  const auto consider = [&](Element& e) {
    if (e.behaviorsAttached) return;
    if (std::optional<std::wstring> names = behaviorNames(e, view))
      pending.emplace_back(e.number, platform::toUtf8(*names));
  };
  consider(top);
  forEachDescendant(top, [&](Element& e, std::size_t) {
    consider(e);
    return true;
  });
  for (const auto& [n, names] : pending) {
    Element* e = tree_.find(n);
    if (e == nullptr) continue;
    e->behaviorsAttached = true;
    std::size_t pos = 0;
    while (pos < names.size()) {
      const std::size_t end = std::min(names.find_first_of(" ,\t", pos), names.size());
      const std::string name = names.substr(pos, end - pos);
      pos = end + 1;
      if (name.empty()) continue;
      NMHL_ATTACH_BEHAVIOR request{};
      request.hdr = NMHDR{hwnd, 0, HLN_ATTACH_BEHAVIOR};
      request.element = toHandle(e);
      request.behaviorName = name.c_str();
      notify(hwnd, request.hdr);
      if (tree_.find(n) == nullptr) break;
      if (request.elementProc != nullptr)
        AttachEventHandlerEx(toHandle(e), request.elementProc, request.elementTag, request.elementEvents);
    }
  }
}

bool DomEngine::click(HELEMENT he) {
  Element* e = element(he);
  if (e == nullptr) return false;
  for (const Element* p = e; p != nullptr; p = p->parent)
    if ((p->state & STATE_DISABLED) != 0) return false;
  const std::uint32_t n = e->number;
  if (e->tag == "input") {
    const std::wstring* typeValue = tree_.attributeValue(*e, "type");
    const std::wstring type = typeValue != nullptr ? platform::asciiLowerCase(*typeValue) : L"text";
    if (type == L"checkbox" || type == L"radio") {
      if (type == L"checkbox") {
        e->state ^= STATE_CHECKED;
      } else {
        const std::wstring* name = tree_.attributeValue(*e, "name");
        if (name != nullptr) {
          forEachDescendant(*e->top(), [&](Element& other, std::size_t) {
            const std::wstring* otherName = tree_.attributeValue(other, "name");
            if (&other != e && other.tag == "input" && otherName != nullptr && *otherName == *name)
              other.state &= ~STATE_CHECKED;
            return true;
          });
        }
        e->state |= STATE_CHECKED;
      }
      changed();
      sendBehaviorEvent(*e, BUTTON_STATE_CHANGED, e, BY_MOUSE_CLICK);
      e = tree_.find(n);
      if (e == nullptr) return false;
    }
  }
  if (e->tag == "a" && tree_.attributeValue(*e, "href") != nullptr)
    return sendBehaviorEvent(*e, HYPERLINK_CLICK, e, BY_MOUSE_CLICK);
  for (Element* item = e; item != nullptr; item = item->parent) {
    if (item->tag != "li") continue;
    for (const Element* p = item->parent; p != nullptr; p = p->parent)
      if (p->tag == "menu" || (p->state & STATE_POPUP) != 0) return clickMenuItem(*item);
    break;
  }
  return sendBehaviorEvent(*e, BUTTON_CLICK, e, BY_MOUSE_CLICK);
}

bool DomEngine::setFocus(HWND hwnd, HELEMENT he) {
  View* view = findView(hwnd);
  Element* focus = he != nullptr ? element(he) : nullptr;
  if (view == nullptr || (he != nullptr && (focus == nullptr || viewOf(*focus) != view))) return false;
  Element* old = tree_.find(view->focus);
  if (old == focus) return true;
  view->focus = focus != nullptr ? focus->number : 0;
  const std::uint32_t n = focus != nullptr ? focus->number : 0;
  changed();
  if (old != nullptr) {
    old->state &= ~STATE_FOCUS;
    FOCUS_PARAMS params{FOCUS_LOST, toHandle(old), FALSE, FALSE};
    dispatch(*old, HANDLE_FOCUS, &params.cmd, &params);
  }
  focus = tree_.find(n);
  if (focus != nullptr) {
    focus->state |= STATE_FOCUS;
    FOCUS_PARAMS params{FOCUS_GOT, toHandle(focus), FALSE, FALSE};
    dispatch(*focus, HANDLE_FOCUS, &params.cmd, &params);
  }
  return true;
}

bool DomEngine::setHover(HWND hwnd, HELEMENT he) {
  View* view = findView(hwnd);
  Element* hover = he != nullptr ? element(he) : nullptr;
  if (view == nullptr || (he != nullptr && (hover == nullptr || viewOf(*hover) != view))) return false;
  Element* old = tree_.find(view->hover);
  if (old == hover) return true;
  view->hover = hover != nullptr ? hover->number : 0;
  timers_.hoverMoved(hwnd, view->hover);
  const std::uint32_t n = hover != nullptr ? hover->number : 0;
  changed();
  if (old != nullptr) {
    for (Element* p = old; p != nullptr; p = p->parent) p->state &= ~STATE_HOVER;
    MOUSE_PARAMS params{};
    params.cmd = MOUSE_LEAVE;
    params.target = toHandle(old);
    dispatch(*old, HANDLE_MOUSE, &params.cmd, &params);
  }
  hover = tree_.find(n);
  if (hover != nullptr) {
    for (Element* p = hover; p != nullptr; p = p->parent) p->state |= STATE_HOVER;
    MOUSE_PARAMS params{};
    params.cmd = MOUSE_ENTER;
    params.target = toHandle(hover);
    dispatch(*hover, HANDLE_MOUSE, &params.cmd, &params);
  }
  return true;
}

}  // namespace kvt1::html
