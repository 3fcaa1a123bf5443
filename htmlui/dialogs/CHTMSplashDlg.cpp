#include "htmlui/dialogs/CHTMSplashDlg.h"

#include <algorithm>

#include "htmlui/HTMEngine.h"
#include "platform/DialogWindow.h"

namespace kvt1 {
namespace {

std::wstring pixels(int value) { return std::to_wstring(value) + L"px"; }

}  // namespace

CHTMSplashDlg::CHTMSplashDlg(HWND parent, int versionSlot)
    : CHTMDialog(L"HVSDIALOGS_HTM_SPLASH", parent), m_versionSlot(versionSlot) {
  // The splash counts down on its own timer and leaves the focus with the host.
  SetTimerOn(false);
  SetFocusOnHover(false);
}

bool CHTMSplashDlg::ShowTimed(unsigned milliseconds) {
  // Whole ticks, rounded up; at least one.
  m_remainingTicks = std::max(1u, milliseconds / kSplashTickMs + (milliseconds % kSplashTickMs != 0 ? 1u : 0u));
  if (!IsShown()) {
    if (!Create()) {
      m_remainingTicks = 0;
      return false;
    }
    // Showing activated the splash; the keyboard goes back to the host.
    if (const HWND owner = platform::parentWindow(GetHwnd())) platform::setForegroundWindow(owner);
  }
  platform::setTimer(GetHwnd(), kSplashTimerId, kSplashTickMs);
  return true;
}

void CHTMSplashDlg::StopTimedDisplay() {
  m_remainingTicks = 0;
  if (!IsShown()) return;
  platform::killTimer(GetHwnd(), kSplashTimerId);
  Close();
}

bool CHTMSplashDlg::IsShown() const { return platform::isWindow(GetHwnd()); }

void CHTMSplashDlg::OnInitDialog() {
  ElementById(L"splashImage").SetStyle("background-image", L"url(" + SplashImageUrl() + L")");
  if (m_versionSlot >= 0) {
    ElementById(L"versionType").SetText(VersionTypeText());
    ElementById(L"versionInfo").SetText(VersionInfoText(m_versionSlot));
  }
  const SHTMSplashClickArea area = ClickArea();
  const CHTMElement click = ElementById(L"clickArea");
  click.SetStyle("left", pixels(area.left));
  click.SetStyle("width", pixels(area.width));
  click.SetStyle("height", pixels(area.height));
  PlaceInfoImages();
}

void CHTMSplashDlg::PlaceInfoImages() {
  html::HtmlEngine* engine = GetHtmlEngine();
  const CHTMElement container = ElementById(L"InfoImageContainer");
  if (engine == nullptr || !container.IsValid()) return;
  for (const SHTMSplashInfoImage& info : InfoImages()) {
    HELEMENT created = nullptr;
    if (engine->CreateElement("div", nullptr, &created) != HLDOM_OK) return;
    const CHTMElement image(created);
    engine->UnuseElement(created);  // the wrapper holds the one reference now
    engine->InsertElement(image.Handle(), container.Handle(), container.ChildCount());
    image.SetStyle("top", pixels(info.top));
    image.SetStyle("left", pixels(info.left));
    image.SetStyle("width", pixels(info.width));
    image.SetStyle("height", pixels(info.height));
    image.SetStyle("background-image", L"url(" + info.url + L")");
  }
}

void CHTMSplashDlg::OnTimer(std::uintptr_t id) {
  if (id != kSplashTimerId) return;
  if (m_remainingTicks > 0) --m_remainingTicks;
  if (m_remainingTicks == 0) StopTimedDisplay();
}

void CHTMSplashDlg::OnMainClick() {
  m_remainingTicks = 0;
  platform::killTimer(GetHwnd(), kSplashTimerId);
}

}  // namespace kvt1
