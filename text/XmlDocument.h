#pragma once
// CXmlDocument: a whole XML document held as one wide string, its elements
// indexed in a single pass, then read through navigation and path queries
// without a node tree. Every load, save and parse leaves a result report that
// names what happened (see XmlResultReport.h).
//
// Escaping and CDATA output are in XmlEntities.h; base64 in platform/Base64.h.
#include <string>
#include <string_view>

#include "text/XmlChildIndex.h"
#include "text/XmlElementTable.h"
#include "text/XmlPath.h"
#include "text/XmlResultReport.h"

namespace kvt1 {

class CXmlDocument {
 public:
  CXmlDocument();

  // Stores text, empties the report, parses; true when the result is well
  // formed. Texts of 4 GiB characters or more are refused.
  bool SetDoc(std::wstring text);
  const std::wstring& GetDoc() const { return m_doc; }

  // No fault in the parse, a root element and nothing beside it.
  bool IsWellFormed() const;

  const std::wstring& GetResult() const { return m_report.text(); }

  // Navigation: a current parent, a current element among its children and a
  // current child of that element. An empty name or "*" matches any element.
  void ResetPos();
  bool FindElem(std::wstring_view name = {});
  bool FindChildElem(std::wstring_view name = {});
  bool IntoElem();
  bool OutOfElem();
  std::wstring GetTagName() const;
  std::wstring GetElemData() const;
  std::wstring GetAttrib(std::wstring_view name) const;
  std::wstring GetChildTagName() const;
  std::wstring GetChildData() const;

  // The first element in document order that the path matches becomes the
  // current element; the result is its data, or the value of the attribute
  // that a last step "@name" names. Empty when nothing matches. A relative
  // path starts at the current element, or at the current parent when there
  // is none.
  std::wstring GetData(std::wstring_view path);

  // Reads a file, decoding its bytes by byte order mark, declared encoding or
  // detection, and parses it; true when the result is well formed.
  bool ReadFile(const std::wstring& path);
  // Writes the document in encoding: a name as an XML declaration gives it;
  // empty for the document's own declaration, or UTF-8 without one. UTF-16
  // is written little-endian with a byte order mark. False when the file
  // could not be written or the encoding is not known.
  bool WriteFile(const std::wstring& path, std::wstring_view encoding = {});

 private:
  void parse();
  std::wstring_view nameOf(XmlIndex element) const;
  std::wstring dataOf(XmlIndex element) const;
  bool attributeOf(XmlIndex element, std::wstring_view name, std::wstring& value) const;
  XmlIndex findSibling(XmlIndex from, std::wstring_view name) const;
  bool stepAccepts(const XmlPathStep& step, XmlIndex element, bool nameKnown, bool predicateKnown) const;
  XmlIndex match(XmlIndex context, const XmlPath& path);
  std::wstring htmlCharset() const;

  std::wstring m_doc;
  XmlResultReport m_report;
  XmlIndex m_posParent = kXmlDocumentNode;
  XmlIndex m_pos = kXmlNone;
  XmlIndex m_posChild = kXmlNone;
  XmlElementTable m_table;
  XmlChildIndex m_childIndex;
};

}  // namespace kvt1
