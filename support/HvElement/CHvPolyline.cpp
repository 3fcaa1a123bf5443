#include "support/HvElement/CHvPolyline.h"

#include "support/HvElement/HvDumpFormat.h"

namespace kvt1 {
namespace {

void dumpSegment(std::wstring& text, const CHvLine& line) {
  text += L"  line: start";
  AppendHvPoint(text, line.GetStartPoint());
  text += L" end";
  AppendHvPoint(text, line.GetEndPoint());
  text += L'\n';
}

void dumpSegment(std::wstring& text, const CHvArc& arc) {
  text += L"   arc: center";
  AppendHvPoint(text, arc.GetCenter());
  text += L'\n';
  text += L" rad";
  AppendHvNumber(text, arc.GetRadius());
  text += L" stAng";
  AppendHvNumber(text, arc.GetStartAngle());
  text += L" endAng";
  AppendHvNumber(text, arc.GetEndAngle());
  text += L" swp";
  AppendHvNumber(text, arc.GetSweepAngle());
}

}  // namespace

void CHvPolyline::Dump(std::wstring& text) const {
  text += L"Polyline: \n";
  for (const Segment& segment : m_segments) {
    std::visit([&text](const auto& element) { dumpSegment(text, element); }, segment);
  }
}

}  // namespace kvt1
