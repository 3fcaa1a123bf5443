#pragma once
// A polyline: an ordered list of segments, each a line or an arc. It is an
// element but not a curve.
#include <utility>
#include <variant>
#include <vector>

#include "support/HvElement/CHvArc.h"
#include "support/HvElement/CHvElement.h"
#include "support/HvElement/CHvLine.h"

namespace kvt1 {

class CHvPolyline : public CHvElement {
 public:
  using Segment = std::variant<CHvLine, CHvArc>;

  void AddSegment(Segment segment) { m_segments.push_back(std::move(segment)); }
  const std::vector<Segment>& GetSegments() const { return m_segments; }

  // "Polyline: " and a line end, then per segment: a line as "  line: start",
  // its start, " end", its end and a line end; an arc as "   arc: center",
  // its centre and a line end, then " rad", " stAng", " endAng" and " swp"
  // with their values (no line end follows them).
  void Dump(std::wstring& text) const override;

 private:
  std::vector<Segment> m_segments;
};

}  // namespace kvt1
