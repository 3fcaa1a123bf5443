#pragma once
// The user's update settings and dismissed updates, kept in the registry
// under the product's key, and the one request to the update service.
#include <cstdint>
#include <string>

#include "online/CHvAutomaticUpdateResult.h"
#include "online/DismissedUpdates.h"

namespace Hv::Http {

// The maker-wide key whose "DisableAutomaticUpdates" switches off every product's checks.
extern const wchar_t kMakerDevKeyPath[];

class CHvAutomaticUpdateManager {
 public:
  // The process-wide manager, created on first call (main thread only).
  static CHvAutomaticUpdateManager* Instance();

  CHvAutomaticUpdateManager() = default;

  // Stores the key path (relative to both roots) and reads every setting.
  void LoadSettings(const std::wstring& keyPath);
  // Writes CheckUpdatesOnStartUp (1 or 0) for the user; false when that failed.
  bool SaveCheckOnStartUp();
  // Records the product's dismissal time and saves the whole record.
  bool DismissUpdates(std::uint32_t product, std::int64_t time);

  // The request URL and the parsed answer; a failed request gives nothing
  // available. Any thread: they read only what LoadSettings set.
  std::wstring RequestUrl(std::uint32_t product, const std::wstring& version, const std::wstring& language) const;
  CHvAutomaticUpdateResult CheckForUpdates(std::uint32_t product, const std::wstring& version,
                                           const std::wstring& language) const;

  bool CheckOnStartUp() const { return m_checkOnStartUp; }
  // Whether checks that the user did not ask for run: the start-up switch
  // on and automatic updates not disabled.
  bool StartUpChecksAllowed() const { return m_checkOnStartUp && !m_automaticUpdatesDisabled; }
  void SetCheckOnStartUp(bool check) { m_checkOnStartUp = check; }
  bool AutomaticUpdatesDisabled() const { return m_automaticUpdatesDisabled; }
  bool ShowInactiveUpdates() const { return m_showInactiveUpdates; }
  const std::wstring& CheckUpdateUrl() const { return m_checkUpdateUrl; }
  // The machine's "UsageReportUrl": a whole URL that replaces the maker's
  // usage service (a test installation's own service); empty when not set.
  const std::wstring& UsageReportUrl() const { return m_usageReportUrl; }
  const DismissedMap& Dismissed() const { return m_dismissed; }
  // The product's dismissal time; 0 for a product never dismissed.
  std::int64_t DismissedTime(std::uint32_t product) const;

 private:
  bool m_checkOnStartUp = true;
  bool m_automaticUpdatesDisabled = false;
  std::wstring m_keyPath;
  std::wstring m_checkUpdateUrl;
  std::wstring m_usageReportUrl;
  bool m_showInactiveUpdates = false;
  DismissedMap m_dismissed;
};

}  // namespace Hv::Http
