#pragma once
// The module's usage manager: the values this module reports and its report
// channel, the upload to the maker's usage service.
#include "online/usage/CHvsUsageReportManagerBase.h"

class CHvsUsageReportManager : public CHvsUsageReportManagerBase {
 public:
  // The process-wide manager, created on first call (main thread only).
  static CHvsUsageReportManager* Instance();
  // Deletes it after any running send has ended.
  static void Release();

  // The module has no licence numbers and no evaluation mode: 0 and false.
  std::uint32_t GetLicenseNum() override;
  bool IsEval() override;
  std::uint32_t GetProduct() override;
  std::wstring GetProductKeyPath() override;
  // "UsageReports" in the user's data folder.
  std::wstring GetReportFolder() override;
  // "AutoCAD <year>" of the host release the module is built for.
  std::wstring GetPlatform() override;
  // The program and data versions, each kept once.
  void AddHostCustomValues(Hv::CHvUsageReport& report) override;
  kvt1::usage::ReportChannel GetReportChannel() override;
};
