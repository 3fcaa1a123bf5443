#pragma once
// Lookup lists for path queries: the children of an element by name, or by
// the value of one attribute, each list in document order. A list is built on
// the first query that needs it, so that repeated lookups among many siblings
// do not walk them again. Any result is the same as a walk in document order.
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "text/XmlElementTable.h"

namespace kvt1 {

class XmlChildIndex {
 public:
  using List = std::vector<XmlIndex>;

  void clear();

  const List& named(XmlIndex parent, std::wstring_view name, std::wstring_view doc, const XmlElementTable& table);

  // Children whose attribute carries exactly value once references are decoded.
  const List& withAttribute(XmlIndex parent, std::wstring_view attribute, std::wstring_view value,
                            std::wstring_view doc, const XmlElementTable& table);

 private:
  using ByName = std::unordered_map<std::wstring_view, List>;
  using ByValue = std::unordered_map<std::wstring, List>;

  std::unordered_map<XmlIndex, ByName> m_byName;
  // Keyed by the parent's index and the attribute name.
  std::unordered_map<std::wstring, ByValue> m_byAttribute;
  const List m_empty{};
};

}  // namespace kvt1
