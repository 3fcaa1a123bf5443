#include "text/XmlElementTable.h"

#include <cstdint>

namespace kvt1 {

void XmlElementTable::clear() {
  m_size = 0;
  add();
}

XmlIndex XmlElementTable::add() {
  if (m_size == UINT32_MAX) return kXmlNone;
  const std::uint32_t segment = m_size >> kSegmentBits;
  if (segment == m_segments.size()) {
    // Uninitialised storage: records are zeroed one by one as they are added.
    m_segments.emplace_back(new XmlElementRecord[kSegmentSize]);
  }
  const XmlIndex index = m_size++;
  (*this)[index] = XmlElementRecord{};
  return index;
}

}  // namespace kvt1
