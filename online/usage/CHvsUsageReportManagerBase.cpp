#include "online/usage/CHvsUsageReportManagerBase.h"

#include <algorithm>
#include <optional>
#include <system_error>

#include "online/usage/CHvWorkstationGUID.h"
#include "online/usage/FeatureCodes.h"
#include "platform/FileLock.h"
#include "platform/OsVersion.h"
#include "platform/Registry.h"
#include "platform/RegistryValues.h"
#include "platform/WideFormat.h"

namespace {

using kvt1::platform::RegistryAccess;
using kvt1::platform::RegistryKey;
using kvt1::platform::RegistryRoot;

const wchar_t kConsentValue[] = L"HVCOLLECTUSAGE";
constexpr std::uint32_t kConsentUnset = 0xFFFFFFFF;
constexpr std::int64_t kDefaultIntervalDays = 14;
constexpr std::int64_t kSecondsPerDay = 86400;
// A first report is stored as if sent 13 days ago: with the default interval
// the first hand-over falls due one day after first use.
constexpr std::int64_t kFirstReportAge = 1123200;

// The login's architecture name is "x86" on every build: the maker's service
// knows only that name.
const wchar_t kArchitecture[] = L"x86";

void storeConsent(const std::wstring& keyPath, std::uint32_t value) {
  RegistryKey key;
  if (RegistryKey::create(RegistryRoot::CurrentUser, keyPath, RegistryAccess::Full, key) !=
      kvt1::platform::kRegSuccess) {
    return;  // not stored: the question comes again at the next start
  }
  key.setValue(kConsentValue, kvt1::platform::kRegDword, &value, sizeof value);
}

}  // namespace

CHvsUsageReportManagerBase::CHvsUsageReportManagerBase() = default;

CHvsUsageReportManagerBase::~CHvsUsageReportManagerBase() { WaitForSend(); }

void CHvsUsageReportManagerBase::DecideConsent() {
  m_collecting = false;
  m_ask = false;
  const std::uint32_t value =
      kvt1::platform::readDwordValue(RegistryRoot::CurrentUser, GetProductKeyPath(), kConsentValue)
          .value_or(kConsentUnset);
  if (value == kConsentUnset) {
    m_ask = true;
    return;
  }
  m_collecting = value != 0;
}

bool CHvsUsageReportManagerBase::ApplyConsentResult(int result) {
  m_ask = false;
  m_collecting = result == kUsageConsentAgreed;
  if (result == kUsageConsentAgreed) storeConsent(GetProductKeyPath(), 1);
  if (result == kUsageConsentDeclined) storeConsent(GetProductKeyPath(), 0);
  return m_collecting;
}

std::wstring CHvsUsageReportManagerBase::ReportFilePath() {
  return kvt1::platform::formatWide(L"%s\\UsageReport_%d_%d.rpt", GetReportFolder().c_str(),
                                    static_cast<int>(GetLicenseNum()), static_cast<int>(GetProduct()));
}

void CHvsUsageReportManagerBase::StartRun() {
  if (!m_collecting) return;
  if (!m_report) {
    m_report = std::make_unique<Hv::CHvUsageReport>();
    m_report->SetFilePath(ReportFilePath());
    m_report->SetLicenseNum(GetLicenseNum());
    m_report->SetProduct(GetProduct());
    m_report->SetGuid(Hv::CHvWorkstationGUID(GetProductKeyPath()).Text());
    m_report->SetEval(IsEval());
  }
  const std::uint32_t version = kvt1::platform::packedOsVersion();
  m_report->AddLogin(
      kvt1::platform::formatWide(L"%s::%s::%d", GetPlatform().c_str(), kArchitecture, static_cast<int>(version)),
      Now());
  AddHostCustomValues(*m_report);
  m_report->AddCustomValue(L"WinXP", kvt1::platform::osMajorVersion(version) == 5 ? L"Yes" : L"No", false);
  StartSendingIfDue();
}

bool CHvsUsageReportManagerBase::EndRun() {
  WaitForSend();
  const std::shared_ptr<kvt1::usage::DueReport> sent = std::move(m_sent);
  if (!m_collecting || !m_report) return true;
  const std::unique_ptr<Hv::CHvUsageReport> run = std::move(m_report);
  // Host processes of one user share the report: each read-merge-write runs
  // under their common lock.
  const kvt1::usage::UsageReportHome home = Home(run->FilePath());
  const std::optional<kvt1::platform::FileLock> lock = home.Lock();
  Hv::CHvUsageReport stored;
  switch (home.Load(stored)) {
    case kvt1::usage::ReportLoad::Loaded:
      if (sent && m_sendOutcome == kvt1::usage::SendOutcome::SentNotStored) {
        // The accepted report is still in the stored one: it must not go twice.
        stored.Remove(sent->report);
        stored.SetLastSend(sent->report.LastSend());
      }
      stored.Merge(*run);
      return SaveStored(stored);
    case kvt1::usage::ReportLoad::Unreadable:
      // Never written over: kept aside, and this run starts a new report.
      if (home.KeepAside().empty()) return false;
      [[fallthrough]];
    case kvt1::usage::ReportLoad::Missing:
      run->SetLastSend(static_cast<std::uint32_t>(std::max<std::int64_t>(0, m_clock() - kFirstReportAge)));
      return SaveStored(*run);
  }
  return false;
}

void CHvsUsageReportManagerBase::IncrementCounter(const std::wstring& name, std::int32_t amount) {
  if (m_report) m_report->AddCount(name, amount);
}

void CHvsUsageReportManagerBase::CountFeature(const std::wstring& key) {
  if (m_report && !key.empty()) m_report->AddCount(Hv::FeatureCounterName(key), 1);
}

void CHvsUsageReportManagerBase::AddToolUse(const std::wstring& tool) {
  if (m_report) m_report->AddToolUse(tool, Now());
}

void CHvsUsageReportManagerBase::AddCustomValue(const std::wstring& name, const std::wstring& value, bool dupes) {
  if (m_report) m_report->AddCustomValue(name, value, dupes);
}

void CHvsUsageReportManagerBase::WaitForSend() {
  if (m_sendThread.joinable()) m_sendThread.join();
}

bool CHvsUsageReportManagerBase::SaveCompressed() {
  const auto uncompressed =
      kvt1::platform::readDwordValue(RegistryRoot::LocalMachine, GetProductKeyPath(), L"DataCollectionUncompressed");
  return uncompressed != 1u;
}

std::int64_t CHvsUsageReportManagerBase::IntervalSeconds() {
  std::int64_t days = kDefaultIntervalDays;
  // The machine's value can only shorten the interval.
  if (const auto configured =
          kvt1::platform::readDwordValue(RegistryRoot::LocalMachine, GetProductKeyPath(), L"DataCollectionInterval")) {
    days = std::min<std::int64_t>(days, *configured);
  }
  return days * kSecondsPerDay;
}

void CHvsUsageReportManagerBase::StartSendingIfDue() {
  WaitForSend();
  const kvt1::usage::UsageReportHome home = Home(m_report->FilePath());
  std::optional<kvt1::usage::DueReport> due = kvt1::usage::claimDueReport(home, Now(), IntervalSeconds());
  if (!due) return;

  // The thread works on its own copies; of the manager it touches only the
  // flag and the outcome.
  const auto sent = std::make_shared<kvt1::usage::DueReport>(std::move(*due));
  m_sending = true;
  m_sendOutcome = kvt1::usage::SendOutcome::Refused;
  m_sent = sent;
  try {
    m_sendThread =
        std::thread([sent, channel = GetReportChannel(), home, &sending = m_sending, &outcome = m_sendOutcome] {
          try {
            outcome = kvt1::usage::sendReport(*sent, channel, home);
          } catch (...) {
            // Nothing leaves the thread; the outcome stays "refused".
          }
          sending = false;
        });
  } catch (const std::system_error&) {
    m_sending = false;
    m_sent.reset();
  }
}

kvt1::usage::UsageReportHome CHvsUsageReportManagerBase::Home(const std::wstring& path) {
  return kvt1::usage::UsageReportHome(path, GetProductKeyPath(), SaveCompressed());
}

bool CHvsUsageReportManagerBase::SaveStored(const Hv::CHvUsageReport& report) {
  return Home(report.FilePath()).Save(report) != kvt1::usage::ReportSaved::Nowhere;
}
