#pragma once
// What the tooltip of an element belongs to, found in the dialog's order:
//   1. the element or an ancestor with "SELFTOOLTIP" or "SELFIMAGETOOLTIP"
//      shows its own tooltip;
//   2. otherwise the nearest ancestor with an "id" names the control, and a
//      sub-item of it, when there is one, is named by its "FPID": the row
//      ("tr") inside a ".PropertyCtrl", the chosen option inside a "select",
//      the item inside "div.PushButtonMenuCtrl" or "div[toolbar]" (the
//      nearest "[FPID]"), inside "div.DataGridView" ("div[FPID]") or inside
//      ".Tree" ("[FPID]");
//   3. the nearest element with "ContextID" gives a key.
// Everything found is kept; the dialog decides which of it answers.
#include <cstdint>
#include <optional>
#include <string>

#include "htmlui/CHTMElement.h"

namespace kvt1 {

struct STooltipTarget {
  // Step 1: the element that shows its own text ("SELFTOOLTIP") or image ("SELFIMAGETOOLTIP").
  CHTMElement self;
  bool selfImage = false;
  // Step 2: the control's element and id, and the sub-item with its number.
  CHTMElement control;
  std::wstring controlId;
  CHTMElement item;
  std::optional<std::uint64_t> itemNumber;
  // Step 3: the element with "ContextID" and its value.
  CHTMElement context;
  std::wstring contextKey;
};

STooltipTarget FindTooltipTarget(const CHTMElement& element);

// The tooltip of a "SELFTOOLTIP" element: the attribute's value, or the
// element's own HTML when the value is empty; of a "SELFIMAGETOOLTIP"
// element: an image of the attribute's value, or of the element's "src".
std::wstring SelfTooltipHtml(const CHTMElement& self, bool image);

}  // namespace kvt1
