#pragma once
// The "DismissedUpdates" record: {"Products": [p0, p1, ...], "Times": [low0,
// high0, low1, high1, ...]}, each 64-bit dismissal time (seconds since 1970)
// kept as its low and high 32 bits.
#include <cstdint>
#include <map>
#include <string>

namespace Hv::Http {

using DismissedMap = std::map<std::uint32_t, std::int64_t>;

// Fills dismissed from the record's text and answers true; answers false and
// leaves dismissed untouched when the text is not such a record: not JSON,
// product and time counts that differ, or an element that is not a 32-bit
// integer (products unsigned).
bool ReadDismissedUpdates(const std::wstring& text, DismissedMap& dismissed);

// The record for the whole map, products in ascending order.
std::wstring WriteDismissedUpdates(const DismissedMap& dismissed);

}  // namespace Hv::Http
