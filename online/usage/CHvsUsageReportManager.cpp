#include "online/usage/CHvsUsageReportManager.h"

#include "host/identity/ProductIdentity.h"
#include "online/usage/UsageReportUpload.h"
#include "settings/ProductKey.h"
#include "settings/SettingNumbers.h"
#include "settings/SettingsStore.h"

namespace {

CHvsUsageReportManager* g_instance = nullptr;

}  // namespace

CHvsUsageReportManager* CHvsUsageReportManager::Instance() {
  if (!g_instance) g_instance = new CHvsUsageReportManager();
  return g_instance;
}

void CHvsUsageReportManager::Release() {
  delete g_instance;
  g_instance = nullptr;
}

std::uint32_t CHvsUsageReportManager::GetLicenseNum() { return 0; }

bool CHvsUsageReportManager::IsEval() { return false; }

std::uint32_t CHvsUsageReportManager::GetProduct() { return kvt1::kProductNumber; }

std::wstring CHvsUsageReportManager::GetProductKeyPath() { return kvt1::productKeyPath(); }

std::wstring CHvsUsageReportManager::GetReportFolder() {
  std::wstring dataFolder;
  kvt1::theSettings().readString(kvt1::kSettingUserDataPath, dataFolder);
  return dataFolder + L"\\UsageReports";
}

std::wstring CHvsUsageReportManager::GetPlatform() {
  return std::wstring(L"AutoCAD ") + kvt1::releaseYear(KVT1_ARX_RELEASE);
}

void CHvsUsageReportManager::AddHostCustomValues(Hv::CHvUsageReport& report) {
  for (const auto& [name, value] : kvt1::versionAttributes()) report.AddCustomValue(name, value, false);
}

kvt1::usage::ReportChannel CHvsUsageReportManager::GetReportChannel() {
  return [url = kvt1::usage::usageUploadUrl(), product = GetProduct()](const std::vector<std::uint8_t>& buffer) {
    return kvt1::usage::uploadReport(url, product, buffer);
  };
}
