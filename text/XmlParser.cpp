#include "text/XmlParser.h"

#include <cstddef>
#include <string>
#include <vector>

#include "text/XmlSyntax.h"

namespace kvt1 {
namespace {

constexpr std::size_t npos = std::wstring_view::npos;

class Parser {
 public:
  Parser(std::wstring_view text, XmlElementTable& table, XmlResultReport& report)
      : m_text(text), m_table(table), m_report(report) {}

  void run();

 private:
  struct OpenElement {
    XmlIndex element;
    XmlIndex lastChild;
    std::wstring_view name;
  };

  // Each returns the offset where the scan goes on.
  std::size_t startTag(std::size_t lt);
  std::size_t endTag(std::size_t lt);
  std::size_t markup(std::size_t lt);
  std::size_t documentType(std::size_t lt);
  std::size_t skipPast(std::size_t lt, std::size_t from, std::wstring_view terminator, const wchar_t* type);

  // The first of stops at or after from that is not inside a quoted literal.
  std::size_t findOutsideQuotes(std::size_t from, const wchar_t* stops) const;
  bool startsWith(std::size_t pos, std::wstring_view prefix) const {
    return m_text.compare(pos, prefix.size(), prefix) == 0;
  }

  void append(XmlIndex element);
  // Closes the open elements above depth keep as unended at offset.
  void closeUnended(std::size_t keep, std::size_t offset);

  void fault(std::wstring_view name, std::initializer_list<XmlResultReport::Attribute> attributes,
             const std::wstring& description);
  void tagSyntax(const wchar_t* name, std::size_t offset, const wchar_t* expecting);
  void unterminated(std::size_t offset, const wchar_t* type);

  std::wstring_view m_text;
  XmlElementTable& m_table;
  XmlResultReport& m_report;
  std::vector<OpenElement> m_open;
};

void Parser::run() {
  m_table.clear();
  m_open.assign(1, OpenElement{kXmlDocumentNode, kXmlNone, {}});
  const std::size_t size = m_text.size();
  std::size_t pos = 0;
  while (pos < size) {
    const std::size_t lt = m_text.find(L'<', pos);
    if (lt == npos) break;
    const wchar_t next = lt + 1 < size ? m_text[lt + 1] : L'\0';
    if (isXmlNameStart(next)) {
      pos = startTag(lt);
    } else if (next == L'/') {
      pos = endTag(lt);
    } else if (next == L'!') {
      pos = markup(lt);
    } else if (next == L'?') {
      pos = skipPast(lt, lt + 2, L"?>", L"processing_instruction");
    } else {
      tagSyntax(L"first_tag_syntax", lt, L" expecting tag name / ! or ?");
      pos = lt + 1;
    }
  }
  m_table[kXmlDocumentNode].length = static_cast<std::uint32_t>(size);
  closeUnended(0, size);
  if (m_table[kXmlDocumentNode].firstChild == kXmlNone) fault(L"no_root_element", {}, L"no root element");
}

std::size_t Parser::startTag(std::size_t lt) {
  const std::size_t size = m_text.size();
  const std::size_t nameStart = lt + 1;
  std::size_t pos = nameStart + xmlNameLength(m_text, nameStart);
  const std::wstring_view name = m_text.substr(nameStart, pos - nameStart);
  bool emptyTag = false;
  for (;;) {
    pos = skipXmlSpace(m_text, pos);
    if (pos >= size) {
      unterminated(lt, L"start_tag");
      return size;
    }
    const wchar_t c = m_text[pos];
    if (c == L'>') break;
    if (c == L'/' && pos + 1 < size && m_text[pos + 1] == L'>') {
      emptyTag = true;
      ++pos;
      break;
    }
    if (c == L'<') {
      unterminated(lt, L"start_tag");
      return pos;
    }
    // An attribute name; a stray character is passed over on its own.
    const std::size_t nameLength = xmlNameLength(m_text, pos);
    pos = skipXmlSpace(m_text, pos + (nameLength > 0 ? nameLength : 1));
    if (nameLength == 0 || pos >= size || m_text[pos] != L'=') continue;
    pos = skipXmlSpace(m_text, pos + 1);
    if (pos < size && (m_text[pos] == L'"' || m_text[pos] == L'\'')) {
      const wchar_t stops[] = {m_text[pos], L'<', L'\0'};
      const std::size_t close = m_text.find_first_of(stops, pos + 1);
      if (close == npos || m_text[close] == L'<') {
        unterminated(lt, L"start_tag");
        return close == npos ? size : close;
      }
      pos = close + 1;
    } else {
      tagSyntax(L"attribute_syntax", pos, L" expecting quoted attribute value");
      while (pos < size && !isXmlSpace(m_text[pos]) && m_text[pos] != L'>' && m_text[pos] != L'<') ++pos;
    }
  }

  const XmlIndex element = m_table.add();
  if (element == kXmlNone) return size;
  XmlElementRecord& record = m_table[element];
  record.start = static_cast<std::uint32_t>(lt);
  record.tagLength = static_cast<std::uint32_t>(pos + 1 - lt);
  append(element);
  if (emptyTag) {
    record.flags |= XmlElementRecord::kEmptyTag;
    record.length = record.tagLength;
  } else {
    m_open.push_back(OpenElement{element, kXmlNone, name});
  }
  return pos + 1;
}

std::size_t Parser::endTag(std::size_t lt) {
  const std::size_t size = m_text.size();
  const std::size_t nameStart = lt + 2;
  if (nameStart >= size || !isXmlNameStart(m_text[nameStart])) {
    tagSyntax(L"first_tag_syntax", lt, L" expecting tag name / ! or ?");
    return lt + 1;
  }
  const std::size_t nameEnd = nameStart + xmlNameLength(m_text, nameStart);
  const std::wstring_view name = m_text.substr(nameStart, nameEnd - nameStart);
  std::size_t close = skipXmlSpace(m_text, nameEnd);
  if (close >= size || m_text[close] != L'>') {
    close = m_text.find_first_of(L"<>", close);
    if (close == npos || m_text[close] == L'<') {
      unterminated(lt, L"end_tag");
      return close == npos ? size : close;
    }
  }

  std::size_t depth = m_open.size();
  while (depth > 1 && m_open[depth - 1].name != name) --depth;
  if (depth == 1) {
    fault(L"lone_end_tag", {{L"tagname", std::wstring(name)}, {L"offset", std::to_wstring(lt)}},
          L"lone end tag '" + std::wstring(name) + L"' at offset " + std::to_wstring(lt));
    return close + 1;
  }
  closeUnended(depth - 1, lt);
  XmlElementRecord& record = m_table[m_open.back().element];
  record.length = static_cast<std::uint32_t>(close + 1 - record.start);
  m_open.pop_back();
  return close + 1;
}

std::size_t Parser::markup(std::size_t lt) {
  if (startsWith(lt, L"<!--")) return skipPast(lt, lt + 4, L"-->", L"comment");
  if (startsWith(lt, L"<!-")) {
    tagSyntax(L"comment_tag_syntax", lt, L" expecting - to begin comment");
    return lt + 1;
  }
  if (startsWith(lt, L"<![CDATA[")) return skipPast(lt, lt + 9, L"]]>", L"cdata_section");
  if (startsWith(lt, L"<![")) {
    tagSyntax(L"cdata_section_syntax", lt, L" expecting 'CDATA'");
    return lt + 1;
  }
  if (startsWith(lt, L"<!DOCTYPE")) return documentType(lt);
  tagSyntax(L"exclamation_tag_syntax", lt, L" expecting 'DOCTYPE' [ or -");
  return lt + 1;
}

std::size_t Parser::documentType(std::size_t lt) {
  const std::size_t size = m_text.size();
  std::size_t pos = findOutsideQuotes(lt + 9, L"[>");
  if (pos != npos && m_text[pos] == L'[') {
    // The internal subset: declarations, comments, processing instructions
    // and parameter entity references up to "]".
    ++pos;
    for (;;) {
      pos = skipXmlSpace(m_text, pos);
      if (pos >= size) {
        pos = npos;
        break;
      }
      if (m_text[pos] == L']') {
        pos = m_text.find(L'>', pos);
        break;
      }
      std::size_t end = npos;
      if (startsWith(pos, L"<!--")) {
        end = m_text.find(L"-->", pos + 4);
        if (end != npos) end += 3;
      } else if (startsWith(pos, L"<?")) {
        end = m_text.find(L"?>", pos + 2);
        if (end != npos) end += 2;
      } else if (startsWith(pos, L"<!")) {
        end = findOutsideQuotes(pos + 2, L">");
        if (end != npos) end += 1;
      } else if (m_text[pos] == L'%') {
        end = m_text.find(L';', pos);
        if (end != npos) end += 1;
      } else {
        tagSyntax(L"doctype_tag_syntax", pos, L" expecting markup declaration");
        end = m_text.find(L']', pos);
      }
      if (end == npos) {
        pos = npos;
        break;
      }
      pos = end;
    }
  }
  if (pos == npos) {
    unterminated(lt, L"document_type");
    return size;
  }
  return pos + 1;
}

std::size_t Parser::skipPast(std::size_t lt, std::size_t from, std::wstring_view terminator, const wchar_t* type) {
  const std::size_t end = m_text.find(terminator, from);
  if (end == npos) {
    unterminated(lt, type);
    return m_text.size();
  }
  return end + terminator.size();
}

std::size_t Parser::findOutsideQuotes(std::size_t from, const wchar_t* stops) const {
  const std::wstring quotesAndStops = std::wstring(L"\"'") + stops;
  std::size_t pos = from;
  for (;;) {
    pos = m_text.find_first_of(quotesAndStops, pos);
    if (pos == npos || (m_text[pos] != L'"' && m_text[pos] != L'\'')) return pos;
    pos = m_text.find(m_text[pos], pos + 1);
    if (pos == npos) return npos;
    ++pos;
  }
}

void Parser::append(XmlIndex element) {
  OpenElement& parent = m_open.back();
  XmlElementRecord& record = m_table[element];
  record.parent = parent.element;
  if (parent.lastChild == kXmlNone) {
    m_table[parent.element].firstChild = element;
  } else {
    m_table[parent.lastChild].nextSibling = element;
    record.prevSibling = parent.lastChild;
  }
  parent.lastChild = element;
  if (parent.element == kXmlDocumentNode && record.prevSibling != kXmlNone) {
    const std::size_t nameLength = xmlNameLength(m_text, record.start + 1);
    fault(L"root_has_sibling",
          {{L"tagname", std::wstring(m_text.substr(record.start + 1, nameLength))},
           {L"offset", std::to_wstring(record.start)}},
          L"root element has sibling");
  }
}

void Parser::closeUnended(std::size_t keep, std::size_t offset) {
  while (m_open.size() > keep + 1) {
    const OpenElement& open = m_open.back();
    XmlElementRecord& record = m_table[open.element];
    record.flags |= XmlElementRecord::kUnended;
    record.length = static_cast<std::uint32_t>(offset - record.start);
    const std::wstring name(open.name);
    fault(L"unended_start_tag",
          {{L"tagname", name}, {L"offset", std::to_wstring(record.start)}, {L"offset2", std::to_wstring(offset)}},
          L"start tag '" + name + L"' expecting end tag at offset " + std::to_wstring(offset));
    m_open.pop_back();
  }
}

void Parser::fault(std::wstring_view name, std::initializer_list<XmlResultReport::Attribute> attributes,
                   const std::wstring& description) {
  m_table[kXmlDocumentNode].flags |= XmlElementRecord::kErrorMark;
  m_report.add(name, attributes, description);
}

void Parser::tagSyntax(const wchar_t* name, std::size_t offset, const wchar_t* expecting) {
  fault(name, {{L"offset", std::to_wstring(offset)}},
        L"tag syntax error at offset " + std::to_wstring(offset) + expecting);
}

void Parser::unterminated(std::size_t offset, const wchar_t* type) {
  fault(L"unterminated_tag_syntax", {{L"type", type}, {L"offset", std::to_wstring(offset)}},
        L"unterminated tag at offset " + std::to_wstring(offset));
}

}  // namespace

void parseXmlElements(std::wstring_view text, XmlElementTable& table, XmlResultReport& report) {
  Parser(text, table, report).run();
}

}  // namespace kvt1
