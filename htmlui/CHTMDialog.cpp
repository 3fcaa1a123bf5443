#include "htmlui/CHTMDialog.h"

#include <algorithm>
#include <cwchar>
#include <mutex>

#include "htmlui/CHTMCtrl.h"
#include "htmlui/HTMEngine.h"
#include "platform/Resources.h"
#include "platform/Shell.h"
#include "platform/ThisModule.h"
#include "platform/Unicode.h"

namespace kvt1 {
namespace {

// Every constructed dialog, in order of construction.
std::mutex g_liveMutex;
std::vector<CHTMDialog*> g_live;

const wchar_t kDialogProperty[] = L"FPHTMDialog";
const wchar_t kWaitBoxId[] = L"ID#WaitBOX";
constexpr int kShowNormal = 1;  // SW_SHOWNORMAL

int attributeNumber(const CHTMElement& element, const char* name, bool& present) {
  const std::wstring text = element.GetAttribute(name);
  present = !text.empty();
  return present ? static_cast<int>(std::wcstol(text.c_str(), nullptr, 10)) : 0;
}

}  // namespace

CHTMDialog::CHTMDialog(std::wstring resourceName, HWND parent)
    : m_parent(parent), m_resourceName(std::move(resourceName)) {
  std::lock_guard<std::mutex> lock(g_liveMutex);
  g_live.push_back(this);
}

CHTMDialog::CHTMDialog(unsigned short resourceId, HWND parent) : m_parent(parent), m_resourceId(resourceId) {
  std::lock_guard<std::mutex> lock(g_liveMutex);
  g_live.push_back(this);
}

CHTMDialog::~CHTMDialog() {
  // Controls that are members of a subclass are gone by now; each unbound itself.
  m_controls.clear();
  if (platform::isWindow(m_hwnd)) platform::destroyWindow(m_hwnd);
  ReleasePage();
  std::lock_guard<std::mutex> lock(g_liveMutex);
  const auto at = std::find(g_live.begin(), g_live.end(), this);
  if (at != g_live.end()) g_live.erase(at);
}

std::wstring CHTMDialog::ResolveTag(const std::wstring&) { return {}; }

bool CHTMDialog::OnButtonClick(const CHTMElement&, const std::wstring&, BEHAVIOR_EVENT_PARAMS&) { return false; }

void CHTMDialog::OnControlEvent(SHTMCtrlEventArgs&) {}

void CHTMDialog::RegisterControl(CHTMCtrl& control) { m_controls.push_back(&control); }

CHTMElement CHTMDialog::ElementById(const std::wstring& id) const {
  if (id.find_first_of(L"'\\") != std::wstring::npos) return {};
  return m_root.SelectFirst(L"[id='" + id + L"']");
}

bool CHTMDialog::PreparePage() {
  m_moduleInstance = platform::thisModuleHandle();
  const platform::ResourceId name =
      m_resourceName.empty() ? platform::ResourceId(m_resourceId) : platform::ResourceId(m_resourceName);
  std::optional<std::wstring> page = loadPageResource(m_moduleInstance, name);
  if (!page) return false;
  m_html = cutAfterHtmlEnd(std::move(*page));
  substitutePageTags(m_html, [this](const std::wstring& tag) { return ResolveTag(tag); });
  if (m_html.empty()) return false;

  m_markers = findPageMarkers(m_html);
  m_dontMonitor = m_markers.dontMonitor;
  // A subclass may have made the dialog a child already; the page only adds to that.
  m_markers.child = m_markers.child || m_child;
  m_child = m_markers.child;
  const WindowStyles styles = dialogWindowStyles(m_markers, m_baseStyle);
  m_style = styles.style;
  m_exStyle = styles.exStyle;
  return true;
}

bool CHTMDialog::Create() {
  if (GetHtmlEngine() == nullptr || platform::isWindow(m_hwnd) || !PreparePage()) return false;
  m_hwnd = platform::createDialogWindow(m_parent, m_style, m_exStyle, this);
  if (m_hwnd == nullptr) return false;
  if (m_timerOn) platform::setTimer(m_hwnd, kDialogTimerId, kDialogTimerPeriod);
  platform::showWindow(m_hwnd, true);
  return true;
}

int CHTMDialog::DoModal() {
  std::vector<CHTMDialog*> others;
  {
    std::lock_guard<std::mutex> lock(g_liveMutex);
    others = g_live;
  }
  for (CHTMDialog* other : others) {
    if (other != this) other->GiveWayToModalDialog();
  }
  if (!Create()) return -1;
  const HWND owner = platform::parentWindow(m_hwnd);
  if (owner) platform::enableWindow(owner, false);
  while (platform::isWindow(m_hwnd) && platform::pumpMessage()) {
  }
  if (platform::isWindow(m_hwnd)) platform::destroyWindow(m_hwnd);
  if (owner) {
    platform::enableWindow(owner, true);
    platform::setForegroundWindow(owner);
  }
  return m_result;
}

void CHTMDialog::Close() {
  if (!platform::isWindow(m_hwnd)) return;
  if (const HWND owner = platform::parentWindow(m_hwnd)) {
    platform::enableWindow(owner, true);
    platform::setForegroundWindow(owner);
  }
  platform::destroyWindow(m_hwnd);
}

void CHTMDialog::InitWindow() {
  html::HtmlEngine& engine = *GetHtmlEngine();
  platform::setWindowUserData(m_hwnd, reinterpret_cast<std::intptr_t>(this));
  setup_callback(engine, m_hwnd);
  const std::string bytes = platform::toUtf8(m_html);
  engine.LoadHtmlEx(m_hwnd, reinterpret_cast<LPCBYTE>(bytes.data()), static_cast<UINT>(bytes.size()), L"");

  HELEMENT root = nullptr;
  engine.GetRootElement(m_hwnd, &root);
  m_root = CHTMElement(root);
  m_body = m_root.SelectFirst(L"body");
  if (m_root.IsValid()) engine.AttachEventHandlerEx(m_root.Handle(), &element_proc, this, HANDLE_ALL);

  // The body may make the dialog resizeable as the marker does: its window takes the styles that follow.
  if (!m_markers.resizeable && !m_body.GetAttribute("resizeable").empty()) {
    m_markers.resizeable = true;
    const WindowStyles styles = dialogWindowStyles(m_markers, m_baseStyle);
    m_style = styles.style;
    m_exStyle = styles.exStyle;
    platform::setWindowStyles(m_hwnd, m_style, m_exStyle);
  }
  const std::wstring title = m_body.GetAttribute("title");
  if (!title.empty()) platform::setWindowText(m_hwnd, title);
  const std::wstring icon = m_body.GetAttribute("icon");
  if (!icon.empty()) platform::setWindowIcon(m_hwnd, m_moduleInstance, icon);

  for (CHTMCtrl* control : m_controls) control->Bind(*this, m_root);
  m_tooltip.Bind(*this, m_root);

  m_waitBox = ElementById(kWaitBoxId);
  if (m_waitBox.IsValid()) engine.DetachElement(m_waitBox.Handle());

  PlaceWindow();
  platform::setWindowProp(m_hwnd, kDialogProperty, 1);
  OnInitDialog();
}

void CHTMDialog::PlaceWindow() {
  bool hasWidth = false;
  bool hasHeight = false;
  bool hasX = false;
  bool hasY = false;
  int width = 0;
  int height = 0;
  int x = 0;
  int y = 0;
  const CHTMElement layout = ElementById(L"FPDialogLayout");
  if (layout.IsValid()) {
    width = attributeNumber(layout, "width", hasWidth);
    height = attributeNumber(layout, "height", hasHeight);
    x = attributeNumber(layout, "x", hasX);
    y = attributeNumber(layout, "y", hasY);
  }
  // The page's own size only when the layout element does not give one: each query lays the page out.
  html::HtmlEngine& engine = *GetHtmlEngine();
  if (!hasWidth) width = static_cast<int>(engine.GetMinWidth(m_hwnd));
  if (!hasHeight) height = static_cast<int>(engine.GetMinHeight(m_hwnd, static_cast<UINT>(width)));
  width = std::clamp(width, m_minTrackWidth, m_maxTrackWidth);
  height = std::clamp(height, m_minTrackHeight, m_maxTrackHeight);

  const platform::WindowRect frame =
      platform::adjustWindowRectForStyle(platform::WindowRect{0, 0, width, height}, m_style, m_exStyle);
  const int outerWidth = frame.width();
  const int outerHeight = frame.height();
  if (m_child) {
    platform::moveWindow(m_hwnd, hasX ? x : 0, hasY ? y : 0, outerWidth, outerHeight);
    return;
  }
  // Without a position the dialog is centred on its visible owner, else on the desktop.
  const HWND owner = platform::parentWindow(m_hwnd);
  const platform::WindowRect around =
      owner && platform::isWindowVisible(owner) ? platform::windowRect(owner) : platform::desktopRect();
  const int left = hasX ? x : around.left + (around.width() - outerWidth) / 2;
  const int top = hasY ? y : around.top + (around.height() - outerHeight) / 2;
  const platform::WindowRect placed =
      platform::keptOnMonitor(platform::WindowRect{left, top, left + outerWidth, top + outerHeight});
  platform::moveWindow(m_hwnd, placed.left, placed.top, placed.width(), placed.height());
}

void CHTMDialog::FocusOnHover() {
  if (!m_focusOnHover || !platform::isWindowEnabled(m_hwnd)) return;
  const platform::WindowPoint cursor = platform::cursorPos();
  const HWND focus = platform::focusWindow();
  if (platform::windowRect(m_hwnd).contains(cursor.x, cursor.y) && platform::windowFromPoint(cursor) == m_hwnd &&
      focus != m_hwnd && !platform::isChildWindow(m_hwnd, focus)) {
    platform::setFocusWindow(m_hwnd);
  }
}

void CHTMDialog::ReleasePage() {
  html::HtmlEngine* engine = GetHtmlEngine();
  for (CHTMCtrl* control : m_controls) control->Unbind();
  m_tooltip.Unbind();
  m_menu.Unbind();
  if (engine && m_root.IsValid()) engine->DetachEventHandler(m_root.Handle(), &element_proc, this);
  m_waitBox.Release();
  m_shim.Release();
  m_body.Release();
  m_root.Release();
}

std::intptr_t CHTMDialog::onMessage(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam,
                                    bool& handled) {
  handled = true;
  switch (message) {
    case WM_INITDIALOG:
      m_hwnd = window;
      InitWindow();
      return 1;
    case WM_TIMER:
      // The engine's own timers are the engine's.
      if (EngineHandles(window, message, wParam, lParam)) return 0;
      if (wParam == kDialogTimerId && m_timerOn) {
        FocusOnHover();
      } else {
        OnTimer(wParam);
      }
      return 0;
    case WM_CLOSE:
      Close();
      return 0;
    case WM_GETMINMAXINFO:
      platform::setTrackSizeLimits(lParam, m_minTrackWidth, m_minTrackHeight, m_maxTrackWidth, m_maxTrackHeight);
      return 0;
    case WM_NCDESTROY:
      // The page's elements are let go before the engine drops the page itself.
      ReleasePage();
      m_hwnd = nullptr;
      break;
    default:
      break;
  }
  std::intptr_t result = 0;
  handled = EngineHandles(window, message, wParam, lParam, &result);
  return result;
}

bool CHTMDialog::EngineHandles(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam,
                               std::intptr_t* result) {
  html::HtmlEngine* engine = GetHtmlEngine();
  if (engine == nullptr) return false;
  BOOL handled = FALSE;
  const LRESULT answer = engine->ProcND(window, message, wParam, lParam, &handled);
  if (result != nullptr) *result = answer;
  return handled != FALSE;
}

BOOL CHTMDialog::handle_event(HELEMENT he, BEHAVIOR_EVENT_PARAMS& params) {
  if (!(params.cmd & SINKING)) return FALSE;
  const UINT code = params.cmd & ~(SINKING | HANDLED);
  const CHTMElement target(params.heTarget);
  if (code == BUTTON_PRESS || code == BUTTON_STATE_CHANGED || code == BUTTON_CLICK) m_tooltip.Hide();
  switch (code) {
    case BUTTON_CLICK: {
      const std::wstring name = target.GetAttribute("name");
      if (!m_dontMonitor && !MonitorClick(target)) return TRUE;
      const std::optional<int> result = standardButtonResult(name);
      if (result || name == kMainClickElement) {
        if (result) {
          m_result = *result;
        } else {
          OnMainClick();
        }
        platform::postMessage(target.Window() ? target.Window() : m_hwnd, WM_CLOSE, 0, 0);
        return TRUE;
      }
      return OnButtonClick(target, target.GetAttribute("id"), params) ? TRUE : FALSE;
    }
    case HYPERLINK_CLICK: {
      const std::wstring href = target.GetAttribute("href");
      if (!href.empty()) platform::shellOpen(href, kShowNormal);
      return TRUE;
    }
    case CONTEXT_MENU_REQUEST:
      return OpenContextMenu(target) ? TRUE : FALSE;
    case MENU_ITEM_CLICK:
      return ChooseFromContextMenu(CHTMElement(params.he != nullptr ? params.he : params.heTarget)) ? TRUE : FALSE;
    case POPUP_REQUEST:
      return ShowTooltip(target) ? TRUE : FALSE;
    default:
      return FALSE;
  }
}

BOOL CHTMDialog::handle_mouse(HELEMENT, MOUSE_PARAMS& params) {
  // The pointer moved to another element, or pressed: the hover tooltip goes.
  const UINT code = params.cmd & ~(SINKING | HANDLED);
  if ((params.cmd & SINKING) && (code == MOUSE_ENTER || code == MOUSE_LEAVE || code == MOUSE_DOWN)) m_tooltip.Hide();
  return FALSE;
}

LRESULT CHTMDialog::on_load_data(LPNMHL_LOAD_DATA request) {
  html::HtmlEngine* engine = GetHtmlEngine();
  if (engine == nullptr || request->uri == nullptr) return LOAD_OK;
  const PageResourceName resource = resourceForUrl(request->uri);
  if (auto data = platform::findResource(m_moduleInstance, resource.type, resource.name)) {
    engine->DataReady(request->hdr.hwndFrom, request->uri, const_cast<LPBYTE>(data->bytes),
                      static_cast<DWORD>(data->size));
  }
  return LOAD_OK;
}

void CHTMDialog::ShowWaitBox(bool show) {
  html::HtmlEngine* engine = GetHtmlEngine();
  if (engine == nullptr || !m_waitBox.IsValid() || !m_body.IsValid()) return;
  if (show) {
    engine->InsertElement(m_waitBox.Handle(), m_body.Handle(), m_body.ChildCount());
  } else {
    engine->DetachElement(m_waitBox.Handle());
  }
  m_body.Update(true);
  platform::pumpPendingMessages();
}

void CHTMDialog::ShowShim(bool show, int marginTop, int marginLeft) {
  html::HtmlEngine* engine = GetHtmlEngine();
  if (engine == nullptr || !m_body.IsValid()) return;
  if (!show) {
    if (m_shim.IsValid()) engine->DetachElement(m_shim.Handle());
  } else {
    if (!m_shim.IsValid()) {
      HELEMENT created = nullptr;
      if (engine->CreateElement("div", nullptr, &created) != HLDOM_OK) return;
      m_shim = CHTMElement(created);
      engine->UnuseElement(created);  // the wrapper holds the one reference now
      m_shim.SetAttribute("class", L"ShimColor");
    }
    engine->InsertElement(m_shim.Handle(), m_body.Handle(), 0);
    m_shim.SetStyle("display", L"block");
    if (marginTop != -1) m_shim.SetStyle("margin-top", std::to_wstring(marginTop));
    if (marginLeft != -1) m_shim.SetStyle("margin-left", std::to_wstring(marginLeft));
  }
  m_body.Update(true);
  platform::pumpPendingMessages();
}

}  // namespace kvt1
