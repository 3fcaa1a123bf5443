#pragma once
// Reads a document's result report back with the reader itself.
#include <string>

#include "text/XmlDocument.h"

namespace kvt1::test {

class ReportReader {
 public:
  explicit ReportReader(const CXmlDocument& doc) { m_report.SetDoc(L"<report>" + doc.GetResult() + L"</report>"); }

  bool wellFormed() const { return m_report.IsWellFormed(); }

  bool has(const std::wstring& entry) {
    m_report.ResetPos();
    return m_report.FindElem(L"report") && m_report.FindChildElem(entry);
  }
  // An attribute of the first entry of that name.
  std::wstring attribute(const std::wstring& entry, const std::wstring& name) {
    return m_report.GetData(L"/report/" + entry + L"/@" + name);
  }
  std::wstring description(const std::wstring& entry) { return m_report.GetData(L"/report/" + entry); }

 private:
  CXmlDocument m_report;
};

}  // namespace kvt1::test
