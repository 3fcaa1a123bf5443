#include "tests/online/OnlineTestSupport.h"

#include <cstdio>
#include <cstdlib>

#include "host/ModulePath.h"
#include "platform/ThisModule.h"
#include "platform/Unicode.h"
#include "settings/ProductKey.h"

#ifdef _WIN32
#include <windows.h>
#else
#include "platform/posix/RegistryStore.h"
#endif

namespace kvt1::testing {
namespace {

#ifndef _WIN32
std::string regText(const std::wstring& text) {
  std::string out;
  for (char c : platform::toUtf8(text)) {
    if (c == '\\' || c == '"') out += '\\';
    out += c;
  }
  return out;
}

// The value in regedit's notation.
std::string regData(std::uint32_t type, const std::vector<std::uint8_t>& data) {
  char digits[16];
  if (type == platform::kRegDword && data.size() == 4) {
    std::snprintf(digits, sizeof digits, "dword:%02x%02x%02x%02x", data[3], data[2], data[1], data[0]);
    return digits;
  }
  std::string text = type == platform::kRegBinary ? "hex:" : "hex(" + std::to_string(type) + "):";
  for (std::size_t i = 0; i < data.size(); ++i) {
    std::snprintf(digits, sizeof digits, i ? ",%02x" : "%02x", data[i]);
    text += digits;
  }
  return text;
}
#endif

std::vector<std::uint8_t> bytesOf(const void* data, std::size_t size) {
  const auto* bytes = static_cast<const std::uint8_t*>(data);
  return std::vector<std::uint8_t>(bytes, bytes + size);
}

}  // namespace

void setRegistryValue(const TestInstallation& installation, platform::RegistryRoot root, const std::wstring& keyPath,
                      const std::wstring& name, std::uint32_t type, const std::vector<std::uint8_t>& data) {
#ifndef _WIN32
  if (root == platform::RegistryRoot::LocalMachine) {
    std::string text;
    const std::string path = platform::toUtf8(installation.folder()) + "/registry/HKEY_LOCAL_MACHINE.reg";
    if (std::FILE* file = std::fopen(path.c_str(), "rb")) {
      char buffer[4096];
      for (std::size_t got; (got = std::fread(buffer, 1, sizeof buffer, file)) > 0;) text.append(buffer, got);
      std::fclose(file);
    }
    if (text.empty()) text = "Windows Registry Editor Version 5.00\r\n";
    text += "\r\n[HKEY_LOCAL_MACHINE\\" + platform::toUtf8(keyPath) + "]\r\n\"" + regText(name) + "\"=";
    if (type == platform::kRegSz) {
      std::wstring value(reinterpret_cast<const wchar_t*>(data.data()), data.size() / sizeof(wchar_t));
      text += "\"" + regText(value.c_str()) + "\"\r\n";
    } else {
      text += regData(type, data) + "\r\n";
    }
    installation.writeFile(L"registry\\HKEY_LOCAL_MACHINE.reg", text);
    platform::RegistryStore::instance().reset();
    return;
  }
#endif
  platform::RegistryKey key;
  platform::RegistryKey::create(root, keyPath, platform::RegistryAccess::Full, key);
  key.setValue(name, type, data.data(), static_cast<std::uint32_t>(data.size()));
}

void setRegistryDword(const TestInstallation& installation, platform::RegistryRoot root, const std::wstring& keyPath,
                      const std::wstring& name, std::uint32_t value) {
  setRegistryValue(installation, root, keyPath, name, platform::kRegDword, bytesOf(&value, sizeof value));
}

void setRegistryString(const TestInstallation& installation, platform::RegistryRoot root, const std::wstring& keyPath,
                       const std::wstring& name, const std::wstring& value) {
  setRegistryValue(installation, root, keyPath, name, platform::kRegSz,
                   bytesOf(value.c_str(), (value.size() + 1) * sizeof(wchar_t)));
}

void setMachineDword(const TestInstallation& installation, const std::wstring& name, std::uint32_t value) {
  setRegistryDword(installation, platform::RegistryRoot::LocalMachine, productKeyPath(), name, value);
}

void setConsent(const TestInstallation& installation, std::uint32_t value) {
  setRegistryDword(installation, platform::RegistryRoot::CurrentUser, productKeyPath(), L"HVCOLLECTUSAGE", value);
}

void removeMakerDevKey() {
#ifdef _WIN32
  platform::RegistryKey maker;
  if (platform::RegistryKey::open(platform::RegistryRoot::LocalMachine, L"Software\\Halvorn Systems",
                                  platform::RegistryAccess::Full, maker) == platform::kRegSuccess) {
    maker.deleteTree(L"DEV");
  }
#endif
}

bool readUserDword(const std::wstring& keyPath, const std::wstring& name, std::uint32_t& value) {
  platform::RegistryKey key;
  if (platform::RegistryKey::open(platform::RegistryRoot::CurrentUser, keyPath, platform::RegistryAccess::Read, key) !=
      platform::kRegSuccess) {
    return false;
  }
  std::uint32_t type = 0;
  std::uint32_t size = sizeof value;
  return key.queryValue(name, type, &value, size) == platform::kRegSuccess && type == platform::kRegDword;
}

bool readUserString(const std::wstring& keyPath, const std::wstring& name, std::wstring& value) {
  platform::RegistryKey key;
  if (platform::RegistryKey::open(platform::RegistryRoot::CurrentUser, keyPath, platform::RegistryAccess::Read, key) !=
      platform::kRegSuccess) {
    return false;
  }
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  if (key.queryValue(name, type, nullptr, size) != platform::kRegSuccess || type != platform::kRegSz) return false;
  std::vector<wchar_t> buffer(size / sizeof(wchar_t) + 1, L'\0');
  if (key.queryValue(name, type, buffer.data(), size) != platform::kRegSuccess) return false;
  value = buffer.data();
  return true;
}

std::wstring programFolder() {
  std::wstring folder = splitModulePath(platform::thisModulePath()).folder;
  folder.pop_back();
  return folder;
}

namespace {

std::string jsonBool(bool value) { return value ? "true" : "false"; }

std::string updateObject(const UpdatePart& update) {
  return "{\"UpdateAvailable\":" + jsonBool(update.available) + ",\"UpdateActive\":" + jsonBool(update.active) +
         ",\"UpdateName\":\"" + update.name + "\",\"UpdateUrl\":\"" + update.url +
         "\",\"UpdateDate\":" + std::to_string(update.date) + ",\"UpdateMapOnly\":" + jsonBool(update.mapOnly) + "}";
}

std::string upgradeObject(const UpgradePart& upgrade) {
  return "{\"UpgradeAvailable\":" + jsonBool(upgrade.available) + ",\"UpgradeActive\":" + jsonBool(upgrade.active) +
         ",\"UpgradeName\":\"" + upgrade.name + "\",\"UpgradeMapUrl\":\"" + upgrade.mapUrl +
         "\",\"UpgradeNoMapUrl\":\"" + upgrade.noMapUrl + "\",\"UpgradeDate\":" + std::to_string(upgrade.date) + "}";
}

}  // namespace

std::string answerJson(const UpdatePart& update, const UpgradePart& upgrade) {
  return "{\"CheckForUpdatesResult\":{\"UpgradeResult\":" + upgradeObject(upgrade) +
         ",\"UpdateResult\":" + updateObject(update) + "}}";
}

std::string updateOnlyJson(const UpdatePart& update) {
  return "{\"CheckForUpdatesResult\":{\"UpdateResult\":" + updateObject(update) + "}}";
}

std::string nothingJson() {
  UpdatePart update;
  update.available = false;
  return updateOnlyJson(update);
}

}  // namespace kvt1::testing
