#include "online/CHvAutomaticUpdateManager.h"

#include "online/CHvHttpClientManager.h"
#include "platform/Registry.h"
#include "platform/RegistryValues.h"
#include "platform/WideFormat.h"

namespace Hv::Http {

const wchar_t kMakerDevKeyPath[] = L"Software\\Halvorn Systems\\DEV";

namespace {

using kvt1::platform::RegistryAccess;
using kvt1::platform::RegistryKey;
using kvt1::platform::RegistryRoot;

const wchar_t kRequestFormat[] =
    L"http://%s/AutomaticUpdateServiceLibrary/CheckForUpdates?product=%d&version=%s&language=%s";

// A switch counts only when its value is exactly the one given.
bool switchIs(const RegistryKey& key, const wchar_t* name, std::uint32_t expected) {
  return kvt1::platform::readDwordValue(key, name) == expected;
}

long writeUserValue(const std::wstring& keyPath, const wchar_t* name, std::uint32_t type, const void* data,
                    std::uint32_t size) {
  RegistryKey key;
  const long opened = RegistryKey::create(RegistryRoot::CurrentUser, keyPath, RegistryAccess::Full, key);
  if (opened != kvt1::platform::kRegSuccess) return opened;
  return key.setValue(name, type, data, size);
}

}  // namespace

CHvAutomaticUpdateManager* CHvAutomaticUpdateManager::Instance() {
  static CHvAutomaticUpdateManager manager;
  return &manager;
}

void CHvAutomaticUpdateManager::LoadSettings(const std::wstring& keyPath) {
  m_keyPath = keyPath;

  RegistryKey machine;
  if (RegistryKey::open(RegistryRoot::LocalMachine, keyPath, RegistryAccess::Read, machine) ==
      kvt1::platform::kRegSuccess) {
    m_checkUpdateUrl = kvt1::platform::readStringValue(machine, L"CheckUpdateUrl").value_or(m_checkUpdateUrl);
    m_usageReportUrl = kvt1::platform::readStringValue(machine, L"UsageReportUrl").value_or(m_usageReportUrl);
    if (switchIs(machine, L"DisableUpdateCheck", 1)) m_checkOnStartUp = false;
    if (switchIs(machine, L"DisableAutomaticUpdates", 1)) m_automaticUpdatesDisabled = true;
    if (switchIs(machine, L"ShowInactiveUpdates", 1)) m_showInactiveUpdates = true;
  }

  RegistryKey maker;
  if (RegistryKey::open(RegistryRoot::LocalMachine, kMakerDevKeyPath, RegistryAccess::Read, maker) ==
          kvt1::platform::kRegSuccess &&
      switchIs(maker, L"DisableAutomaticUpdates", 1)) {
    m_automaticUpdatesDisabled = true;
  }

  RegistryKey user;
  if (RegistryKey::open(RegistryRoot::CurrentUser, keyPath, RegistryAccess::Read, user) ==
      kvt1::platform::kRegSuccess) {
    const std::wstring record = kvt1::platform::readStringValue(user, L"DismissedUpdates").value_or(std::wstring());
    if (!record.empty()) ReadDismissedUpdates(record, m_dismissed);
    // The user's value only ever switches the start-up check off.
    if (switchIs(user, L"CheckUpdatesOnStartUp", 0)) m_checkOnStartUp = false;
  }
}

bool CHvAutomaticUpdateManager::SaveCheckOnStartUp() {
  if (m_keyPath.empty()) return false;  // settings never loaded: never write at a root
  const std::uint32_t value = m_checkOnStartUp ? 1 : 0;
  return writeUserValue(m_keyPath, L"CheckUpdatesOnStartUp", kvt1::platform::kRegDword, &value, sizeof value) ==
         kvt1::platform::kRegSuccess;
}

bool CHvAutomaticUpdateManager::DismissUpdates(std::uint32_t product, std::int64_t time) {
  m_dismissed[product] = time;
  if (m_keyPath.empty()) return false;
  const std::wstring record = WriteDismissedUpdates(m_dismissed);
  return writeUserValue(m_keyPath, L"DismissedUpdates", kvt1::platform::kRegSz, record.c_str(),
                        static_cast<std::uint32_t>((record.size() + 1) * sizeof(wchar_t))) ==
         kvt1::platform::kRegSuccess;
}

std::int64_t CHvAutomaticUpdateManager::DismissedTime(std::uint32_t product) const {
  const auto found = m_dismissed.find(product);
  return found == m_dismissed.end() ? 0 : found->second;
}

std::wstring CHvAutomaticUpdateManager::RequestUrl(std::uint32_t product, const std::wstring& version,
                                                   const std::wstring& language) const {
  const std::wstring& host = m_checkUpdateUrl.empty() ? CHvHttpClientManager::Instance()->GetHost() : m_checkUpdateUrl;
  return kvt1::platform::formatWide(kRequestFormat, host.c_str(), static_cast<int>(product), version.c_str(),
                                    language.c_str());
}

CHvAutomaticUpdateResult CHvAutomaticUpdateManager::CheckForUpdates(std::uint32_t product, const std::wstring& version,
                                                                    const std::wstring& language) const {
  std::wstring body;
  if (!CHvHttpClientManager::Instance()->Get(RequestUrl(product, version, language), body)) return {};
  return ParseAutomaticUpdateResult(body);
}

}  // namespace Hv::Http
