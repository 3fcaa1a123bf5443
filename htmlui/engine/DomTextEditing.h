#pragma once
// Text editing in inputs of type text (or without a type) and in text
// areas: what a key that no handler took does to the focused element's
// text. The caret stays at the end of the text; "selectAll" selects the
// whole text, so that the next character replaces it and the next deletion
// clears it. The engine announces each edit and applies it.
#include <cstdint>
#include <optional>
#include <set>
#include <string>

#include "htmlui/engine/DomTree.h"

namespace kvt1::html {

class DomTextEditing {
 public:
  struct Edit {
    std::wstring text;  // the whole new text
    UINT reason = 0;    // BY_INS_CHAR, BY_DEL_CHAR or BY_DEL_CHARS
  };

  // What the key (KEY_CHAR or KEY_DOWN) does to e's text; none when e is
  // not an editable text field or the key edits nothing.
  std::optional<Edit> editFor(const Element& e, const DomTree& tree, UINT cmd, UINT code) const;
  // "selectAll" on e; false when e is no text field.
  bool selectAll(const Element& e, const DomTree& tree);
  // An edit or a new text ends the selection.
  void deselect(std::uint32_t element) { selectedAll_.erase(element); }

  static bool isTextField(const Element& e, const DomTree& tree);

 private:
  std::set<std::uint32_t> selectedAll_;  // text fields whose whole text is selected
};

}  // namespace kvt1::html
