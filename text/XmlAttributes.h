#pragma once
// Reading attributes out of a start tag.
#include <string_view>

namespace kvt1 {

// Finds the attribute name in tag (a whole start tag, "<" to ">") and gives
// its raw value: the text between the quotes, or for an unquoted value the
// text up to the next space. An attribute written without "=" has an empty
// value. False when the tag has no such attribute.
bool findXmlAttribute(std::wstring_view tag, std::wstring_view name, std::wstring_view& rawValue);

}  // namespace kvt1
