// Text editing in inputs of type text (or without a type) and in text areas:
// the default action of a key that no handler took on the focused element.
// The caret stays at the end of the text; "selectAll" selects the whole text,
// so that the next character replaces it and the next deletion clears it.
// Every change is announced with EDIT_VALUE_CHANGING before and
// EDIT_VALUE_CHANGED after it, and lands where ControlGetValue and the layout
// read it: the input's "value" attribute, the text area's text.
#include <cstring>

#include "htmlui/engine/DomEngine.h"
#include "htmlui/engine/HtmlWriter.h"

namespace kvt1::html {
namespace {

constexpr UINT kVkBack = 0x08;
constexpr UINT kVkDelete = 0x2E;

bool isTextField(const Element& e, const DomTree& tree) {
  if (e.tag == "textarea") return true;
  if (e.tag != "input") return false;
  const std::wstring* type = tree.attributeValue(e, "type");
  return type == nullptr || asciiLower(*type) == L"text";
}

bool isEditable(const Element& e, const DomTree& tree) {
  if (!isTextField(e, tree) || (e.state & STATE_READONLY) != 0) return false;
  for (const Element* p = &e; p != nullptr; p = p->parent)
    if ((p->state & STATE_DISABLED) != 0) return false;
  return true;
}

std::wstring fieldText(const Element& e, const DomTree& tree) {
  if (e.tag == "textarea") return innerText(e);
  const std::wstring* value = tree.attributeValue(e, "value");
  return value != nullptr ? *value : std::wstring();
}

}  // namespace

void DomEngine::editByKey(std::uint32_t target, UINT cmd, UINT code) {
  Element* e = tree_.find(target);
  if (e == nullptr || !isEditable(*e, tree_)) return;
  const bool all = selectedAll_.count(target) != 0;
  const std::wstring text = fieldText(*e, tree_);
  std::wstring edited;
  UINT reason = 0;
  if (cmd == KEY_CHAR && code >= 0x20 && code != 0x7F) {
    edited = (all ? std::wstring() : text) + static_cast<wchar_t>(code);
    reason = BY_INS_CHAR;
  } else if (cmd == KEY_DOWN && code == kVkBack && all && !text.empty()) {
    reason = BY_DEL_CHARS;
  } else if (cmd == KEY_DOWN && code == kVkBack && !text.empty()) {
    edited = text.substr(0, text.size() - 1);
    reason = BY_DEL_CHAR;
  } else if (cmd == KEY_DOWN && code == kVkDelete && all && !text.empty()) {
    reason = BY_DEL_CHARS;
  } else {
    return;
  }
  sendBehaviorEvent(*e, EDIT_VALUE_CHANGING, e, reason);
  e = tree_.find(target);  // a handler may have taken it out
  if (e == nullptr) return;
  selectedAll_.erase(target);
  if (e->tag == "textarea") {
    SetElementInnerText16(toHandle(e), edited.c_str(), static_cast<UINT>(edited.size()));
  } else {
    tree_.setAttribute(*e, "value", edited);
    changed();
  }
  e = tree_.find(target);
  if (e != nullptr) sendBehaviorEvent(*e, EDIT_VALUE_CHANGED, e, reason);
}

HLDOM_RESULT DomEngine::callEditMethod(Element& e, XCALL_PARAMS& params) {
  if (params.method_name == nullptr || std::strcmp(params.method_name, "selectAll") != 0 ||
      !isTextField(e, tree_))
    return HLDOM_OK_NOT_HANDLED;
  selectedAll_.insert(e.number);
  return HLDOM_OK;
}

}  // namespace kvt1::html
