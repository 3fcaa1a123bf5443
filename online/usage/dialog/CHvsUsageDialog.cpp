#include "online/usage/dialog/CHvsUsageDialog.h"

#include "online/usage/CHvsUsageReportManagerBase.h"
#include "platform/DialogWindow.h"
#include "platform/Shell.h"

namespace {

const wchar_t kMoreInfoAddress[] = L"https://www.halvorn.aero/kvt/usage-reports";
constexpr int kShowNormal = 1;

}  // namespace

int CHvsUsageDialog::Ask(HWND mainWindow) {
  const bool hide = mainWindow && kvt1::platform::isWindowVisible(mainWindow);
  if (hide) kvt1::platform::showWindow(mainWindow, false);
  CHvsUsageDialog dialog(nullptr);
  const int result = dialog.DoModal();
  if (hide) kvt1::platform::showWindow(mainWindow, true);
  return result < kUsageConsentClosed || result > kUsageConsentDeclined ? kUsageConsentClosed : result;
}

void CHvsUsageDialog::OnMoreInfo() { kvt1::platform::shellOpen(kMoreInfoAddress, kShowNormal); }
