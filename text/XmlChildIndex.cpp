#include "text/XmlChildIndex.h"

#include "text/XmlAttributes.h"
#include "text/XmlEntities.h"
#include "text/XmlSyntax.h"

namespace kvt1 {

void XmlChildIndex::clear() {
  m_byName.clear();
  m_byAttribute.clear();
}

const XmlChildIndex::List& XmlChildIndex::named(XmlIndex parent, std::wstring_view name, std::wstring_view doc,
                                                const XmlElementTable& table) {
  auto [entry, added] = m_byName.try_emplace(parent);
  if (added) {
    for (XmlIndex child = table[parent].firstChild; child != kXmlNone; child = table[child].nextSibling) {
      const std::size_t start = table[child].start + 1;
      entry->second[doc.substr(start, xmlNameLength(doc, start))].push_back(child);
    }
  }
  const auto found = entry->second.find(name);
  return found != entry->second.end() ? found->second : m_empty;
}

const XmlChildIndex::List& XmlChildIndex::withAttribute(XmlIndex parent, std::wstring_view attribute,
                                                        std::wstring_view value, std::wstring_view doc,
                                                        const XmlElementTable& table) {
  std::wstring key = std::to_wstring(parent);
  key += L'@';
  key += attribute;
  auto [entry, added] = m_byAttribute.try_emplace(std::move(key));
  if (added) {
    for (XmlIndex child = table[parent].firstChild; child != kXmlNone; child = table[child].nextSibling) {
      const XmlElementRecord& record = table[child];
      std::wstring_view raw;
      if (!findXmlAttribute(doc.substr(record.start, record.tagLength), attribute, raw)) continue;
      std::wstring decoded;
      appendXmlDecoded(decoded, raw);
      entry->second[std::move(decoded)].push_back(child);
    }
  }
  const auto found = entry->second.find(std::wstring(value));
  return found != entry->second.end() ? found->second : m_empty;
}

}  // namespace kvt1
