#pragma once
// The holder of the run's usage report and of the user's consent. Recording
// does nothing while collection is off, so callers never test consent. The
// run collects in memory; its end merges it into the report file; a start
// finds a stored report older than the interval and sends it on a worker
// thread.
#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <thread>

#include "online/Clock.h"
#include "online/usage/CHvUsageReport.h"
#include "online/usage/UsageReportHome.h"
#include "online/usage/UsageReportSending.h"
#include "online/usage/UsageReportStore.h"

// The consent dialog's results.
enum EHvsUsageConsent {
  kUsageConsentClosed = 0,    // closed without a button: nothing stored
  kUsageConsentLater = 1,     // "Remind Me Later": nothing stored
  kUsageConsentAgreed = 2,    // OK with "Yes": HVCOLLECTUSAGE = 1
  kUsageConsentDeclined = 3,  // OK with anything else: HVCOLLECTUSAGE = 0
};

class CHvsUsageReportManagerBase {
 public:
  CHvsUsageReportManagerBase();
  // Waits for a running send to end (bounded by the HTTP client's time-out).
  virtual ~CHvsUsageReportManagerBase();
  CHvsUsageReportManagerBase(const CHvsUsageReportManagerBase&) = delete;
  CHvsUsageReportManagerBase& operator=(const CHvsUsageReportManagerBase&) = delete;

  // What the host application supplies.
  virtual std::uint32_t GetLicenseNum() = 0;
  virtual bool IsEval() = 0;
  virtual std::uint32_t GetProduct() = 0;
  virtual std::wstring GetProductKeyPath() = 0;
  virtual std::wstring GetReportFolder() = 0;
  virtual std::wstring GetPlatform() = 0;
  // Lets the host add its own custom values to the run's report.
  virtual void AddHostCustomValues(Hv::CHvUsageReport& report) {}
  // The host's report channel for one send: made on the main thread, called
  // on the sending thread, so it must carry what it needs.
  virtual kvt1::usage::ReportChannel GetReportChannel() = 0;

  // Start-up: collection off, then "HVCOLLECTUSAGE" under the user's product
  // key decides: 0 off, any other stored value on; absent (or unreadable):
  // off, and the user must be asked.
  void DecideConsent();
  bool MustAsk() const { return m_ask; }
  // Applies the consent dialog's result (EHvsUsageConsent) and stores the
  // answer where the result says so. True when collection is on afterwards.
  bool ApplyConsentResult(int result);
  bool IsCollecting() const { return m_collecting; }

  // With collection on: opens the run's report, records the login and the
  // custom values, and starts sending the stored report when it is due.
  void StartRun();
  // With collection on: waits for a running send, then merges the run's
  // report into the stored one (or stores it as the first) and saves it.
  // When this run's send was taken but could not be saved, what it sent is
  // taken out of the stored one here, so the same data never goes twice.
  // The run's report is gone afterwards. False when the report could be
  // stored nowhere (neither its file nor the registry).
  bool EndRun();

  void IncrementCounter(const std::wstring& name, std::int32_t amount = 1);
  // One use of a feature of the LISP application (see FeatureCounterName).
  void CountFeature(const std::wstring& key);
  void AddToolUse(const std::wstring& tool);
  void AddCustomValue(const std::wstring& name, const std::wstring& value, bool dupes);

  bool IsSending() const { return m_sending; }
  void WaitForSend();

  // "<report folder>\UsageReport_<LicenseNum>_<Product>.rpt".
  std::wstring ReportFilePath();
  // The run's report; null while collection is off.
  const Hv::CHvUsageReport* GetReport() const { return m_report.get(); }

  void SetClock(kvt1::Clock clock) { m_clock = std::move(clock); }

 private:
  std::uint32_t Now() const { return static_cast<std::uint32_t>(m_clock()); }
  bool SaveCompressed();
  std::int64_t IntervalSeconds();
  void StartSendingIfDue();
  kvt1::usage::UsageReportHome Home(const std::wstring& path);
  bool SaveStored(const Hv::CHvUsageReport& report);

  std::unique_ptr<Hv::CHvUsageReport> m_report;
  bool m_collecting = false;
  bool m_ask = false;
  std::thread m_sendThread;
  std::atomic<bool> m_sending{false};
  // The copy the sending thread works on and what came of it; read after the thread ended.
  std::shared_ptr<kvt1::usage::DueReport> m_sent;
  std::atomic<kvt1::usage::SendOutcome> m_sendOutcome{kvt1::usage::SendOutcome::Refused};
  kvt1::Clock m_clock = kvt1::systemSeconds;
};
