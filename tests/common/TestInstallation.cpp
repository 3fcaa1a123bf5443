#include "tests/common/TestInstallation.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>

#include "platform/File.h"
#include "platform/Registry.h"
#include "platform/Unicode.h"
#include "settings/ProductKey.h"

#ifndef _WIN32
#include "platform/posix/RegistryStore.h"
#endif

namespace kvt1::testing {
namespace {

std::wstring uniqueFolder() {
  std::random_device random;
  const std::filesystem::path path =
      std::filesystem::temp_directory_path() / ("kvt1-test-" + std::to_string(random()) + std::to_string(random()));
  std::filesystem::create_directories(path);
  return path.wstring();
}

#ifndef _WIN32
// A regedit line value: backslashes and quotes escaped.
std::string regString(const std::wstring& text) {
  std::string out;
  for (char c : platform::toUtf8(text)) {
    if (c == '\\' || c == '"') out += '\\';
    out += c;
  }
  return out;
}
#endif

#ifdef _WIN32
// The product's keys under both roots, with everything below them.
void removeProductKeys() {
  const std::wstring parent = L"Software\\Halvorn Systems";
  for (const auto root : {platform::RegistryRoot::LocalMachine, platform::RegistryRoot::CurrentUser}) {
    platform::RegistryKey software;
    if (platform::RegistryKey::open(root, parent, platform::RegistryAccess::Full, software) == platform::kRegSuccess) {
      software.deleteTree(productBaseKeyPath().substr(parent.size() + 1));
    }
  }
}
#endif

}  // namespace

TestInstallation::TestInstallation(bool machineKey, const std::wstring& dataFolderName)
    : folder_(uniqueFolder()), dataFolderName_(dataFolderName) {
  const std::pair<const wchar_t*, std::wstring> values[] = {
      {L"ProgramPath", programFolder()},
      {L"Language", L"ENU"},
      {L"DataPath", dataFolder()},
      {L"DeploymentPath", folder_ + L"\\Deployment"},
      // Update checks go to a closed local port, never to the maker's service.
      {L"CheckUpdateUrl", L"127.0.0.1:9"},
  };
#ifdef _WIN32
  removeProductKeys();
  if (machineKey) {
    platform::RegistryKey key;
    platform::RegistryKey::create(platform::RegistryRoot::LocalMachine, productKeyPath(),
                                  platform::RegistryAccess::Full, key);
    for (const auto& [name, value] : values) {
      key.setValue(name, platform::kRegSz, value.c_str(),
                   static_cast<std::uint32_t>((value.size() + 1) * sizeof(wchar_t)));
    }
  }
#else
  const std::string registry = platform::toUtf8(folder_) + "/registry";
  const std::string appData = platform::toUtf8(folder_) + "/AppData";
  setenv("KVT1_REGISTRY_DIR", registry.c_str(), 1);
  setenv("XDG_DATA_HOME", appData.c_str(), 1);
  if (machineKey) {
    // Key names are not escaped in regedit files; values are.
    std::string reg = "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_LOCAL_MACHINE\\" +
                      platform::toUtf8(productKeyPath()) + "]\r\n";
    for (const auto& [name, value] : values) reg += "\"" + regString(name) + "\"=\"" + regString(value) + "\"\r\n";
    writeFile(L"registry\\HKEY_LOCAL_MACHINE.reg", reg);
  }
  platform::RegistryStore::instance().reset();
#endif
}

TestInstallation::~TestInstallation() {
#ifdef _WIN32
  removeProductKeys();
#else
  platform::RegistryStore::instance().reset();
#endif
  std::error_code ignored;
  std::filesystem::remove_all(std::filesystem::path(folder_), ignored);
}

void TestInstallation::setMachineString(const std::wstring& name, const std::wstring& value) const {
  platform::RegistryKey key;
  platform::RegistryKey::create(platform::RegistryRoot::LocalMachine, productKeyPath(), platform::RegistryAccess::Full,
                                key);
  key.setValue(name, platform::kRegSz, value.c_str(), static_cast<std::uint32_t>((value.size() + 1) * sizeof(wchar_t)));
}

std::wstring TestInstallation::writeFile(const std::wstring& relativePath, const std::string& contents) const {
  const std::wstring path = folder_ + L"\\" + relativePath;
  platform::createFolders(path.substr(0, path.find_last_of(L"\\/")));
  if (std::FILE* file = platform::openFile(path, "wb")) {
    std::fwrite(contents.data(), 1, contents.size(), file);
    std::fclose(file);
  }
  return path;
}

}  // namespace kvt1::testing
