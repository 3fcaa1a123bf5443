#include "online/usage/dialog/ModuleUsageReporting.h"

#include "online/usage/CHvsUsageReportManager.h"
#include "online/usage/dialog/CHvsUsageDialog.h"

namespace kvt1 {

bool startUsageReporting(HWND mainWindow) {
  try {
    CHvsUsageReportManager* manager = CHvsUsageReportManager::Instance();
    manager->DecideConsent();
    if (manager->MustAsk()) manager->ApplyConsentResult(CHvsUsageDialog::Ask(mainWindow));
    manager->StartRun();
    return manager->IsCollecting();
  } catch (...) {
    return false;
  }
}

void countUsageFeature(const std::wstring& key) {
  try {
    CHvsUsageReportManager::Instance()->CountFeature(key);
  } catch (...) {
    // A count that cannot be kept is dropped.
  }
}

void finishUsageReporting() {
  try {
    CHvsUsageReportManager::Instance()->EndRun();
  } catch (...) {
    // The stored report stays as it was.
  }
  CHvsUsageReportManager::Release();
}

}  // namespace kvt1
