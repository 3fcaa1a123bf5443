#pragma once
// The declarations of a "style" attribute ("name: value; ..."), and the
// style of an element as the engine sees it: runtime styles over inline ones.
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "htmlui/engine/DomElement.h"

namespace kvt1::html {

using StyleDeclarations = std::vector<std::pair<std::string, std::wstring>>;

// Names lowered, values trimmed; declarations without a name or value are dropped.
StyleDeclarations parseInlineStyle(std::wstring_view text);
std::wstring writeInlineStyle(const StyleDeclarations& declarations);

// The runtime value of a property, else the inline one; none when neither is set.
std::optional<std::wstring> effectiveStyle(const Element& element, const std::wstring* inlineStyle,
                                           std::string_view name);

// The inline declarations with the runtime styles set over them.
StyleDeclarations mergedStyle(const Element& element, const std::wstring* inlineStyle);

}  // namespace kvt1::html
