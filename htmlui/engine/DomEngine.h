#pragma once
// Our own HTML engine: the page as a DOM that follows the library's rules
// (its markup dialect, attribute case, selectors, states, sinking and
// bubbling events, behaviours, timers, popups and values). Geometry comes
// from a layout provider when one is set. Time is whatever tick() says.
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "htmlui/engine/DomPopups.h"
#include "htmlui/engine/DomTextEditing.h"
#include "htmlui/engine/DomTimers.h"
#include "htmlui/engine/DomTree.h"
#include "htmlui/engine/HtmlEngine.h"
#include "htmlui/engine/LayoutProvider.h"
#include "htmlui/engine/StyleBehaviors.h"

namespace kvt1::html {

class DomEngine : public HtmlEngine {
 public:
  DomEngine();
  ~DomEngine() override;
  DomEngine(const DomEngine&) = delete;
  DomEngine& operator=(const DomEngine&) = delete;

  BOOL LoadHtmlEx(HWND hwnd, LPCBYTE html, UINT htmlSize, LPCWSTR baseUrl) override;
  VOID SetCallback(HWND hwnd, LPHTMLAYOUT_NOTIFY cb, LPVOID cbParam) override;
  BOOL DataReady(HWND hwnd, LPCWSTR uri, LPBYTE data, DWORD dataLength) override;
  LRESULT ProcND(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam, BOOL* pbHandled) override;
  HLDOM_RESULT WindowDetachEventHandler(HWND hwnd, LPELEMENT_EVENT_PROC pep, LPVOID tag) override;
  UINT GetMinWidth(HWND hwnd) override;
  UINT GetMinHeight(HWND hwnd, UINT width) override;

  HLDOM_RESULT GetRootElement(HWND hwnd, HELEMENT* phe) override;
  HLDOM_RESULT SelectElements(HELEMENT he, LPCSTR selectors, HTMLayoutElementCallback* cb, LPVOID param) override;
  HLDOM_RESULT SelectElementsW(HELEMENT he, LPCWSTR selectors, HTMLayoutElementCallback* cb, LPVOID param) override;
  HLDOM_RESULT SelectParent(HELEMENT he, LPCSTR selector, UINT depth, HELEMENT* heFound) override;
  HLDOM_RESULT SelectParentW(HELEMENT he, LPCWSTR selector, UINT depth, HELEMENT* heFound) override;
  HLDOM_RESULT FindElement(HWND hwnd, POINT pt, HELEMENT* phe) override;
  HLDOM_RESULT VisitElements(HELEMENT he, LPCSTR tagName, LPCSTR attributeName, LPCWSTR attributeValue,
                             HTMLayoutElementCallback* cb, LPVOID param, DWORD depth) override;
  HLDOM_RESULT GetParentElement(HELEMENT he, HELEMENT* pParent) override;
  HLDOM_RESULT GetNthChild(HELEMENT he, UINT n, HELEMENT* phe) override;
  HLDOM_RESULT GetChildrenCount(HELEMENT he, UINT* count) override;
  HLDOM_RESULT GetElementIndex(HELEMENT he, LPUINT pIndex) override;
  HLDOM_RESULT GetElementType(HELEMENT he, LPCSTR* pType) override;
  HLDOM_RESULT GetElementHwnd(HELEMENT he, HWND* pHwnd, BOOL rootWindow) override;

  HLDOM_RESULT GetElementLocation(HELEMENT he, LPRECT pLocation, UINT areas) override;
  HLDOM_RESULT GetElementIntrinsicWidths(HELEMENT he, INT* pMinWidth, INT* pMaxWidth) override;
  HLDOM_RESULT GetElementIntrinsicHeight(HELEMENT he, INT forWidth, INT* pHeight) override;
  HLDOM_RESULT IsElementVisible(HELEMENT he, BOOL* pVisible) override;
  HLDOM_RESULT GetScrollInfo(HELEMENT he, LPPOINT scrollPos, LPRECT viewRect, LPSIZE contentSize) override;
  HLDOM_RESULT SetScrollPos(HELEMENT he, POINT scrollPos, BOOL smooth) override;

  HLDOM_RESULT GetElementState(HELEMENT he, UINT* pStateBits) override;
  HLDOM_RESULT SetElementState(HELEMENT he, UINT bitsToSet, UINT bitsToClear, BOOL updateView) override;
  HLDOM_RESULT GetAttributeByName(HELEMENT he, LPCSTR name, LPCWSTR* pValue) override;
  HLDOM_RESULT SetAttributeByName(HELEMENT he, LPCSTR name, LPCWSTR value) override;
  HLDOM_RESULT GetStyleAttribute(HELEMENT he, LPCSTR name, LPCWSTR* pValue) override;
  HLDOM_RESULT SetStyleAttribute(HELEMENT he, LPCSTR name, LPCWSTR value) override;

  HLDOM_RESULT GetElementHtmlCB(HELEMENT he, BOOL outer, HTMLayoutWriterCallbackB* cb, LPVOID cbParam) override;
  HLDOM_RESULT SetElementHtml(HELEMENT he, LPCBYTE html, DWORD htmlLength, UINT where) override;
  HLDOM_RESULT GetElementInnerTextCB(HELEMENT he, HTMLayoutWriterCallbackW* cb, LPVOID cbParam) override;
  HLDOM_RESULT SetElementInnerText16(HELEMENT he, LPCWSTR text, UINT length) override;
  HLDOM_RESULT CreateElement(LPCSTR tagName, LPCWSTR textOrNull, HELEMENT* phe) override;
  HLDOM_RESULT CloneElement(HELEMENT he, HELEMENT* phe) override;
  HLDOM_RESULT InsertElement(HELEMENT he, HELEMENT hParent, UINT index) override;
  HLDOM_RESULT DetachElement(HELEMENT he) override;
  HLDOM_RESULT DeleteElement(HELEMENT he) override;
  HLDOM_RESULT SwapElements(HELEMENT he1, HELEMENT he2) override;
  HLDOM_RESULT UpdateElement(HELEMENT he, BOOL remeasure) override;
  HLDOM_RESULT UpdateElementEx(HELEMENT he, UINT flags) override;

  HLDOM_RESULT AttachEventHandlerEx(HELEMENT he, LPELEMENT_EVENT_PROC pep, LPVOID tag, UINT subscription) override;
  HLDOM_RESULT DetachEventHandler(HELEMENT he, LPELEMENT_EVENT_PROC pep, LPVOID tag) override;
  HLDOM_RESULT SendEvent(HELEMENT he, UINT appEventCode, HELEMENT heSource, UINT_PTR reason, BOOL* handled) override;
  HLDOM_RESULT PostEvent(HELEMENT he, UINT appEventCode, HELEMENT heSource, UINT reason) override;
  HLDOM_RESULT CallBehaviorMethod(HELEMENT he, METHOD_PARAMS* params) override;
  HLDOM_RESULT ControlGetValue(HELEMENT he, VALUE* pVal) override;
  HLDOM_RESULT ControlSetValue(HELEMENT he, const VALUE* pVal) override;
  HLDOM_RESULT SetTimerEx(HELEMENT he, UINT milliseconds, UINT_PTR timerId) override;

  HLDOM_RESULT ShowPopup(HELEMENT hePopup, HELEMENT heAnchor, UINT placement) override;
  HLDOM_RESULT ShowPopupAt(HELEMENT hePopup, POINT pos, UINT mode) override;
  HLDOM_RESULT TrackPopupAt(HELEMENT hePopup, POINT posRoot, UINT mode, HELEMENT* pheItem) override;
  HLDOM_RESULT HidePopup(HELEMENT he) override;

  HLDOM_RESULT UseElement(HELEMENT he) override;
  HLDOM_RESULT UnuseElement(HELEMENT he) override;

  UINT ValueInit(VALUE* pval) override;
  UINT ValueClear(VALUE* pval) override;
  UINT ValueCopy(VALUE* pdst, const VALUE* psrc) override;
  UINT ValueCompare(const VALUE* pval1, const VALUE* pval2) override;
  UINT ValueIntData(const VALUE* pval, INT* pData) override;
  UINT ValueIntDataSet(VALUE* pval, INT data, UINT type, UINT units) override;
  UINT ValueFloatDataSet(VALUE* pval, double data, UINT type, UINT units) override;
  UINT ValueStringData(const VALUE* pval, LPCWSTR* pChars, UINT* pNumChars) override;
  UINT ValueStringDataSet(VALUE* pval, LPCWSTR chars, UINT numChars, UINT units) override;
  UINT ValueToString(VALUE* pval, UINT how) override;

  // Automation: what a user's click, focus and pointer do. click() returns
  // whether a handler handled the resulting event; a disabled element takes no click.
  bool click(HELEMENT he);
  bool setFocus(HWND hwnd, HELEMENT he);  // he null: no element has the focus
  bool setHover(HWND hwnd, HELEMENT he);  // he null: the pointer left the page
  // A key (KEY_DOWN, KEY_UP or KEY_CHAR) for the view's focused element, the
  // root when none has the focus; true when a handler handled it.
  bool key(HWND hwnd, UINT cmd, UINT code, UINT altState);
  // The behaviour names of an element: its "behavior" attribute, else its
  // style's "behavior" (runtime, inline, then the page's style sheets); none
  // when nothing gives it one.
  std::optional<std::wstring> behaviorOf(HELEMENT he);
  // A pointer event (MOUSE_DOWN, MOUSE_UP, ...) at he, pt in view
  // coordinates; a MOUSE_DOWN that no handler handled gives the focus to the
  // nearest element that takes it. True when a handler handled the event.
  bool mouse(HWND hwnd, UINT cmd, HELEMENT he, POINT pt);

  // A right click at pt (view coordinates) on target: CONTEXT_MENU_REQUEST
  // sinks and bubbles from target (its "he" is the menu that would open, or
  // null). When no handler handled it, the menu that the style "context-menu"
  // "selector(...)" of target or an ancestor names opens with its top left at
  // pt. True when a handler handled the request or a menu opened.
  bool contextMenu(HWND hwnd, HELEMENT target, POINT pt);
  // Where the last context-menu request happened, in view coordinates.
  POINT contextMenuPoint() const { return contextPoint_; }
  // Hides the view's open popups that do not hold he (null: all of them).
  void closePopupsOutside(HWND hwnd, HELEMENT he);

  // Delivers the posted events queued so far; returns how many.
  std::size_t pumpPosted();
  // Moves the engine's clock on and delivers the timers that fall due. When
  // the hovered element has not changed for kHoverRestMs, it is sent one
  // POPUP_REQUEST (target and source: that element), as for a tooltip.
  void tick(UINT elapsedMs);
  static constexpr UINT kHoverRestMs = DomTimers::kHoverRestMs;
  // Chooses the item of a popup that TrackPopupAt runs; without one it returns none.
  void setPopupUser(std::function<HELEMENT(HELEMENT popup)> user);

  // Geometry: the provider lays out snapshots of the page; the view's size
  // comes from WM_SIZE through ProcND or from here.
  void setLayoutProvider(std::unique_ptr<LayoutProvider> provider);
  void setViewSize(HWND hwnd, int width, int height);
  std::string serializeForLayout(HWND hwnd);
  // The bytes of a picture that the page being laid out names (an img src,
  // a url() of a style sheet or style): asked of its view's load-data
  // request, like every other resource, once per URL and view. The layout
  // provider's picture loader.
  std::vector<unsigned char> pictureData(const std::string& url);
  bool renderPng(HWND hwnd, const std::string& path);
  // Draws the window as its user sees it (WindowFrame.h) into a PNG file:
  // the page at the client area's size, in the window's frame and caption.
  bool renderWindowPng(HWND hwnd, const std::string& path);

  // Drops a view (its window is gone); elements in use stay valid, detached.
  void closeView(HWND hwnd);

  // Real time (DomEngineWindow.cpp): with a clock (milliseconds, steady),
  // each view's window gets a timer that moves the engine's clock on as
  // time passes; without one, only tick() does.
  void setClock(std::function<std::uint64_t()> milliseconds);

 private:
  struct View {
    HWND hwnd = nullptr;
    std::uint32_t root = 0;
    LPHTMLAYOUT_NOTIFY callback = nullptr;
    LPVOID callbackParam = nullptr;
    std::wstring baseUrl;
    std::map<std::wstring, std::wstring> importedStyles;
    std::map<std::wstring, std::string> pictures;  // answers to picture requests, by URI
    StyleBehaviors sheetBehaviors;                 // "behavior" as the page's style sheets declare it
    std::wstring pendingUri;                       // the URI of the load request being answered
    bool pending = false;
    std::string pendingData;
    bool pendingAnswered = false;
    int width = 800;
    int height = 600;
    std::uint64_t laidOutGeneration = 0;
    int laidOutWidth = -1;
    std::uint32_t focus = 0;
    std::uint32_t hover = 0;
    bool pointerTracked = false;  // a WM_MOUSELEAVE is asked for
    bool clockRunning = false;
    std::uint64_t clockRead = 0;  // the clock when the view's time last moved on
  };
  struct PostedEvent {
    std::uint32_t target = 0;
    UINT code = 0;
    std::uint32_t source = 0;
    UINT reason = 0;
  };

  // Elements and views.
  Element* element(HELEMENT he) const { return tree_.find(he); }
  View* viewOf(const Element& e);
  View* findView(HWND hwnd);
  View& ensureView(HWND hwnd);
  // Counts a change and asks the views' windows to be painted again, once until they are.
  void changed();
  void initialStates(Element& top);
  void attachBehaviors(Element& top);
  void collect(Element& top, bool force);
  // Destroys the former children (already without a parent) that are not in use.
  void releaseNodes(const std::vector<Node>& nodes);
  Element* cloneTree(const Element& source);
  void installPage(View& view, std::vector<Node> nodes);
  void loadResources(View& view);
  // Takes the "behavior" rules of the page's style sheets in cascade order:
  // each <style> and linked sheet in document order, its imports first.
  void gatherStyleBehaviors(View& view);
  std::optional<std::wstring> behaviorNames(const Element& e, const View* view) const;
  void requestData(HWND hwnd, const std::wstring& uri, UINT type, HELEMENT principal, int depth);
  // Sends the load-data request; the answered bytes, nothing when there are none or they are discarded.
  std::optional<std::string> askForData(HWND hwnd, const std::wstring& uri, UINT type, HELEMENT principal);
  LRESULT notify(HWND hwnd, NMHDR& header);

  // Selection.
  HLDOM_RESULT select(HELEMENT he, const std::wstring& selectors, HTMLayoutElementCallback* cb, LPVOID param);
  HLDOM_RESULT selectParent(HELEMENT he, const std::wstring& selector, UINT depth, HELEMENT* heFound);

  // Events.
  bool callHandlers(std::uint32_t number, UINT group, void* params);
  bool dispatch(Element& target, UINT group, UINT* cmd, void* params);
  bool sendBehaviorEvent(Element& target, UINT code, Element* source, UINT_PTR reason);
  void initialize(LPELEMENT_EVENT_PROC proc, LPVOID tag, HELEMENT he, UINT cmd);

  // The messages of a real window (DomEngineWindow.cpp): painting, the
  // pointer leaving, the real-time clock. True when the message was answered.
  bool answerWindow(HWND hwnd, UINT msg, WPARAM wParam, LRESULT& result);
  void startClock(View& view);

  // Text editing of inputs and text areas (DomEngineEditing.cpp): applies
  // and announces what a key that no handler took does to the focused
  // element; "selectAll".
  void editByKey(std::uint32_t target, UINT cmd, UINT code);
  HLDOM_RESULT callEditMethod(Element& e, XCALL_PARAMS& params);

  // Hover rest (DomEngineTimers.cpp): a POPUP_REQUEST for the element the
  // pointer has rested on for kHoverRestMs of the engine's clock.
  void reportHoverRest();

  // Keys: the focus moves on (or back) to the next element that takes it.
  void tabFocus(HWND hwnd, bool backwards);

  // Popups: shown and hidden with the events that say so; menus.
  HLDOM_RESULT showPopup(Element& popup, Element* anchor, const DomPopups::Place& place);
  void hidePopup(Element& popup);
  bool clickMenuItem(Element& item);
  void openSubMenu(Element& item, Element& menu);
  Element* contextMenuOf(Element& e);

  // Geometry.
  bool ensureLayout(View& view, int width);
  std::optional<LayoutBox> boxOf(Element& e);

  DomTree tree_;
  std::map<HWND, View> views_;
  DomPopups popups_{tree_};
  DomTimers timers_;
  DomTextEditing editing_;
  std::deque<PostedEvent> posted_;
  std::uint64_t generation_ = 1;  // counts every change, for layout
  std::unique_ptr<LayoutProvider> layout_;
  HWND laidOutView_ = nullptr;
  HWND layingOut_ = nullptr;  // the view whose snapshot the provider lays out now: it answers picture requests
  POINT contextPoint_{0, 0};
  std::function<std::uint64_t()> clock_;
  bool repaintAsked_ = false;  // a repaint is asked of the views' windows and not done yet
};

}  // namespace kvt1::html
