#include "text/XmlDocument.h"

#include <cstdint>
#include <utility>
#include <vector>

#include "text/XmlAttributes.h"
#include "text/XmlEntities.h"
#include "text/XmlParser.h"
#include "text/XmlSyntax.h"

namespace kvt1 {
namespace {

constexpr std::size_t npos = std::wstring_view::npos;

bool matchesName(std::wstring_view wanted, std::wstring_view name) {
  return wanted.empty() || wanted == L"*" || wanted == name;
}

}  // namespace

CXmlDocument::CXmlDocument() { parse(); }

bool CXmlDocument::SetDoc(std::wstring text) {
  if (text.size() >= UINT32_MAX) return false;
  m_doc = std::move(text);
  m_report.clear();
  parse();
  return IsWellFormed();
}

void CXmlDocument::parse() {
  m_childIndex.clear();
  parseXmlElements(m_doc, m_table, m_report);
  ResetPos();
}

bool CXmlDocument::IsWellFormed() const {
  const XmlElementRecord& document = m_table[kXmlDocumentNode];
  if (document.flags & XmlElementRecord::kErrorMark) return false;
  return document.firstChild != kXmlNone && m_table[document.firstChild].nextSibling == kXmlNone;
}

void CXmlDocument::ResetPos() {
  m_posParent = kXmlDocumentNode;
  m_pos = kXmlNone;
  m_posChild = kXmlNone;
}

XmlIndex CXmlDocument::findSibling(XmlIndex from, std::wstring_view name) const {
  for (XmlIndex element = from; element != kXmlNone; element = m_table[element].nextSibling) {
    if (matchesName(name, nameOf(element))) return element;
  }
  return kXmlNone;
}

bool CXmlDocument::FindElem(std::wstring_view name) {
  const XmlIndex from = m_pos != kXmlNone ? m_table[m_pos].nextSibling : m_table[m_posParent].firstChild;
  const XmlIndex found = findSibling(from, name);
  if (found == kXmlNone) return false;
  m_pos = found;
  m_posChild = kXmlNone;
  return true;
}

bool CXmlDocument::FindChildElem(std::wstring_view name) {
  if (m_pos == kXmlNone && !FindElem()) return false;
  const XmlIndex from = m_posChild != kXmlNone ? m_table[m_posChild].nextSibling : m_table[m_pos].firstChild;
  const XmlIndex found = findSibling(from, name);
  if (found == kXmlNone) return false;
  m_posChild = found;
  return true;
}

bool CXmlDocument::IntoElem() {
  if (m_pos == kXmlNone) return false;
  m_posParent = m_pos;
  m_pos = m_posChild;
  m_posChild = kXmlNone;
  return true;
}

bool CXmlDocument::OutOfElem() {
  if (m_posParent == kXmlDocumentNode) return false;
  m_posChild = m_pos;
  m_pos = m_posParent;
  m_posParent = m_table[m_posParent].parent;
  return true;
}

std::wstring CXmlDocument::GetTagName() const { return std::wstring(nameOf(m_pos)); }
std::wstring CXmlDocument::GetElemData() const { return dataOf(m_pos); }
std::wstring CXmlDocument::GetChildTagName() const { return std::wstring(nameOf(m_posChild)); }
std::wstring CXmlDocument::GetChildData() const { return dataOf(m_posChild); }

std::wstring CXmlDocument::GetAttrib(std::wstring_view name) const {
  std::wstring value;
  attributeOf(m_pos, name, value);
  return value;
}

std::wstring CXmlDocument::GetData(std::wstring_view path) {
  XmlPath parsed;
  if (!parseXmlPath(path, parsed)) return {};
  const XmlIndex context = parsed.absolute ? kXmlDocumentNode : (m_pos != kXmlNone ? m_pos : m_posParent);
  const XmlIndex found = match(context, parsed);
  if (found == kXmlNone) return {};
  m_posParent = m_table[found].parent;
  m_pos = found;
  m_posChild = kXmlNone;
  if (parsed.attribute.empty()) return dataOf(found);
  std::wstring value;
  attributeOf(found, parsed.attribute, value);
  return value;
}

std::wstring_view CXmlDocument::nameOf(XmlIndex element) const {
  if (element == kXmlNone) return {};
  const std::size_t start = m_table[element].start + 1;
  return std::wstring_view(m_doc).substr(start, xmlNameLength(m_doc, start));
}

std::wstring CXmlDocument::dataOf(XmlIndex element) const {
  if (element == kXmlNone) return {};
  const XmlElementRecord& record = m_table[element];
  if (record.firstChild != kXmlNone || (record.flags & XmlElementRecord::kEmptyTag)) return {};
  const std::size_t contentStart = record.start + record.tagLength;
  std::size_t contentEnd = record.start + record.length;
  if (!(record.flags & XmlElementRecord::kUnended)) contentEnd = m_doc.rfind(L'<', contentEnd - 1);
  if (contentEnd == npos || contentEnd <= contentStart) return {};

  // Text with references decoded, CDATA sections as written; comments and
  // processing instructions left out. A "<" that starts none of these is text.
  const std::wstring_view content = std::wstring_view(m_doc).substr(contentStart, contentEnd - contentStart);
  std::wstring data;
  std::size_t pos = 0;
  while (pos < content.size()) {
    const std::size_t lt = content.find(L'<', pos);
    appendXmlDecoded(data, content.substr(pos, lt == npos ? npos : lt - pos));
    if (lt == npos) break;
    const std::wstring_view rest = content.substr(lt);
    if (rest.compare(0, 9, L"<![CDATA[") == 0) {
      const std::size_t end = rest.find(L"]]>", 9);
      data.append(rest.substr(9, end == npos ? npos : end - 9));
      if (end == npos) break;
      pos = lt + end + 3;
    } else if (rest.compare(0, 4, L"<!--") == 0 || rest.compare(0, 2, L"<?") == 0) {
      const bool comment = rest[1] == L'!';
      const std::size_t end = rest.find(comment ? L"-->" : L"?>", comment ? 4 : 2);
      if (end == npos) break;
      pos = lt + end + (comment ? 3 : 2);
    } else {
      data += L'<';
      pos = lt + 1;
    }
  }
  return data;
}

bool CXmlDocument::attributeOf(XmlIndex element, std::wstring_view name, std::wstring& value) const {
  value.clear();
  if (element == kXmlNone) return false;
  const XmlElementRecord& record = m_table[element];
  std::wstring_view raw;
  if (!findXmlAttribute(std::wstring_view(m_doc).substr(record.start, record.tagLength), name, raw)) return false;
  appendXmlDecoded(value, raw);
  return true;
}

bool CXmlDocument::stepAccepts(const XmlPathStep& step, XmlIndex element, bool nameKnown, bool predicateKnown) const {
  if (!nameKnown && !step.anyName() && nameOf(element) != step.name) return false;
  if (predicateKnown || step.predicateAttribute.empty()) return true;
  std::wstring value;
  if (!attributeOf(element, step.predicateAttribute, value)) return false;
  return !step.predicateHasValue || value == step.predicateValue;
}

XmlIndex CXmlDocument::match(XmlIndex context, const XmlPath& path) {
  if (path.steps.empty()) return context;

  // A depth-first walk over the steps: each level holds the candidates of its
  // step below the element chosen one level up, taken in document order, so
  // the first complete match is the first in document order.
  struct Level {
    const XmlChildIndex::List* list;  // candidates from the index, or null
    std::size_t next;                 // in list
    XmlIndex sibling;                 // next candidate when walking siblings
    bool nameKnown;                   // the candidates all carry the step's name
    bool predicateKnown;              // ... and all satisfy its predicate
  };
  std::vector<Level> levels(path.steps.size());
  const std::wstring_view doc = m_doc;
  const auto enter = [&](std::size_t depth, XmlIndex parent) {
    const XmlPathStep& step = path.steps[depth];
    Level& level = levels[depth];
    level = Level{nullptr, 0, kXmlNone, false, false};
    if (step.predicateHasValue) {
      level.list = &m_childIndex.withAttribute(parent, step.predicateAttribute, step.predicateValue, doc, m_table);
      level.predicateKnown = true;
    } else if (!step.anyName()) {
      level.list = &m_childIndex.named(parent, step.name, doc, m_table);
      level.nameKnown = true;
    } else {
      level.sibling = m_table[parent].firstChild;
    }
  };
  const auto nextCandidate = [&](std::size_t depth) {
    Level& level = levels[depth];
    for (;;) {
      XmlIndex candidate = kXmlNone;
      if (level.list) {
        if (level.next < level.list->size()) candidate = (*level.list)[level.next++];
      } else if (level.sibling != kXmlNone) {
        candidate = level.sibling;
        level.sibling = m_table[candidate].nextSibling;
      }
      if (candidate == kXmlNone || stepAccepts(path.steps[depth], candidate, level.nameKnown, level.predicateKnown))
        return candidate;
    }
  };

  std::size_t depth = 0;
  enter(0, context);
  for (;;) {
    const XmlIndex candidate = nextCandidate(depth);
    if (candidate == kXmlNone) {
      if (depth == 0) return kXmlNone;
      --depth;
    } else if (depth + 1 == path.steps.size()) {
      return candidate;
    } else {
      enter(++depth, candidate);
    }
  }
}

}  // namespace kvt1
