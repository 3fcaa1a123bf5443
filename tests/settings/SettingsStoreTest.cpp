#include "settings/SettingsStore.h"

#include <cstdio>

#include <gtest/gtest.h>

#include "platform/File.h"
#include "platform/Unicode.h"
#include "settings/ProductKey.h"
#include "settings/SettingNumbers.h"
#include "tests/common/TestInstallation.h"

namespace kvt1 {
namespace {

using platform::RegistryAccess;
using platform::RegistryKey;
using platform::RegistryRoot;

void setUserValue(const std::wstring& keyPath, const wchar_t* name, std::uint32_t type, const std::wstring& value) {
  RegistryKey key;
  ASSERT_EQ(RegistryKey::create(RegistryRoot::CurrentUser, keyPath, RegistryAccess::Full, key), platform::kRegSuccess);
  ASSERT_EQ(key.setValue(name, type, value.c_str(), static_cast<std::uint32_t>((value.size() + 1) * sizeof(wchar_t))),
            platform::kRegSuccess);
}

bool userKeyExists(const std::wstring& path) {
  RegistryKey key;
  return RegistryKey::open(RegistryRoot::CurrentUser, path, RegistryAccess::Read, key) == platform::kRegSuccess;
}

TEST(SettingsStore, ReadsMachineValuesAndDerivesFolders) {
  testing::TestInstallation installation;
  SettingsStore settings;
  std::wstring text;
  EXPECT_EQ(settings.readString(kSettingProgramPath, text), 0);
  EXPECT_EQ(text, installation.programFolder());
  EXPECT_EQ(settings.readString(kSettingLanguage, text), 0);
  EXPECT_EQ(text, L"ENU");
  EXPECT_EQ(settings.uiFolder(), installation.dataFolder() + L"\\UI\\");
  EXPECT_EQ(settings.userFilesFolder(), installation.dataFolder() + L"\\User Files");
#ifdef _WIN32
  EXPECT_EQ(settings.helpFolder(), installation.dataFolder() + L"\\Help");
#else
  EXPECT_EQ(settings.helpFolder(), installation.dataFolder() + L"/Help");  // joined with the system's separator
#endif
  EXPECT_EQ(settings.deploymentFolder(), installation.folder() + L"\\Deployment");
  EXPECT_EQ(settings.readString(kSettingTutorials, text), -2);  // not set
  EXPECT_EQ(settings.readString(999, text), -2);                // no such setting
}

TEST(SettingsStore, WithoutAnInstallationNothingCanBeReadOrWritten) {
  testing::TestInstallation notInstalled(false);
  SettingsStore settings;
  std::wstring text;
  EXPECT_EQ(settings.readString(kSettingProgramPath, text), -2);
  EXPECT_EQ(settings.readString(kSettingUserDataPath, text), -2);
  EXPECT_NE(settings.writeString(kSettingUserDataPath, L"C:\\Data"), 0);
  EXPECT_FALSE(userKeyExists(productKeyPath()));
}

TEST(SettingsStore, WritesAreCachedAndReadsComeFromTheCache) {
  testing::TestInstallation installation;
  SettingsStore settings;
  EXPECT_EQ(settings.writeString(kSettingUserDefinedPath, L"C:\\Mine"), 0);
  std::wstring text;
  EXPECT_EQ(settings.readString(kSettingUserDefinedPath, text), 0);
  EXPECT_EQ(text, L"C:\\Mine");

  // Changed behind the store's back: the cached text stays.
  setUserValue(productKeyPath(), L"UserDefinedPath", platform::kRegSz, L"C:\\Other");
  EXPECT_EQ(settings.readString(kSettingUserDefinedPath, text), 0);
  EXPECT_EQ(text, L"C:\\Mine");
  SettingsStore fresh;
  EXPECT_EQ(fresh.readString(kSettingUserDefinedPath, text), 0);
  EXPECT_EQ(text, L"C:\\Other");

  // The machine key is read only.
  EXPECT_NE(settings.writeString(kSettingProgramPath, L"C:\\Elsewhere"), 0);
  EXPECT_EQ(settings.readString(kSettingProgramPath, text), 0);
  EXPECT_EQ(text, installation.programFolder());
}

// Reads offer 199 bytes: 98 characters and the NUL fit, 99 do not. Paths
// are read whole, and expanded when stored expandable.
TEST(SettingsStore, ReadsPathsWholeAndOtherStringsWithinItsBuffer) {
  testing::TestInstallation installation;
  struct Case {
    int number;
    const wchar_t* name;
    std::uint32_t type;
    std::wstring stored;
    int result;
    std::wstring read;
  };
  const std::wstring longPath = L"C:\\" + std::wstring(300, L'p');
  const Case cases[] = {
      {kSettingTutorials, L"Tutorials", platform::kRegSz, std::wstring(98, L'y'), 0, std::wstring(98, L'y')},
      {kSettingTutorials, L"Tutorials", platform::kRegSz, std::wstring(99, L'x'), -2, L""},
      {kSettingTutorials, L"Tutorials", platform::kRegExpandSz, L"%KVT1_NO_SUCH_NAME%", -1, L""},
      {kSettingPropTemplateDir, L"PropTemplateDir", platform::kRegSz, longPath, 0, longPath},
      {kSettingPlotTemplateFile, L"PlotTemplateFile", platform::kRegExpandSz, L"%KVT1_NO_SUCH_NAME%\\plot.dwt", 0,
       L"%KVT1_NO_SUCH_NAME%\\plot.dwt"},  // unknown names stay
      {kSettingPlotTemplateFile, L"PlotTemplateFile", platform::kRegBinary, L"bytes", -1, L""},
  };
  for (const Case& c : cases) {
    setUserValue(productKeyPath(), c.name, c.type, c.stored);
    SettingsStore settings;
    std::wstring text;
    EXPECT_EQ(settings.readString(c.number, text), c.result) << platform::toUtf8(c.stored);
    if (c.result == 0) {
      EXPECT_EQ(text, c.read);
    }
  }
}

TEST(SettingsStore, ReadsBinaryValuesWithTheirSize) {
  testing::TestInstallation installation;
  SettingsStore settings;
  settings.writeString(kSettingAllowAEMigr, L"1");
  RegistryKey key;
  ASSERT_EQ(RegistryKey::open(RegistryRoot::CurrentUser, productKeyPath(), RegistryAccess::Full, key),
            platform::kRegSuccess);
  const unsigned char bytes[] = {1, 2, 3, 4, 5};
  ASSERT_EQ(key.setValue(L"Tutorials", platform::kRegBinary, bytes, sizeof bytes), platform::kRegSuccess);

  std::uint32_t size = 0;
  EXPECT_EQ(settings.readBinary(kSettingTutorials, nullptr, size), 0);
  EXPECT_EQ(size, 5u);
  unsigned char small[3] = {};
  size = sizeof small;
  EXPECT_EQ(settings.readBinary(kSettingTutorials, small, size), -1);
  EXPECT_EQ(size, 5u);
  unsigned char buffer[8] = {};
  size = sizeof buffer;
  EXPECT_EQ(settings.readBinary(kSettingTutorials, buffer, size), 0);
  EXPECT_EQ(size, 5u);
  EXPECT_EQ(buffer[4], 5);
  EXPECT_EQ(settings.readBinary(kSettingAllowAEMigr, nullptr, size), -1);  // a string, not binary
}

TEST(SettingsStore, MovesAnOlderVersionsSettingsOnceWhenItsKeyIsCreated) {
  testing::TestInstallation installation;
  const std::wstring base = productBaseKeyPath();
  setUserValue(base + L"\\0.9\\CAD", L"DataPath", platform::kRegSz, L"C:\\From 0.9");
  setUserValue(base + L"\\1.0\\CAD", L"DataPath", platform::kRegSz, L"C:\\From 1.0");
  setUserValue(base + L"\\10\\CAD", L"DataPath", platform::kRegSz, L"C:\\From 10");

  SettingsStore settings;
  std::wstring text;
  EXPECT_EQ(settings.readString(kSettingUserDataPath, text), 0);
  EXPECT_EQ(text, L"C:\\From 1.0");
  EXPECT_FALSE(userKeyExists(base + L"\\1.0"));
  EXPECT_TRUE(userKeyExists(base + L"\\0.9"));
  EXPECT_TRUE(userKeyExists(base + L"\\10"));

  // Once this version's key exists, older keys stay where they are.
  setUserValue(base + L"\\1.05\\CAD", L"DataPath", platform::kRegSz, L"C:\\From 1.05");
  SettingsStore later;
  EXPECT_EQ(later.readString(kSettingUserDataPath, text), 0);
  EXPECT_EQ(text, L"C:\\From 1.0");
  EXPECT_TRUE(userKeyExists(base + L"\\1.05"));
}

#ifndef _WIN32
TEST(SettingsStore, AnUnreadableUserRegistryIsLeftAsItIs) {
  testing::TestInstallation installation;
  const std::string broken =
      "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\Software\r\n\"x\"=dword:zz\r\n";
  const std::wstring file = installation.writeFile(L"registry\\HKEY_CURRENT_USER.reg", broken);

  SettingsStore settings;
  std::wstring text;
  EXPECT_EQ(settings.readString(kSettingUserDataPath, text), -2);
  EXPECT_NE(settings.writeString(kSettingUserDataPath, L"C:\\Data"), 0);
  EXPECT_EQ(settings.readString(kSettingProgramPath, text), 0);  // the installation's values still read
  EXPECT_EQ(text, installation.programFolder());

  std::FILE* stream = platform::openFile(file, "rb");
  ASSERT_NE(stream, nullptr);
  std::string onDisk(broken.size() + 16, '\0');
  onDisk.resize(std::fread(onDisk.data(), 1, onDisk.size(), stream));
  std::fclose(stream);
  EXPECT_EQ(onDisk, broken);
}
#endif

}  // namespace
}  // namespace kvt1
