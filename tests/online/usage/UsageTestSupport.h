#pragma once
// What the usage tests share: a manager whose host values and report channel
// the test sets, a clock the test moves, and the report file read back.
#include <atomic>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "online/usage/CHvsUsageReportManagerBase.h"
#include "online/usage/UsageReportStore.h"
#include "tests/common/TestInstallation.h"
#include "tests/online/OnlineTestSupport.h"

namespace kvt1::testing {

constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kStart = 1500000000;  // July 2017

class TestUsageManager : public CHvsUsageReportManagerBase {
 public:
  explicit TestUsageManager(std::wstring folder);
  ~TestUsageManager() override { WaitForSend(); }

  std::uint32_t GetLicenseNum() override { return 7; }
  bool IsEval() override { return true; }
  std::uint32_t GetProduct() override { return 30; }
  std::wstring GetProductKeyPath() override;
  std::wstring GetReportFolder() override { return folder; }
  std::wstring GetPlatform() override { return L"TestCAD"; }
  kvt1::usage::ReportChannel GetReportChannel() override;

  std::wstring folder;
  std::int64_t now = kStart;
  bool channelAccepts = true;
  std::function<void()> whileSending;           // runs on the sending thread before the channel answers
  std::vector<std::vector<std::uint8_t>> sent;  // written by the sending thread; read after WaitForSend
};

// The report in the file at path; fails the test when it cannot be read.
Hv::CHvUsageReport readStored(const std::wstring& path);
// The file's bytes; empty when it cannot be read.
std::string fileBytes(const std::wstring& path);
void writeBytes(const std::wstring& path, const std::string& bytes);
// Makes the folder and the files in it read-only, or writable again, as the
// folder's read-only box in a file manager does.
void makeFolderReadOnly(const std::wstring& folder, bool readOnly);
// The names in the folder, sorted; empty for a missing folder.
std::vector<std::string> folderEntries(const std::wstring& folder);

// The counter's count in the report; -1 when it has none of that name.
std::int32_t counterOf(const Hv::CHvUsageReport& report, const std::wstring& name);

}  // namespace kvt1::testing
