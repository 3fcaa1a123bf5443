#include "htmlui/HTMTabsBehavior.h"

#include <algorithm>
#include <string>
#include <vector>

#include "htmlui/CHTMElement.h"
#include "htmlui/HTMEngine.h"
#include "platform/Win32.h"

namespace htmlayout {
namespace {

using kvt1::CHTMElement;

constexpr const wchar_t* kHeaders = L":root>.strip>[panel]";
constexpr const wchar_t* kCurrentHeader = L":root>.strip>[panel]:current";
constexpr const wchar_t* kExpandedPanels = L":root>div>[name]:expanded";

tabs theTabs;

std::vector<CHTMElement> headersOf(HELEMENT tabSet) { return CHTMElement(tabSet).SelectAll(kHeaders); }

// The header of the set that holds element; empty when there is none.
CHTMElement headerAt(HELEMENT tabSet, HELEMENT element) {
  const CHTMElement header = CHTMElement(element).SelectParent(L"[panel]");
  if (!header.IsValid()) return {};
  const std::vector<CHTMElement> headers = headersOf(tabSet);
  return std::find(headers.begin(), headers.end(), header) != headers.end() ? header : CHTMElement();
}

// A header that the user can reach: enabled and visible.
bool available(const CHTMElement& header) {
  if ((header.GetState() & STATE_DISABLED) != 0) return false;
  BOOL visible = FALSE;
  kvt1::html::HtmlEngine* engine = kvt1::GetHtmlEngine();
  return engine != nullptr && engine->IsElementVisible(header.Handle(), &visible) == HLDOM_OK && visible;
}

// The panel of a header: names may repeat, so the k-th header of a name
// takes the k-th panel of that name.
CHTMElement panelOf(const CHTMElement& tabSet, const CHTMElement& header) {
  const std::wstring name = header.GetAttribute("panel");
  const std::vector<CHTMElement> panels = tabSet.SelectAll(L":root>div>[name=\"" + name + L"\"]");
  const std::vector<CHTMElement> named = tabSet.SelectAll(L":root>.strip>[panel=\"" + name + L"\"]");
  const auto at = static_cast<std::size_t>(std::find(named.begin(), named.end(), header) - named.begin());
  return at < panels.size() ? panels[at] : CHTMElement();
}

// The header that key leads to from the current one; empty when none.
CHTMElement headerForKey(const std::vector<CHTMElement>& headers, const CHTMElement& current, UINT key) {
  const auto count = static_cast<int>(headers.size());
  const auto found = std::find(headers.begin(), headers.end(), current);
  const int at = found != headers.end() ? static_cast<int>(found - headers.begin()) : -1;
  int from = 0;
  int step = 1;
  switch (key) {
    case VK_HOME:
      from = 0;
      break;
    case VK_END:
      from = count - 1;
      step = -1;
      break;
    case VK_RIGHT:
      from = at + 1;
      break;
    case VK_LEFT:
      from = at < 0 ? count - 1 : at - 1;
      step = -1;
      break;
    default:
      return {};
  }
  for (int i = from; i >= 0 && i < count; i += step)
    if (available(headers[i])) return headers[i];
  return {};
}

bool withinStrip(HELEMENT tabSet, HELEMENT element) {
  const CHTMElement strip = CHTMElement(element).SelectParent(L".strip");
  return strip.IsValid() && strip.Parent() == CHTMElement(tabSet);
}

}  // namespace

tabs::tabs() : behavior(HANDLE_MOUSE | HANDLE_KEY | HANDLE_BEHAVIOR_EVENT, "tabs") {}

tabs& tabs::instance() { return theTabs; }

bool tabs::select(HELEMENT tabSet, HELEMENT header, UINT reason) {
  kvt1::html::HtmlEngine* engine = kvt1::GetHtmlEngine();
  const CHTMElement set(tabSet);
  const CHTMElement chosen(header);
  const std::vector<CHTMElement> headers = headersOf(tabSet);
  if (engine == nullptr || !chosen.IsValid() || std::find(headers.begin(), headers.end(), chosen) == headers.end())
    return false;
  const CHTMElement panel = panelOf(set, chosen);
  // A page may mark a header current ("selected") before its panel was ever shown.
  const bool shown = !panel.IsValid() || (panel.GetState() & STATE_EXPANDED) != 0;
  if ((chosen.GetState() & STATE_CURRENT) != 0 && shown) return true;
  for (const CHTMElement& current : set.SelectAll(kCurrentHeader)) current.SetState(0, STATE_CURRENT);
  for (const CHTMElement& expanded : set.SelectAll(kExpandedPanels)) {
    expanded.SetState(STATE_COLLAPSED, STATE_EXPANDED);
    expanded.SetStyle("display", L"none");
  }
  chosen.SetState(STATE_CURRENT, 0);
  if (panel.IsValid()) {
    panel.SetState(STATE_EXPANDED, STATE_COLLAPSED);
    panel.SetStyle("display", L"block");
  }
  BOOL handled = FALSE;
  engine->SendEvent(tabSet, ELEMENT_EXPANDED, header, reason, &handled);
  return true;
}

HELEMENT tabs::panel(HELEMENT tabSet, HELEMENT header) {
  return panelOf(CHTMElement(tabSet), CHTMElement(header)).Handle();
}

void tabs::attached(HELEMENT he) {
  CHTMElement header = CHTMElement(he).SelectFirst(L":root>.strip>[panel][selected]");
  if (!header.IsValid()) header = CHTMElement(he).SelectFirst(kHeaders);
  if (header.IsValid()) select(he, header.Handle(), SYNTHESIZED);
}

BOOL tabs::handle_mouse(HELEMENT he, MOUSE_PARAMS& params) {
  if (params.cmd != MOUSE_DOWN || (params.button_state & MAIN_MOUSE_BUTTON) == 0) return FALSE;
  const CHTMElement header = headerAt(he, params.target);
  if (header.IsValid() && (header.GetState() & STATE_DISABLED) == 0) select(he, header.Handle(), BY_MOUSE_CLICK);
  return FALSE;
}

BOOL tabs::handle_key(HELEMENT he, KEY_PARAMS& params) {
  if (params.cmd != KEY_DOWN || !withinStrip(he, params.target)) return FALSE;
  if (params.key_code != VK_LEFT && params.key_code != VK_RIGHT && params.key_code != VK_HOME &&
      params.key_code != VK_END)
    return FALSE;
  const CHTMElement next = headerForKey(headersOf(he), CHTMElement(he).SelectFirst(kCurrentHeader), params.key_code);
  if (next.IsValid()) select(he, next.Handle(), BY_KEY_CLICK);
  return TRUE;
}

BOOL tabs::handle_event(HELEMENT he, BEHAVIOR_EVENT_PARAMS& params) {
  if (params.cmd != BUTTON_CLICK) return FALSE;
  const CHTMElement header = headerAt(he, params.heTarget);
  if (!header.IsValid()) return FALSE;
  select(he, header.Handle(), BY_MOUSE_CLICK);
  return TRUE;
}

}  // namespace htmlayout
