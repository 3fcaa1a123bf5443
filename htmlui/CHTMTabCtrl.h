#pragma once
// A tab set: a strip of headers over a stack of panels, one of which shows.
// The switching is done by the behaviour "tabs" (HTMTabsBehavior.h), which
// the control attaches to its element; the control adds, removes, names and
// colours tabs, scrolls a strip that is wider than its box, and reports
// every change of the current tab to its owner.
//
// Markup, found when the page holds it and written when it is missing:
//   <div id='ID' class='tabs'>                      (CreateInPlace only)
//     <div class='strip' tabindex='0'>              headers, in tab order
//       <div panel='panel-id1'>caption</div> ...
//     </div>
//     <div class='panels'>                          panels, in tab order
//       <div name='panel-id1'></div> ...            (style='display:none;' when created hidden)
//     </div>
//     <div class='ScrollButtonsContainer'>          hidden until needed
//       <button type='Prev'>&#x25C0;</button><button type='Next'>&#x25B6;</button>
//     </div>
//   </div>
// The strip takes the focus (tabindex) so that a click on a header lets the
// arrow keys, HOME and END move between headers.
//
// Tabs are numbered 0.. in strip order. Panel names are "panel-id" + (the tab
// count before adding + 1), not a running number: after a removal a new tab
// may carry the name of an existing one. Headers and panels that
// share a name are paired in order (the k-th header with the k-th panel of
// that name), and selecting by a shared name selects the first such tab.
//
// Notifications: every change of the current tab, by a click on a header, a
// key or a call (SelectTab, RemoveTab of the current tab), reaches the
// owner as SHTMTabCtrlEventArgs with code ELEMENT_EXPANDED.
// Selecting the tab that is already current reports nothing.
//
// Scrolling: when the headers are wider than the strip, the scroll buttons
// show at the strip's right end and the strip gives up room for them (style
// "margin-right" the buttons' width, "padding-right" a small gap). Prev and
// Next move the strip one header back or on and nothing else: the current
// header stays current, even out of view (selecting a tab brings it back).
// The strip is moved by a negative "margin-left" on its first header rather
// than by hiding headers: every header keeps its box, to be measured, and
// stays visible to the arrow keys. Sizes come from the engine's layout;
// without one (no geometry) the buttons never show.
#include <string>

#include "htmlui/CHTMCtrl.h"

namespace kvt1 {

struct SHTMTabCtrlEventArgs : SHTMCtrlEventArgs {
  int index = -1;             // the new current tab
  UINT reason = SYNTHESIZED;  // BY_MOUSE_CLICK, BY_KEY_CLICK, or SYNTHESIZED for a call
};

class CHTMTabCtrl : public CHTMCtrl {
 public:
  explicit CHTMTabCtrl(std::wstring id);

  // Appends "<div id='ID' class='tabs'></div>" to the page's body, binds to
  // it (writing the strip, the panels and the scroll buttons into it) and
  // places it absolutely at left and top with the given width and height.
  // False when any step fails; what was written into the page stays there.
  bool CreateInPlace(CHTMDialog& page, int left, int top, int width, int height);

  // Panels added from now on start with style='display:none;', so that none
  // shows until its tab is selected. Off by default: a new panel shows until
  // a selection collapses it.
  void SetCreatePanelsHidden(bool hidden) { m_panelsHidden = hidden; }

  // Adds a tab with that caption (text to HTML: blanks stay, markup passes)
  // at position, or at the end when position is negative or beyond the last
  // tab. Returns the new tab's index; -1 when unbound. Does not select it.
  int AddTab(const std::wstring& caption, int position = -1);
  // Removes the tab's header and panel. When it was current, the next tab
  // (else the previous one) becomes current. False for an index out of range.
  bool RemoveTab(int index);

  // False, and nothing changed, for an index out of range or an unknown name.
  bool SelectTab(int index);
  bool SelectTab(const std::wstring& panelName);
  int GetCurrentTab() const;  // -1 when no tab is current
  int GetTabCount() const;

  CHTMElement GetHeader(int index) const;  // empty when out of range
  CHTMElement GetPanel(int index) const;
  std::wstring GetPanelName(int index) const;
  // The header's text, with its non-breaking blanks read back as blanks.
  std::wstring GetTabCaption(int index) const;
  bool SetTabCaption(int index, const std::wstring& caption);
  // Style "Background-color" of the header (colour as in SetBackgroundColor).
  bool SetTabColor(int index, int color, int transparency = kNoTransparency);

  // The context menu that a right click on the strip opens: style
  // "context-menu" "selector(menu#" + menuId + ")" of the strip.
  void SetContextMenu(const std::wstring& menuId);

  // Measures the headers again and shows or hides the scroll buttons; done
  // after every change of tabs or captions, needed after a resize.
  void UpdateScrollButtons();
  bool AreScrollButtonsShown() const;
  void ScrollPrev() { ScrollBy(-1); }
  void ScrollNext() { ScrollBy(1); }
  int GetFirstShownTab() const { return m_firstShown; }

  const CHTMElement& Strip() const { return m_strip; }
  const CHTMElement& Panels() const { return m_panels; }
  const CHTMElement& ScrollButtons() const { return m_scrollButtons; }

  std::wstring TypeName() const override { return L"CHTMTabCtrl"; }

 protected:
  // Binding finds or writes the strip, the panels and the scroll buttons and
  // attaches the tab behaviour; unbinding detaches it.
  void attached(HELEMENT he) override;
  void detached(HELEMENT he) override;
  BOOL handle_event(HELEMENT he, BEHAVIOR_EVENT_PARAMS& params) override;

 private:
  struct StripGeometry;
  int IndexOf(const CHTMElement& header) const;
  void Redraw() const;
  // Scrolling (CHTMTabCtrlScroll.cpp).
  bool MeasureStrip(StripGeometry& geometry) const;
  void ShowScrollButtons(bool show);
  void MoveStrip(int first, const StripGeometry& geometry);
  void ScrollBy(int step);

  bool m_panelsHidden = false;
  int m_firstShown = 0;  // the first header in view
  int m_reserve = 0;     // the strip's "margin-right" while the scroll buttons show
  CHTMElement m_strip;
  CHTMElement m_panels;
  CHTMElement m_scrollButtons;
};

}  // namespace kvt1
