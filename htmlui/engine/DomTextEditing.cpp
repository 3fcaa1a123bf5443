#include "htmlui/engine/DomTextEditing.h"

#include "htmlui/engine/HtmlWriter.h"
#include "platform/CaseFolding.h"
#include "platform/Win32.h"

namespace kvt1::html {
namespace {

bool isEditable(const Element& e, const DomTree& tree) {
  if (!DomTextEditing::isTextField(e, tree) || (e.state & STATE_READONLY) != 0) return false;
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

bool DomTextEditing::isTextField(const Element& e, const DomTree& tree) {
  if (e.tag == "textarea") return true;
  if (e.tag != "input") return false;
  const std::wstring* type = tree.attributeValue(e, "type");
  return type == nullptr || platform::asciiLowerCase(*type) == L"text";
}

std::optional<DomTextEditing::Edit> DomTextEditing::editFor(const Element& e, const DomTree& tree, UINT cmd,
                                                            UINT code) const {
  if (!isEditable(e, tree)) return std::nullopt;
  const bool all = selectedAll_.count(e.number) != 0;
  const std::wstring text = fieldText(e, tree);
  if (cmd == KEY_CHAR && code >= 0x20 && code != 0x7F)
    return Edit{(all ? std::wstring() : text) + static_cast<wchar_t>(code), BY_INS_CHAR};
  if (cmd != KEY_DOWN || text.empty()) return std::nullopt;
  if ((code == VK_BACK || code == VK_DELETE) && all) return Edit{std::wstring(), BY_DEL_CHARS};
  if (code == VK_BACK) return Edit{text.substr(0, text.size() - 1), BY_DEL_CHAR};
  return std::nullopt;
}

bool DomTextEditing::selectAll(const Element& e, const DomTree& tree) {
  if (!isTextField(e, tree)) return false;
  selectedAll_.insert(e.number);
  return true;
}

}  // namespace kvt1::html
