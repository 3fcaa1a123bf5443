#include "host/LanguageModule.h"

#include <gtest/gtest.h>

#include "platform/Registry.h"
#include "platform/Resources.h"
#include "settings/SettingsStore.h"
#include "tests/common/BesideProgram.h"
#include "tests/common/TestInstallation.h"

namespace kvt1 {
namespace {

#ifdef _WIN32
const wchar_t kSuffix[] = L".dll";
#else
const wchar_t kSuffix[] = L".so";
#endif

TEST(LanguageModule, IsNamedAfterTheModuleAndTheLanguage) {
  EXPECT_EQ(languageModulePath({L"C:\\KVT\\", L"kvt2018.arx"}, L"DEU"), std::wstring(L"C:\\KVT\\kvt2018DEU") + kSuffix);
  EXPECT_EQ(languageModulePath({L"/opt/kvt/", L"kvt2018.so"}, L"ENU"), std::wstring(L"/opt/kvt/kvt2018ENU") + kSuffix);
  EXPECT_EQ(languageModulePath({L"", L"kvt2018"}, L"ENU"), std::wstring(L"kvt2018ENU") + kSuffix);
}

// The English module is built beside the test program as kvt<year>ENU.
TEST(LanguageModule, FallsBackToEnglishWhenTheInstalledLanguageIsMissing) {
  testing::TestInstallation installation;
  installation.setMachineString(L"Language", L"XYZ");
  SettingsStore settings;
  const ModuleLocation beside{testing::programFolder(), L"" KVT1_MODULE_FILE};
  platform::DynamicLibrary language = loadLanguageModule(beside, settings);
  ASSERT_TRUE(language.isLoaded());
  EXPECT_TRUE(platform::findResource(language.image(), L"XMLRES", L"XMLRES").has_value());

  const ModuleLocation nowhere{testing::programFolder() + L"absent\\", L"" KVT1_MODULE_FILE};
  EXPECT_FALSE(loadLanguageModule(nowhere, settings).isLoaded());
}

}  // namespace
}  // namespace kvt1
