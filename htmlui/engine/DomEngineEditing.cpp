// Text editing in the engine: the edit that DomTextEditing works out for a
// key is announced with EDIT_VALUE_CHANGING before and EDIT_VALUE_CHANGED
// after it, and lands where ControlGetValue and the layout read it: the
// input's "value" attribute, the text area's text.
#include <cstring>

#include "htmlui/engine/DomEngine.h"

namespace kvt1::html {

void DomEngine::editByKey(std::uint32_t target, UINT cmd, UINT code) {
  Element* e = tree_.find(target);
  if (e == nullptr) return;
  const std::optional<DomTextEditing::Edit> edit = editing_.editFor(*e, tree_, cmd, code);
  if (!edit) return;
  sendBehaviorEvent(*e, EDIT_VALUE_CHANGING, e, edit->reason);
  e = tree_.find(target);  // a handler may have taken it out
  if (e == nullptr) return;
  editing_.deselect(target);
  if (e->tag == "textarea") {
    SetElementInnerText16(toHandle(e), edit->text.c_str(), static_cast<UINT>(edit->text.size()));
  } else {
    tree_.setAttribute(*e, "value", edit->text);
    changed();
  }
  e = tree_.find(target);
  if (e != nullptr) sendBehaviorEvent(*e, EDIT_VALUE_CHANGED, e, edit->reason);
}

HLDOM_RESULT DomEngine::callEditMethod(Element& e, XCALL_PARAMS& params) {
  if (params.method_name == nullptr || std::strcmp(params.method_name, "selectAll") != 0 ||
      !editing_.selectAll(e, tree_))
    return HLDOM_OK_NOT_HANDLED;
  return HLDOM_OK;
}

}  // namespace kvt1::html
