#pragma once
// Writes elements back as markup: the page as the dialogs read it (outer and
// inner HTML), the standard HTML snapshot that the layout provider lays out,
// and the text of an element.
#include <cstdint>
#include <map>
#include <string>

#include "htmlui/engine/DomTree.h"

namespace kvt1::html {

std::wstring writeOuterHtml(const Element& element, const DomTree& tree);
std::wstring writeInnerHtml(const Element& element, const DomTree& tree);

// Every element carries kvt1-node="N"; runtime styles are merged into
// "style", states become "kvt1-..." classes, and imported style sheets
// (by URI) stand in place of their @import rules. Shown popups (by element
// number) are placed absolutely at their positions. The library's
// "foreground-image" is drawn as a background image at the left; a colour
// item's recoloured icon ("foreground-image-transformation"
// "color-schema(colour,...)") becomes a swatch of that colour.
std::wstring writeLayoutHtml(const Element& root, const DomTree& tree,
                             const std::map<std::wstring, std::wstring>& importedStyles,
                             const std::map<std::uint32_t, POINT>* popupPositions = nullptr);

// The text of the element's descendants in document order, without the
// content of style and script elements.
std::wstring innerText(const Element& element);

}  // namespace kvt1::html
