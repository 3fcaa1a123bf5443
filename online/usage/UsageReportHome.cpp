#include "online/usage/UsageReportHome.h"

#include "platform/File.h"
#include "platform/Registry.h"
#include "platform/RegistryValues.h"

namespace kvt1::usage {
namespace {

using platform::RegistryAccess;
using platform::RegistryKey;
using platform::RegistryRoot;

const wchar_t kPendingValue[] = L"UsageReportPending";
// How long a host waits for another one's read and write of the report. They
// take milliseconds; past this the holder is stuck, and the caller goes on
// without the lock rather than lose its counts.
constexpr unsigned kLockWaitMs = 2000;

std::wstring folderOf(const std::wstring& path) {
  const std::size_t separator = path.find_last_of(L"\\/");
  return separator == std::wstring::npos ? std::wstring() : path.substr(0, separator);
}

}  // namespace

UsageReportHome::UsageReportHome(std::wstring path, std::wstring productKeyPath, bool compressed)
    : m_path(std::move(path)), m_keyPath(std::move(productKeyPath)), m_compressed(compressed) {}

ReportLoad UsageReportHome::Load(Hv::CHvUsageReport& report) const {
  if (ReadPending(report)) {
    report.SetFilePath(m_path);
    return ReportLoad::Loaded;
  }
  return m_store.Load(m_path, report);
}

ReportSaved UsageReportHome::Save(const Hv::CHvUsageReport& report) const {
  platform::createFolders(folderOf(m_path));
  if (m_store.Save(m_path, report, m_compressed)) {
    WritePending(std::string());
    return ReportSaved::File;
  }
  const std::string bytes = reportFileBytes(report, m_compressed);
  return !bytes.empty() && WritePending(bytes) ? ReportSaved::Registry : ReportSaved::Nowhere;
}

std::optional<platform::FileLock> UsageReportHome::Lock() const {
  const std::wstring folder = folderOf(m_path);
  platform::createFolders(folder);
  return platform::FileLock::acquire(folder + L"\\UsageReport.lock", kLockWaitMs);
}

std::wstring UsageReportHome::KeepAside() const { return m_store.KeepAside(m_path); }

bool UsageReportHome::ReadPending(Hv::CHvUsageReport& report) const {
  RegistryKey key;
  if (RegistryKey::open(RegistryRoot::CurrentUser, m_keyPath, RegistryAccess::Read, key) != platform::kRegSuccess) {
    return false;
  }
  const std::optional<std::string> bytes = platform::readBinaryValue(key, kPendingValue, kMaxReportBytes);
  return bytes && readReportFileBytes(*bytes, report);
}

// Empty bytes mark that the file holds the report.
bool UsageReportHome::WritePending(const std::string& bytes) const {
  RegistryKey key;
  if (bytes.empty()) {
    // Nothing to clear when the key or the value was never written.
    if (RegistryKey::open(RegistryRoot::CurrentUser, m_keyPath, RegistryAccess::Full, key) != platform::kRegSuccess) {
      return true;
    }
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    if (key.queryValue(kPendingValue, type, nullptr, size) != platform::kRegSuccess || size == 0) return true;
  } else if (RegistryKey::create(RegistryRoot::CurrentUser, m_keyPath, RegistryAccess::Full, key) !=
             platform::kRegSuccess) {
    return false;
  }
  return key.setValue(kPendingValue, platform::kRegBinary, bytes.data(), static_cast<std::uint32_t>(bytes.size())) ==
         platform::kRegSuccess;
}

}  // namespace kvt1::usage
