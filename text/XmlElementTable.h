#pragma once
// The index that a parse builds over a document text: one record per element,
// kept in segments of 65536 records so that records never move as the table
// grows. An index holds the segment in its upper 16 bits and the record in its
// lower 16 bits. Record 0 is the document node above the root element; since
// it can never be a child or a sibling, 0 also stands for "no element".
#include <cstdint>
#include <memory>
#include <vector>

namespace kvt1 {

using XmlIndex = std::uint32_t;
constexpr XmlIndex kXmlNone = 0;
constexpr XmlIndex kXmlDocumentNode = 0;

struct XmlElementRecord {
  enum Flags : std::uint32_t {
    kErrorMark = 1,  // document node only: the document's structure is broken
    kEmptyTag = 2,   // written as an empty-element tag
    kUnended = 4,    // no matching end tag was found
  };

  std::uint32_t start;      // offset of "<" in the document text
  std::uint32_t length;     // up to and including the end tag
  std::uint32_t tagLength;  // length of the start tag
  std::uint32_t flags;
  XmlIndex parent;
  XmlIndex firstChild;
  XmlIndex nextSibling;
  XmlIndex prevSibling;
};

class XmlElementTable {
 public:
  static constexpr std::uint32_t kSegmentBits = 16;
  static constexpr std::uint32_t kSegmentSize = 1u << kSegmentBits;

  XmlElementTable() { clear(); }

  // Leaves only a fresh document node. Segments already allocated are kept
  // for the next parse.
  void clear();

  // Appends a zeroed record and returns its index; kXmlNone when the table is
  // full.
  XmlIndex add();

  std::uint32_t size() const { return m_size; }
  bool contains(XmlIndex index) const { return index < m_size; }

  XmlElementRecord& operator[](XmlIndex index) { return m_segments[index >> kSegmentBits][index & (kSegmentSize - 1)]; }
  const XmlElementRecord& operator[](XmlIndex index) const {
    return m_segments[index >> kSegmentBits][index & (kSegmentSize - 1)];
  }

 private:
  std::vector<std::unique_ptr<XmlElementRecord[]>> m_segments;
  std::uint32_t m_size = 0;
};

}  // namespace kvt1
