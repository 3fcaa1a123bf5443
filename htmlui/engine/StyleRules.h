#pragma once
// The rules of a style sheet: each rule's selector list and declarations, in
// the sheet's order.
#include <string>
#include <string_view>
#include <vector>

#include "htmlui/engine/InlineStyle.h"

namespace kvt1::html {

struct StyleRule {
  std::wstring selectors;  // as written, trimmed
  StyleDeclarations declarations;
};

// Comments are dropped; at-rules (@import, @media, @font-face, ...) are
// skipped whole, so only the sheet's own top-level rules come back.
std::vector<StyleRule> parseStyleRules(std::wstring_view css);

}  // namespace kvt1::html
