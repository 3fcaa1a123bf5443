#pragma once
// The tab behaviour "tabs": one tab set, a strip of headers over a stack of
// panels, of which the current header's panel is shown.
//
//   <div class='tabs'>
//     <div class='strip'><div panel='a'>A</div><div panel='b'>B</div></div>
//     <div class='panels'><div name='a'></div><div name='b'></div></div>
//   </div>
//
// A header is a child of ":root>.strip" with a "panel" attribute; its panel is
// the child of a div of the tab set whose "name" equals that value. The
// current header has STATE_CURRENT; its panel STATE_EXPANDED and style
// "display" "block"; a panel that loses its header gets STATE_COLLAPSED and
// "display" "none".
//
// Attached (by a page's behavior="tabs" or by CHTMTabCtrl), it selects the
// header marked "selected", else the first one. A press of the main mouse
// button on a header, or a click on it, selects it unless it is disabled;
// the press is left unhandled so that the engine may move the focus. While
// the strip or a header has the focus, LEFT and RIGHT move to the previous
// or next header, HOME and END to the first or last, passing over headers
// that are disabled or not visible.
//
// Every change of the current header is reported as ELEMENT_EXPANDED sent
// to the tab set element (heTarget), with the new header as source (he) and
// as reason BY_MOUSE_CLICK, BY_KEY_CLICK or SYNTHESIZED (a call of select).
// Selecting the header that is already current reports nothing.
#include "htmlui/engine/HtmlayoutEventHandler.h"

namespace htmlayout {

class tabs : public behavior {
 public:
  tabs();

  // The one behaviour object, attached to every tab set.
  static tabs& instance();

  // Makes header the current header of tabSet and shows its panel. False,
  // and nothing changed, when header is not one of the set's headers.
  static bool select(HELEMENT tabSet, HELEMENT header, UINT reason);
  // The panel of one of the set's headers: the k-th header naming a panel
  // goes with the k-th panel of that name. Null when there is none.
  static HELEMENT panel(HELEMENT tabSet, HELEMENT header);

  void attached(HELEMENT he) override;
  BOOL handle_mouse(HELEMENT he, MOUSE_PARAMS& params) override;
  BOOL handle_key(HELEMENT he, KEY_PARAMS& params) override;
  BOOL handle_event(HELEMENT he, BEHAVIOR_EVENT_PARAMS& params) override;
};

}  // namespace htmlayout
