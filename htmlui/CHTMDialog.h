#pragma once
// A dialog that shows one HTML page of the module's resources in its own
// window: the page is loaded and its tags filled, the window is shaped by the
// page's markers and layout element, controls are bound to elements by id,
// the standard buttons end the dialog with their result, hyperlinks open in
// the shell, and a modal run disables the owner until the window is gone.
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "htmlui/CHTMElement.h"
#include "htmlui/CHTMMenuCtrl.h"
#include "htmlui/CHTMTooltipCtrl.h"
#include "htmlui/HTMPage.h"
#include "htmlui/engine/HtmlayoutEventHandler.h"
#include "platform/DialogWindow.h"

namespace kvt1 {

class CHTMCtrl;
struct SHTMCtrlEventArgs;
struct STooltipTarget;

class CHTMDialog : public htmlayout::event_handler,
                   public htmlayout::notification_handler<CHTMDialog>,
                   private platform::DialogWindowProcedure {
 public:
  CHTMDialog(std::wstring resourceName, HWND parent);
  CHTMDialog(unsigned short resourceId, HWND parent);
  ~CHTMDialog() override;
  CHTMDialog(const CHTMDialog&) = delete;
  CHTMDialog& operator=(const CHTMDialog&) = delete;

  // Loads the page and creates the window (modeless). False, and no window,
  // when there is no engine, no page resource or an empty page.
  bool Create();
  // Creates the window and runs it modally; the result of the button that
  // ended it (2 when closed otherwise), or -1 when it could not be created.
  int DoModal();
  // Enables the owner, brings it to the foreground and destroys the window.
  void Close();

  HWND GetHwnd() const { return m_hwnd; }
  int GetResult() const { return m_result; }
  void SetResult(int result) { m_result = result; }
  const std::wstring& GetHtml() const { return m_html; }
  std::uint32_t Style() const { return m_style; }
  std::uint32_t ExStyle() const { return m_exStyle; }
  const CHTMElement& Root() const { return m_root; }
  const CHTMElement& Body() const { return m_body; }
  // The element of the page with that id; empty when there is none.
  CHTMElement ElementById(const std::wstring& id) const;

  // Controls are bound to their elements when the window comes up.
  void RegisterControl(CHTMCtrl& control);
  // A control's notification; nothing by default.
  virtual void OnControlEvent(SHTMCtrlEventArgs& args);

  // Switches the 100 ms timer off before Create, or focus-on-hover off.
  void SetTimerOn(bool on) { m_timerOn = on; }
  void SetFocusOnHover(bool on) { m_focusOnHover = on; }

  // The wait box "ID#WaitBOX" of the page, inserted or taken out of the DOM;
  // the shim (class "ShimColor"), shown as the first child of the body with
  // its margins (-1: not set). Both are painted at once.
  void ShowWaitBox(bool show);
  void ShowShim(bool show, int marginTop = -1, int marginLeft = -1);

  // The popup of the hover tooltips, "Tooltip#FormPilotDialog": the page's
  // own when it has one, else written into the page when first needed.
  CHTMTooltipCtrl& Tooltip() { return m_tooltip; }
  // The context menu, bound once it was first needed.
  CHTMMenuCtrl& ContextMenu() { return m_menu; }

  // Engine notifications: load requests are answered from the module's resources.
  LRESULT on_load_data(LPNMHL_LOAD_DATA request) override;

 protected:
  // Fills a page tag "<[tag]>"; empty for an unknown tag.
  virtual std::wstring ResolveTag(const std::wstring& tag);
  // After the page is loaded and the controls are bound.
  virtual void OnInitDialog() {}
  // A click on a button that is not a standard one; true when handled.
  virtual bool OnButtonClick(const CHTMElement& element, const std::wstring& id, BEHAVIOR_EVENT_PARAMS& params);
  // The button named "MAINCLICKELEMENT".
  virtual void OnMainClick() {}
  // Offered every button click unless the page says "hvdontmonitor"; false consumes it.
  virtual bool MonitorClick(const CHTMElement& element) { return true; }
  // Ticks of the dialog's own timers, and of the 100 ms timer while it is off.
  virtual void OnTimer(std::uintptr_t id) {}
  // Another dialog of the module is about to run modally and wait for the
  // user: a dialog that would cover it (the topmost splash) gets out of the
  // way. Nothing by default.
  virtual void GiveWayToModalDialog() {}

  // Hover tooltips (HTMTooltips.cpp). When the pointer rests on an element
  // (a POPUP_REQUEST), its tooltip comes from, in this order: a "SELFTOOLTIP"
  // or "SELFIMAGETOOLTIP" element itself (HTMTooltipTarget.h); the bound
  // control whose element is the nearest with an id, unless a sub-item of it
  // is hovered (its CurrentTooltip()); TooltipTexts. Texts pass TextToHtml.
  // An empty text shows nothing; "DontHandleTooltip" and an element that
  // belongs to nothing are left to the engine's own tooltip. A press, a click
  // or the pointer moving to another element hides the tooltip.
  //
  // The text store's tooltips of a dialog (NTxtRes::GetTooltip):
  //   dialog id   TooltipDialogId(); 0 means the dialog keeps none there;
  //   control id  the decimal "cid" attribute of the nearest element with an
  //               id, or else the decimal "ContextID" of the nearest element
  //               with one;
  //   index       0 for the element itself, the item's "FPID" for a sub-item
  //               (so items are numbered from 1);
  // "Text" is the tooltip's title, "ExtendedText" its details.
  //
  // By default the numeric page id; 0 for a page named by text.
  virtual int TooltipDialogId() const;
  // The title and details for target from the text store, by the layout
  // above; a subclass may answer for its elements itself.
  virtual std::pair<std::wstring, std::wstring> TooltipTexts(const STooltipTarget& target);

  // The context menu (HTMMenuContext.cpp). A right click (CONTEXT_MENU_REQUEST)
  // goes to the nearest element with an id: when HasContextMenu says it has
  // one, FillContextMenu lists the entries for that id and the cursor's point
  // (client coordinates). Unless the list is empty, the dialog's menu
  // "Menu#CHTMLDialog" (written into the page when it lacks one) is filled in
  // list order and pops up at the point. The command of the chosen entry
  // comes back to OnContextMenuCommand with the same id.
  virtual bool HasContextMenu(const CHTMElement& element, const std::wstring& id) { return false; }
  virtual void FillContextMenu(const std::wstring& id, POINT point, std::vector<SHTMMenuEntry>& entries) {}
  virtual void OnContextMenuCommand(const std::wstring& id, unsigned command) {}

  // The style the subclass starts from, ORed with the page's.
  std::uint32_t m_baseStyle = 0;
  bool m_child = false;
  int m_minTrackWidth = 100;
  int m_minTrackHeight = 100;
  int m_maxTrackWidth = 0x7FFFFFFF;
  int m_maxTrackHeight = 0x7FFFFFFF;

  BOOL handle_event(HELEMENT he, BEHAVIOR_EVENT_PARAMS& params) override;
  BOOL handle_mouse(HELEMENT he, MOUSE_PARAMS& params) override;

 private:
  bool PreparePage();
  void InitWindow();
  void PlaceWindow();
  void FocusOnHover();
  void ReleasePage();
  // True when the dialog answered the request (shown, or nothing to show).
  bool ShowTooltip(const CHTMElement& element);
  // True when the dialog's menu popped up for the request.
  bool OpenContextMenu(const CHTMElement& target);
  // True when item belongs to the dialog's menu and was passed on.
  bool ChooseFromContextMenu(const CHTMElement& item);
  std::intptr_t onMessage(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam,
                          bool& handled) override;
  // Offers a message to the engine's window procedure; true when it answered (result: its answer).
  bool EngineHandles(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam,
                     std::intptr_t* result = nullptr);

  bool m_dontMonitor = false;
  HWND m_hwnd = nullptr;
  HWND m_parent = nullptr;
  std::uint32_t m_style = 0;
  std::uint32_t m_exStyle = 0;
  std::wstring m_resourceName;
  unsigned short m_resourceId = 0;
  std::wstring m_html;
  int m_result = 2;
  std::vector<CHTMCtrl*> m_controls;
  CHTMElement m_root;
  CHTMElement m_body;
  CHTMElement m_waitBox;
  CHTMElement m_shim;
  PageMarkers m_markers;
  bool m_timerOn = true;
  bool m_focusOnHover = true;
  void* m_moduleInstance = nullptr;
  CHTMMenuCtrl m_menu{L"Menu#CHTMLDialog", CHTMMenuCtrl::Kind::Context};
  std::wstring m_contextMenuId;  // the id the open context menu was filled for
  CHTMTooltipCtrl m_tooltip{L"Tooltip#FormPilotDialog"};
};

// The window timer that drives focus-on-hover, and its period.
constexpr std::uintptr_t kDialogTimerId = 0xFFFFFFFF;
constexpr unsigned kDialogTimerPeriod = 100;

}  // namespace kvt1
