#include "settings/SettingsStore.h"

#include <cwchar>
#include <vector>

#include "platform/FilePath.h"
#include "settings/ProductKey.h"
#include "settings/SettingNumbers.h"

namespace kvt1 {
namespace {

using platform::RegistryAccess;
using platform::RegistryKey;
using platform::RegistryRoot;

// String reads take a buffer of 100 characters, offered one byte short (199
// bytes on Windows): 98 characters and the NUL fit.
constexpr std::size_t kReadBufferCharacters = 100;
constexpr std::uint32_t kReadBufferBytes = kReadBufferCharacters * sizeof(wchar_t) - 1;
// Paths are read whole: the longest path the system allows, and its NUL.
constexpr std::size_t kPathBufferCharacters = 32767 + 1;

// Names of older versions' keys: "1" first, and a number below this version's.
bool isOlderVersion(const std::wstring& name) {
  if (name.empty() || name[0] != L'1') return false;
  wchar_t* end = nullptr;
  const double number = std::wcstod(name.c_str(), &end);
  return end != name.c_str() && number < kSettingsVersionNumber;
}

}  // namespace

SettingsStore& theSettings() {
  static SettingsStore settings;
  return settings;
}

void SettingsStore::openKeys() {
  // Without the installation's machine key nothing is opened.
  if (!machine_.isOpen() && RegistryKey::open(RegistryRoot::LocalMachine, productKeyPath(), RegistryAccess::Read,
                                              machine_) != platform::kRegSuccess) {
    return;
  }
  bool created = false;
  if (!user_.isOpen() &&
      RegistryKey::create(RegistryRoot::CurrentUser, productKeyPath(), RegistryAccess::Full, user_, &created) ==
          platform::kRegSuccess &&
      created) {
    migrateOlderVersion();
  }
}

void SettingsStore::migrateOlderVersion() {
  RegistryKey product;
  if (RegistryKey::open(RegistryRoot::CurrentUser, productBaseKeyPath(), RegistryAccess::Full, product) !=
      platform::kRegSuccess) {
    return;
  }
  std::uint32_t count = 0;
  if (product.subKeyCount(count) != platform::kRegSuccess) return;

  RegistryKey current;
  if (product.openSubKey(kSettingsVersion, RegistryAccess::Full, current) != platform::kRegSuccess) return;
  for (std::uint32_t index = 0; index < count; ++index) {
    std::wstring name;
    if (product.enumSubKey(index, name) != platform::kRegSuccess) break;
    if (!isOlderVersion(name)) continue;
    if (product.copyTree(name, current) == platform::kRegSuccess) {
      product.deleteTree(name);
      return;
    }
  }
}

RegistryKey* SettingsStore::keyFor(int number) { return number <= kLastMachineSetting ? &machine_ : &user_; }

std::map<int, std::wstring>& SettingsStore::cacheFor(int number) {
  return number <= kLastMachineSetting ? machineCache_ : userCache_;
}

int SettingsStore::readString(int number, std::wstring& text) {
  auto& cache = cacheFor(number);
  if (const auto cached = cache.find(number); cached != cache.end()) {
    text = cached->second;
    return 0;
  }
  const wchar_t* name = settingValueName(number);
  openKeys();
  if (name == nullptr || !keyFor(number)->isOpen()) return -2;

  const bool path = isPathSetting(number);
  std::uint32_t type = 0;
  std::vector<wchar_t> buffer(path ? kPathBufferCharacters : kReadBufferCharacters, L'\0');
  std::uint32_t size = path ? static_cast<std::uint32_t>(buffer.size() * sizeof(wchar_t)) : kReadBufferBytes;
  if (keyFor(number)->queryValue(name, type, buffer.data(), size) != platform::kRegSuccess) return -2;
  const bool expandable = path && type == platform::kRegExpandSz;
  if (type != platform::kRegSz && !expandable) return -1;

  // The stored bytes normally end with a NUL; a value written without one ends at the size.
  std::size_t length = size / sizeof(wchar_t);
  while (length > 0 && buffer[length - 1] == L'\0') --length;
  text.assign(buffer.data(), length);
  if (expandable) text = platform::expandEnvironmentStrings(text);
  cache[number] = text;
  return 0;
}

int SettingsStore::readBinary(int number, void* buffer, std::uint32_t& size) {
  const wchar_t* name = settingValueName(number);
  openKeys();
  if (name == nullptr || !keyFor(number)->isOpen()) return -1;
  std::uint32_t type = 0;
  std::uint32_t needed = 0;
  if (keyFor(number)->queryValue(name, type, nullptr, needed) != platform::kRegSuccess ||
      type != platform::kRegBinary) {
    return -1;
  }
  if (buffer == nullptr) {
    size = needed;
    return 0;
  }
  if (size < needed) {
    size = needed;
    return -1;
  }
  return keyFor(number)->queryValue(name, type, buffer, size) == platform::kRegSuccess ? 0 : -1;
}

long SettingsStore::writeString(int number, const std::wstring& text) {
  const wchar_t* name = settingValueName(number);
  if (name == nullptr) return platform::kRegInvalidParameter;
  openKeys();
  if (!keyFor(number)->isOpen()) return platform::kRegFileNotFound;
  const auto bytes = static_cast<std::uint32_t>((text.size() + 1) * sizeof(wchar_t));
  const long result = keyFor(number)->setValue(name, platform::kRegSz, text.c_str(), bytes);
  if (result == platform::kRegSuccess) cacheFor(number)[number] = text;
  return result;
}

std::wstring SettingsStore::readOrEmpty(int number) {
  std::wstring text;
  return readString(number, text) == 0 ? text : std::wstring();
}

std::wstring SettingsStore::uiFolder() { return readOrEmpty(kSettingDataPath) + L"\\UI\\"; }
std::wstring SettingsStore::userFilesFolder() { return readOrEmpty(kSettingDataPath) + L"\\User Files"; }
std::wstring SettingsStore::helpFolder() { return platform::joinPath(readOrEmpty(kSettingDataPath), L"Help"); }
std::wstring SettingsStore::deploymentFolder() { return readOrEmpty(kSettingDeploymentPath); }

}  // namespace kvt1
