#include "htmlui/CHTMTabCtrl.h"

#include <algorithm>
#include <vector>

#include "htmlui/HTMCtrlInPlace.h"
#include "htmlui/HTMEngine.h"
#include "htmlui/HTMTabsBehavior.h"

namespace kvt1 {
namespace {

constexpr const wchar_t* kScrollButtonsMarkup =
    L"<div class='ScrollButtonsContainer'><button type='Prev'>\u25C0</button><button type='Next'>\u25B6</button></div>";

std::vector<CHTMElement> headersOf(const CHTMElement& strip) { return strip.SelectAll(L":root>[panel]"); }

// Moves element to position among siblings by swapping it with each one before it.
void moveTo(html::HtmlEngine& engine, const CHTMElement& element, const std::vector<CHTMElement>& siblings,
            std::size_t from, std::size_t position) {
  for (std::size_t i = from; i > position; --i) engine.SwapElements(element.Handle(), siblings[i - 1].Handle());
}

}  // namespace

CHTMTabCtrl::CHTMTabCtrl(std::wstring id) : CHTMCtrl(std::move(id)) {}

bool CHTMTabCtrl::CreateInPlace(CHTMDialog& page, int left, int top, int width, int height) {
  return CreateControlInPlace(*this, page, L"<div id='" + Id() + L"' class='tabs'></div>", left, top, width, height);
}

void CHTMTabCtrl::attached(HELEMENT he) {
  html::HtmlEngine* engine = GetHtmlEngine();
  const CHTMElement set(he);
  if (engine == nullptr) return;
  m_strip = set.SelectFirst(L":root>.strip");
  if (!m_strip.IsValid()) {
    set.SetHtml(L"<div class='strip' tabindex='0'></div>", SIH_INSERT_AT_START);
    m_strip = set.SelectFirst(L":root>.strip");
  }
  m_panels = set.SelectFirst(L":root>.panels");
  if (!m_panels.IsValid()) {
    set.SetHtml(L"<div class='panels'></div>", SIH_APPEND_AFTER_LAST);
    m_panels = set.SelectFirst(L":root>.panels");
  }
  m_scrollButtons = set.SelectFirst(L".ScrollButtonsContainer");
  if (!m_scrollButtons.IsValid()) {
    set.SetHtml(kScrollButtonsMarkup, SIH_APPEND_AFTER_LAST);
    m_scrollButtons = set.SelectFirst(L".ScrollButtonsContainer");
  }
  m_scrollButtons.SetStyle("display", L"none");
  m_firstShown = 0;
  htmlayout::tabs& behavior = htmlayout::tabs::instance();
  engine->AttachEventHandlerEx(he, &element_proc, &behavior, behavior.subscribed_to);
}

void CHTMTabCtrl::detached(HELEMENT he) {
  if (html::HtmlEngine* engine = GetHtmlEngine())
    engine->DetachEventHandler(he, &element_proc, &htmlayout::tabs::instance());
  m_strip.Release();
  m_panels.Release();
  m_scrollButtons.Release();
}

int CHTMTabCtrl::AddTab(const std::wstring& caption, int position) {
  html::HtmlEngine* engine = GetHtmlEngine();
  if (engine == nullptr || !m_strip.IsValid() || !m_panels.IsValid()) return -1;
  const auto count = static_cast<std::size_t>(GetTabCount());
  const std::wstring name = L"panel-id" + std::to_wstring(count + 1);
  m_strip.SetHtml(L"<div panel='" + name + L"'></div>", SIH_APPEND_AFTER_LAST);
  m_panels.SetHtml(L"<div name='" + name + L"'" + (m_panelsHidden ? L" style='display:none;'" : L"") + L"></div>",
                   SIH_APPEND_AFTER_LAST);
  const std::vector<CHTMElement> headers = headersOf(m_strip);
  const std::vector<CHTMElement> panels = m_panels.SelectAll(L":root>[name]");
  if (headers.size() != count + 1 || panels.empty()) return -1;
  // The caption is written into the header on its own, so that no markup in
  // it can close the header or reach the strip.
  const CHTMElement& header = headers.back();
  header.SetHtml(TextToHtml(caption));
  const std::size_t at = position >= 0 && static_cast<std::size_t>(position) < count ? position : count;
  moveTo(*engine, header, headers, count, at);
  moveTo(*engine, panels.back(), panels, panels.size() - 1, std::min(at, panels.size() - 1));
  if (at < count && at < static_cast<std::size_t>(m_firstShown)) ++m_firstShown;
  Redraw();
  UpdateScrollButtons();
  return static_cast<int>(at);
}

bool CHTMTabCtrl::RemoveTab(int index) {
  html::HtmlEngine* engine = GetHtmlEngine();
  const std::vector<CHTMElement> headers = headersOf(m_strip);
  if (engine == nullptr || index < 0 || static_cast<std::size_t>(index) >= headers.size()) return false;
  const CHTMElement header = headers[index];
  const CHTMElement panel = GetPanel(index);
  const bool wasCurrent = (header.GetState() & STATE_CURRENT) != 0;
  engine->DetachElement(header.Handle());
  if (panel.IsValid()) engine->DetachElement(panel.Handle());
  if (index < m_firstShown) --m_firstShown;
  Redraw();
  if (wasCurrent && headers.size() > 1) {
    const CHTMElement& successor =
        static_cast<std::size_t>(index) + 1 < headers.size() ? headers[index + 1] : headers[index - 1];
    htmlayout::tabs::select(Element().Handle(), successor.Handle(), SYNTHESIZED);
  }
  UpdateScrollButtons();
  return true;
}

bool CHTMTabCtrl::SelectTab(int index) {
  const CHTMElement header = GetHeader(index);
  return header.IsValid() && htmlayout::tabs::select(Element().Handle(), header.Handle(), SYNTHESIZED);
}

bool CHTMTabCtrl::SelectTab(const std::wstring& panelName) {
  const CHTMElement panel = m_panels.SelectFirst(L":root>[name='" + panelName + L"']");
  if (!panel.IsValid()) return false;
  for (const CHTMElement& header : headersOf(m_strip)) {
    if (htmlayout::tabs::panel(Element().Handle(), header.Handle()) == panel.Handle())
      return htmlayout::tabs::select(Element().Handle(), header.Handle(), SYNTHESIZED);
  }
  return false;
}

int CHTMTabCtrl::GetCurrentTab() const { return IndexOf(m_strip.SelectFirst(L":root>div:current")); }

int CHTMTabCtrl::GetTabCount() const { return static_cast<int>(headersOf(m_strip).size()); }

CHTMElement CHTMTabCtrl::GetHeader(int index) const {
  const std::vector<CHTMElement> headers = headersOf(m_strip);
  return index >= 0 && static_cast<std::size_t>(index) < headers.size() ? headers[index] : CHTMElement();
}

CHTMElement CHTMTabCtrl::GetPanel(int index) const {
  const CHTMElement header = GetHeader(index);
  return header.IsValid() ? CHTMElement(htmlayout::tabs::panel(Element().Handle(), header.Handle())) : CHTMElement();
}

std::wstring CHTMTabCtrl::GetPanelName(int index) const { return GetHeader(index).GetAttribute("panel"); }

std::wstring CHTMTabCtrl::GetTabCaption(int index) const {
  std::wstring caption = GetHeader(index).GetText();
  std::replace(caption.begin(), caption.end(), L'\u00A0', L' ');
  return caption;
}

bool CHTMTabCtrl::SetTabCaption(int index, const std::wstring& caption) {
  const CHTMElement header = GetHeader(index);
  if (!header.IsValid()) return false;
  header.SetHtml(TextToHtml(caption));
  UpdateScrollButtons();
  return true;
}

bool CHTMTabCtrl::SetTabColor(int index, int color, int transparency) {
  const CHTMElement header = GetHeader(index);
  if (!header.IsValid()) return false;
  header.SetStyle("Background-color", ColorToCss(color, transparency));
  return true;
}

void CHTMTabCtrl::SetContextMenu(const std::wstring& menuId) {
  m_strip.SetStyle("context-menu", L"selector(menu#" + menuId + L")");
}

int CHTMTabCtrl::IndexOf(const CHTMElement& header) const {
  if (!header.IsValid()) return -1;
  const std::vector<CHTMElement> headers = headersOf(m_strip);
  const auto found = std::find(headers.begin(), headers.end(), header);
  return found != headers.end() ? static_cast<int>(found - headers.begin()) : -1;
}

void CHTMTabCtrl::Redraw() const {
  if (html::HtmlEngine* engine = GetHtmlEngine(); engine && IsBound())
    engine->UpdateElementEx(Element().Handle(), RESET_STYLE_DEEP | MEASURE_DEEP | REDRAW_NOW);
}

BOOL CHTMTabCtrl::handle_event(HELEMENT he, BEHAVIOR_EVENT_PARAMS& params) {
  if ((params.cmd & SINKING) != 0) return FALSE;
  const UINT code = params.cmd & ~HANDLED;
  if (code == ELEMENT_EXPANDED && params.heTarget == he) {
    UpdateScrollButtons();
    SHTMTabCtrlEventArgs args;
    args.element = params.he;
    args.code = ELEMENT_EXPANDED;
    args.index = IndexOf(CHTMElement(params.he));
    args.reason = params.reason;
    Notify(args);
    return FALSE;
  }
  if (code != BUTTON_CLICK) return FALSE;
  const CHTMElement target(params.heTarget);
  if (!m_scrollButtons.IsValid() || !(target.SelectParent(L".ScrollButtonsContainer") == m_scrollButtons)) return FALSE;
  const std::wstring type = target.GetAttribute("type");
  if (type == L"Prev") {
    ScrollPrev();
  } else if (type == L"Next") {
    ScrollNext();
  } else {
    return FALSE;
  }
  return TRUE;
}

}  // namespace kvt1
