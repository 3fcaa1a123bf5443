#pragma once
// The result report of the last load, save or parse: a wide string of entries,
// each written as an element whose name is the entry name, whose attributes
// say where and what ("type", "encoding", "tagname", "length", "offset",
// "offset2") and whose text is the readable description. The report can thus
// be read back with the reader itself once wrapped in a root element.
#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace kvt1 {

class XmlResultReport {
 public:
  using Attribute = std::pair<std::wstring_view, std::wstring>;

  // Entries beyond this count are dropped, so that a document with millions of
  // faults keeps a report of bounded size.
  static constexpr std::size_t kMaxEntries = 1000;

  void clear();
  void add(std::wstring_view name, std::initializer_list<Attribute> attributes, std::wstring_view description);

  const std::wstring& text() const { return m_text; }

 private:
  std::wstring m_text;
  std::size_t m_entries = 0;
};

}  // namespace kvt1
