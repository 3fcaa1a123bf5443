#include "text/XmlPath.h"

#include <cstddef>

#include "text/XmlSyntax.h"

namespace kvt1 {
namespace {

constexpr std::size_t npos = std::wstring_view::npos;

bool isValidName(std::wstring_view name) {
  return !name.empty() && xmlNameLength(name, 0) == name.size() && name.find(L'[') == npos && name.find(L']') == npos;
}

// Reads "[@name]" or "[@name='value']" starting at pos ("["); returns the
// offset after "]" or npos.
std::size_t parsePredicate(std::wstring_view text, std::size_t pos, XmlPathStep& step) {
  pos = skipXmlSpace(text, pos + 1);
  if (pos >= text.size() || text[pos] != L'@') return npos;
  const std::size_t nameStart = pos + 1;
  std::size_t nameLength = 0;
  while (nameStart + nameLength < text.size() && text[nameStart + nameLength] != L']' &&
         !isXmlNameEnd(text[nameStart + nameLength])) {
    ++nameLength;
  }
  step.predicateAttribute = text.substr(nameStart, nameLength);
  if (!isValidName(step.predicateAttribute)) return npos;
  pos = skipXmlSpace(text, nameStart + nameLength);
  if (pos < text.size() && text[pos] == L'=') {
    pos = skipXmlSpace(text, pos + 1);
    if (pos >= text.size() || (text[pos] != L'\'' && text[pos] != L'"')) return npos;
    const std::size_t close = text.find(text[pos], pos + 1);
    if (close == npos) return npos;
    step.predicateValue = text.substr(pos + 1, close - pos - 1);
    step.predicateHasValue = true;
    pos = skipXmlSpace(text, close + 1);
  }
  if (pos >= text.size() || text[pos] != L']') return npos;
  return pos + 1;
}

}  // namespace

bool parseXmlPath(std::wstring_view text, XmlPath& path) {
  path = XmlPath{};
  std::size_t pos = 0;
  if (!text.empty() && text[0] == L'/') {
    path.absolute = true;
    pos = 1;
  }
  for (;;) {
    if (pos < text.size() && text[pos] == L'@') {
      path.attribute = text.substr(pos + 1);
      return isValidName(path.attribute);
    }
    XmlPathStep step;
    std::size_t end = pos;
    while (end < text.size() && text[end] != L'/' && text[end] != L'[') ++end;
    step.name = text.substr(pos, end - pos);
    if (!step.anyName() && !isValidName(step.name)) return false;
    if (end < text.size() && text[end] == L'[') {
      end = parsePredicate(text, end, step);
      if (end == npos) return false;
    }
    path.steps.push_back(step);
    if (end == text.size()) return true;
    if (text[end] != L'/') return false;
    pos = end + 1;
  }
}

}  // namespace kvt1
