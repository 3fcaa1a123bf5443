#include "text/XmlAttributes.h"

#include <cstddef>

#include "text/XmlSyntax.h"

namespace kvt1 {

bool findXmlAttribute(std::wstring_view tag, std::wstring_view name, std::wstring_view& rawValue) {
  const std::size_t size = tag.size();
  std::size_t pos = tag.empty() ? 0 : 1 + xmlNameLength(tag, 1);
  for (;;) {
    pos = skipXmlSpace(tag, pos);
    if (pos >= size || tag[pos] == L'>' || tag[pos] == L'<') return false;
    const std::size_t nameLength = xmlNameLength(tag, pos);
    const std::wstring_view attribute = tag.substr(pos, nameLength);
    pos = skipXmlSpace(tag, pos + (nameLength > 0 ? nameLength : 1));
    if (nameLength == 0) continue;
    std::wstring_view value;
    if (pos < size && tag[pos] == L'=') {
      pos = skipXmlSpace(tag, pos + 1);
      if (pos < size && (tag[pos] == L'"' || tag[pos] == L'\'')) {
        std::size_t close = tag.find(tag[pos], pos + 1);
        if (close == std::wstring_view::npos) close = size;
        value = tag.substr(pos + 1, close - pos - 1);
        pos = close + 1;
      } else {
        const std::size_t start = pos;
        while (pos < size && !isXmlSpace(tag[pos]) && tag[pos] != L'>' && tag[pos] != L'<') ++pos;
        value = tag.substr(start, pos - start);
      }
    }
    if (attribute == name) {
      rawValue = value;
      return true;
    }
  }
}

}  // namespace kvt1
