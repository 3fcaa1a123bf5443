#pragma once
// The path queries the reader answers: steps separated by "/", each an
// element name or "*" with an optional predicate [@name='value'] or [@name],
// a leading "/" for a path from the document node, and an optional last step
// "@name" that names an attribute of the element found.
#include <string_view>
#include <vector>

namespace kvt1 {

struct XmlPathStep {
  std::wstring_view name;                // "*" for any element
  std::wstring_view predicateAttribute;  // empty: no predicate
  std::wstring_view predicateValue;
  bool predicateHasValue = false;

  bool anyName() const { return name == L"*"; }
};

struct XmlPath {
  bool absolute = false;
  std::vector<XmlPathStep> steps;
  std::wstring_view attribute;  // from a last step "@name"; empty if none
};

// Splits text into path (whose views point into text). False for a path
// outside the supported forms, which then matches nothing.
bool parseXmlPath(std::wstring_view text, XmlPath& path);

}  // namespace kvt1
