#pragma once
// The behaviours a page's style sheets give its elements ("behavior: name"),
// decided as the cascade decides: the most specific matching rule wins, and
// of equally specific ones the latest.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "htmlui/engine/CssSelector.h"
#include "htmlui/engine/DomAtoms.h"
#include "htmlui/engine/DomElement.h"

namespace kvt1::html {

class StyleBehaviors {
 public:
  // Adds a sheet's rules after those added before. Their names are interned,
  // so the rules also match elements made later.
  void addSheet(std::wstring_view css, AtomTable& atoms);
  // What the sheets declare for element; none when no rule gives it a behaviour.
  std::optional<std::wstring> of(const Element& element) const;
  bool empty() const { return rules_.empty(); }

 private:
  struct Rule {
    Selector selector;
    std::wstring value;
  };
  std::vector<Rule> rules_;
};

}  // namespace kvt1::html
