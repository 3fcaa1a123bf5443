// Scrolling of a tab strip that is wider than its box: the scroll buttons,
// the room the strip gives them, and the negative margin that moves it.
#include <algorithm>
#include <string>
#include <vector>

#include "htmlui/CHTMTabCtrl.h"
#include "htmlui/HTMEngine.h"

namespace kvt1 {

// The headers' edges, measured with the strip not moved and relative to the
// first header's left edge, and the room up to the strip's right edge.
struct CHTMTabCtrl::StripGeometry {
  std::vector<CHTMElement> headers;
  std::vector<int> left;
  std::vector<int> right;
  int room = 0;
};

namespace {

// The strip's "padding-right" while the buttons show: a header ends this far from them.
constexpr int kScrollGap = 2;

RECT locate(html::HtmlEngine& engine, const CHTMElement& element) {
  RECT box{0, 0, 0, 0};
  engine.GetElementLocation(element.Handle(), &box, ROOT_RELATIVE | BORDER_BOX);
  return box;
}

std::wstring pixels(int value) { return std::to_wstring(value) + L"px"; }

void clearStyle(html::HtmlEngine& engine, const CHTMElement& element, const char* name) {
  engine.SetStyleAttribute(element.Handle(), name, nullptr);
}

}  // namespace

bool CHTMTabCtrl::MeasureStrip(StripGeometry& geometry) const {
  html::HtmlEngine* engine = GetHtmlEngine();
  geometry.headers = m_strip.SelectAll(L":root>[panel]");
  if (engine == nullptr || geometry.headers.empty()) return false;
  for (const CHTMElement& header : geometry.headers) clearStyle(*engine, header, "margin-left");
  const RECT strip = locate(*engine, m_strip);
  if (strip.right <= strip.left) return false;
  const int origin = locate(*engine, geometry.headers.front()).left;
  geometry.left.clear();
  geometry.right.clear();
  for (const CHTMElement& header : geometry.headers) {
    const RECT box = locate(*engine, header);
    geometry.left.push_back(box.left - origin);
    geometry.right.push_back(box.right - origin);
  }
  geometry.room = strip.right - origin;
  return true;
}

bool CHTMTabCtrl::AreScrollButtonsShown() const { return m_scrollButtons.GetStyle("display") == L"block"; }

void CHTMTabCtrl::ShowScrollButtons(bool show) {
  html::HtmlEngine* engine = GetHtmlEngine();
  if (engine == nullptr) return;
  if (!show) m_firstShown = 0;
  if (show == AreScrollButtonsShown()) return;
  if (show) {
    m_scrollButtons.SetStyle("display", L"block");
    const RECT box = locate(*engine, m_scrollButtons);
    m_reserve = std::max(0, static_cast<int>(box.right - box.left));
    m_strip.SetStyle("margin-right", pixels(m_reserve));
    m_strip.SetStyle("padding-right", pixels(kScrollGap));
  } else {
    m_scrollButtons.SetStyle("display", L"none");
    clearStyle(*engine, m_strip, "margin-right");
    clearStyle(*engine, m_strip, "padding-right");
    m_reserve = 0;
  }
}

void CHTMTabCtrl::MoveStrip(int first, const StripGeometry& geometry) {
  m_firstShown = first;
  if (first > 0) geometry.headers.front().SetStyle("margin-left", pixels(-geometry.left[first]));
}

void CHTMTabCtrl::UpdateScrollButtons() {
  StripGeometry geometry;
  if (!IsBound() || !MeasureStrip(geometry)) {
    ShowScrollButtons(false);
    return;
  }
  const bool shown = AreScrollButtonsShown();
  if (geometry.right.back() <= geometry.room + (shown ? m_reserve : 0)) {
    ShowScrollButtons(false);
    return;
  }
  if (!shown) {
    ShowScrollButtons(true);
    if (!MeasureStrip(geometry)) return;
  }
  const int room = geometry.room - kScrollGap;
  const int current = GetCurrentTab();
  int first = std::clamp(m_firstShown, 0, static_cast<int>(geometry.headers.size()) - 1);
  if (current >= 0 && current < first) first = current;
  while (current > first && geometry.right[current] - geometry.left[first] > room) ++first;
  while (first > 0 && geometry.right.back() - geometry.left[first - 1] <= room) --first;
  MoveStrip(first, geometry);
}

void CHTMTabCtrl::ScrollBy(int step) {
  StripGeometry geometry;
  if (!AreScrollButtonsShown() || !MeasureStrip(geometry)) return;
  const int room = geometry.room - kScrollGap;
  int first = m_firstShown;
  if (step > 0 && geometry.right.back() - geometry.left[first] > room) {
    ++first;
  } else if (step < 0 && first > 0) {
    --first;
  }
  // Only the strip moves: the current header stays current, in view or not.
  MoveStrip(first, geometry);
}

}  // namespace kvt1
