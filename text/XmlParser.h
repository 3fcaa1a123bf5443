#pragma once
// The single-pass parse of a whole document into the element table.
#include <string_view>

#include "text/XmlElementTable.h"
#include "text/XmlResultReport.h"

namespace kvt1 {

// Indexes the elements of text into table (cleared first) and writes every
// fault to report. The parse never stops at a fault: the table holds what
// could be recognised, and any fault sets the document node's error mark.
void parseXmlElements(std::wstring_view text, XmlElementTable& table, XmlResultReport& report);

}  // namespace kvt1
