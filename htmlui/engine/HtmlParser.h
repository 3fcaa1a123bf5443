#pragma once
// Reads the engine's markup dialect into element trees: "<menu.context>" and
// "<div .details #main>" give class and id, "|type" and "(name)" give the
// input type and name; void elements, raw style and script text, decoded
// entities, and tags left open are closed where the next one implies it.
// Never fails: any text gives some tree.
#include <string_view>
#include <vector>

#include "htmlui/engine/DomTree.h"

namespace kvt1::html {

// Nesting deeper than this continues as siblings, so that every walk of a
// tree stays shallow whatever the input.
constexpr std::size_t kMaxNesting = 256;

// The top-level nodes of text; their elements have no parent.
std::vector<Node> parseHtml(std::wstring_view text, DomTree& tree);

bool isVoidElement(std::string_view tag);
bool isRawTextElement(std::string_view tag);

}  // namespace kvt1::html
