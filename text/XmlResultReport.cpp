#include "text/XmlResultReport.h"

#include "text/XmlEntities.h"

namespace kvt1 {

void XmlResultReport::clear() {
  m_text.clear();
  m_entries = 0;
}

void XmlResultReport::add(std::wstring_view name, std::initializer_list<Attribute> attributes,
                          std::wstring_view description) {
  if (m_entries >= kMaxEntries) return;
  ++m_entries;
  m_text += L'<';
  m_text += name;
  for (const Attribute& attribute : attributes) {
    m_text += L' ';
    m_text += attribute.first;
    m_text += L"=\"";
    m_text += escapeXmlText(attribute.second);
    m_text += L'"';
  }
  m_text += L'>';
  m_text += escapeXmlText(description);
  m_text += L"</";
  m_text += name;
  m_text += L'>';
}

}  // namespace kvt1
