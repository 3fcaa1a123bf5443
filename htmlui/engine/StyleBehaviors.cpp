#include "htmlui/engine/StyleBehaviors.h"

#include "htmlui/engine/StyleRules.h"

namespace kvt1::html {

void StyleBehaviors::addSheet(std::wstring_view css, AtomTable& atoms) {
  for (const StyleRule& rule : parseStyleRules(css)) {
    const std::wstring* value = nullptr;
    for (const auto& [name, declared] : rule.declarations)
      if (name == "behavior") value = &declared;  // the last declaration wins
    if (value == nullptr) continue;
    if (std::optional<Selector> selector = Selector::compileInterned(rule.selectors, atoms))
      rules_.push_back(Rule{std::move(*selector), *value});
  }
}

std::optional<std::wstring> StyleBehaviors::of(const Element& element) const {
  const Rule* best = nullptr;
  int bestSpecificity = -1;
  for (const Rule& rule : rules_) {
    const int specificity = rule.selector.matchSpecificity(element, element.top());
    if (specificity >= 0 && specificity >= bestSpecificity) {
      best = &rule;
      bestSpecificity = specificity;
    }
  }
  return best != nullptr ? std::optional<std::wstring>(best->value) : std::nullopt;
}

}  // namespace kvt1::html
