#pragma once
// Where the stored usage report lives: its file, and while the file cannot be
// saved (a read-only report folder, a full disk), a binary value under the
// user's product key holding the file's bytes. The value is newer than the
// file whenever it holds a report, so it is read first; a save that reaches
// the file empties it. So an accepted upload is remembered, and no run's
// counts are lost, while the file stays out of reach.
#include <optional>
#include <string>

#include "online/usage/CHvUsageReport.h"
#include "online/usage/UsageReportStore.h"
#include "platform/FileLock.h"

namespace kvt1::usage {

// Where a save put the report.
enum class ReportSaved { File, Registry, Nowhere };

class UsageReportHome {
 public:
  UsageReportHome(std::wstring path, std::wstring productKeyPath, bool compressed);

  // The registry's copy when there is one, else the file. The report's file
  // path is set in both cases.
  ReportLoad Load(Hv::CHvUsageReport& report) const;
  // Into the file (its folder created when missing), else into the registry.
  ReportSaved Save(const Hv::CHvUsageReport& report) const;
  // The lock that host processes of one user hold around each read-change-write
  // of the report ("UsageReport.lock" beside its file), so that none writes
  // over what another just saved. Nothing when it cannot be had in 2 s: the
  // caller then goes on without it.
  std::optional<platform::FileLock> Lock() const;
  // The file moved aside (see UsageReportStore::KeepAside); empty when it could not be.
  std::wstring KeepAside() const;

 private:
  bool ReadPending(Hv::CHvUsageReport& report) const;
  bool WritePending(const std::string& bytes) const;

  UsageReportStore m_store;
  std::wstring m_path;
  std::wstring m_keyPath;
  bool m_compressed;
};

}  // namespace kvt1::usage
