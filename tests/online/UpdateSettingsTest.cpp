#include <gtest/gtest.h>

#include "online/CHvAutomaticUpdateManager.h"
#include "online/CHvHttpClientManager.h"
#include "settings/ProductKey.h"
#include "tests/common/TestInstallation.h"
#include "tests/online/OnlineTestSupport.h"

namespace kvt1::testing {
namespace {

using Hv::Http::CHvAutomaticUpdateManager;
using platform::RegistryRoot;

class UpdateSettings : public ::testing::Test {
 protected:
  // The test installation names a local update address; these tests start without one.
  void SetUp() override {
    setRegistryString(installation, RegistryRoot::LocalMachine, productKeyPath(), L"CheckUpdateUrl", L"");
  }
  void TearDown() override { removeMakerDevKey(); }

  void machineDword(const wchar_t* name, std::uint32_t value, const std::wstring& key = productKeyPath()) {
    setRegistryDword(installation, RegistryRoot::LocalMachine, key, name, value);
  }
  void userDword(const wchar_t* name, std::uint32_t value) {
    setRegistryDword(installation, RegistryRoot::CurrentUser, productKeyPath(), name, value);
  }
  CHvAutomaticUpdateManager loaded() {
    CHvAutomaticUpdateManager manager;
    manager.LoadSettings(productKeyPath());
    return manager;
  }

  TestInstallation installation;
};

TEST_F(UpdateSettings, DefaultsWithoutValues) {
  const CHvAutomaticUpdateManager manager = loaded();
  EXPECT_TRUE(manager.CheckOnStartUp());
  EXPECT_FALSE(manager.AutomaticUpdatesDisabled());
  EXPECT_FALSE(manager.ShowInactiveUpdates());
  EXPECT_TRUE(manager.CheckUpdateUrl().empty());
  EXPECT_TRUE(manager.Dismissed().empty());
}

TEST_F(UpdateSettings, ReadsMachineSwitchesTheMakerKeyAndTheUserRecord) {
  setRegistryString(installation, RegistryRoot::LocalMachine, productKeyPath(), L"CheckUpdateUrl", L"127.0.0.1:8080");
  machineDword(L"ShowInactiveUpdates", 1);
  machineDword(L"DisableAutomaticUpdates", 1, Hv::Http::kMakerDevKeyPath);
  setRegistryString(installation, RegistryRoot::CurrentUser, productKeyPath(), L"DismissedUpdates",
                    L"{\"Products\":[30],\"Times\":[1700000000,0]}");
  userDword(L"CheckUpdatesOnStartUp", 0);
  const CHvAutomaticUpdateManager manager = loaded();
  EXPECT_EQ(manager.CheckUpdateUrl(), L"127.0.0.1:8080");
  EXPECT_TRUE(manager.ShowInactiveUpdates());
  EXPECT_TRUE(manager.AutomaticUpdatesDisabled());
  EXPECT_FALSE(manager.CheckOnStartUp());
  EXPECT_EQ(manager.DismissedTime(30), 1700000000);
  EXPECT_EQ(manager.DismissedTime(31), 0);
}

TEST_F(UpdateSettings, TheUserCannotSwitchBackOnWhatTheMachineSwitchedOff) {
  machineDword(L"DisableUpdateCheck", 1);
  machineDword(L"DisableAutomaticUpdates", 1);
  userDword(L"CheckUpdatesOnStartUp", 1);
  const CHvAutomaticUpdateManager manager = loaded();
  EXPECT_FALSE(manager.CheckOnStartUp());
  EXPECT_TRUE(manager.AutomaticUpdatesDisabled());
}

TEST_F(UpdateSettings, OnlyExactValuesOfTheRightTypeCount) {
  machineDword(L"DisableUpdateCheck", 2);
  machineDword(L"ShowInactiveUpdates", 0xFFFFFFFF);
  setRegistryValue(installation, RegistryRoot::LocalMachine, productKeyPath(), L"DisableAutomaticUpdates",
                   platform::kRegBinary, {1, 0, 0, 0});
  setRegistryDword(installation, RegistryRoot::LocalMachine, productKeyPath(), L"CheckUpdateUrl", 1);
  setRegistryString(installation, RegistryRoot::LocalMachine, Hv::Http::kMakerDevKeyPath, L"DisableAutomaticUpdates",
                    L"1");
  userDword(L"CheckUpdatesOnStartUp", 2);
  userDword(L"DismissedUpdates", 7);
  const CHvAutomaticUpdateManager manager = loaded();
  EXPECT_TRUE(manager.CheckOnStartUp());
  EXPECT_FALSE(manager.ShowInactiveUpdates());
  EXPECT_FALSE(manager.AutomaticUpdatesDisabled());
  EXPECT_TRUE(manager.CheckUpdateUrl().empty());
  EXPECT_TRUE(manager.Dismissed().empty());
}

TEST_F(UpdateSettings, UnreadableDismissalRecordsLeaveTheMapEmpty) {
  for (const wchar_t* record :
       {L"not JSON", L"{\"Products\":[1,2,3],\"Times\":[1,0,2,0]}", L"", L"{\"Products\":[-5],\"Times\":[1,0]}"}) {
    setRegistryString(installation, RegistryRoot::CurrentUser, productKeyPath(), L"DismissedUpdates", record);
    EXPECT_TRUE(loaded().Dismissed().empty());
  }
}

TEST_F(UpdateSettings, SavesTheStartUpSwitchAndDismissalsForTheUser) {
  CHvAutomaticUpdateManager manager = loaded();
  manager.SetCheckOnStartUp(false);
  ASSERT_TRUE(manager.SaveCheckOnStartUp());
  std::uint32_t value = 7;
  ASSERT_TRUE(readUserDword(productKeyPath(), L"CheckUpdatesOnStartUp", value));
  EXPECT_EQ(value, 0u);

  ASSERT_TRUE(manager.DismissUpdates(75000, 1700000000));
  ASSERT_TRUE(manager.DismissUpdates(30, 0x100000000LL));
  ASSERT_TRUE(manager.DismissUpdates(75000, 1700000001));  // replaces the older entry
  std::wstring record;
  ASSERT_TRUE(readUserString(productKeyPath(), L"DismissedUpdates", record));
  EXPECT_EQ(record, L"{\"Products\":[30,75000],\"Times\":[0,1,1700000001,0]}");

  const CHvAutomaticUpdateManager reloaded = loaded();
  EXPECT_FALSE(reloaded.CheckOnStartUp());
  EXPECT_EQ(reloaded.DismissedTime(30), 0x100000000LL);
  EXPECT_EQ(reloaded.DismissedTime(75000), 1700000001);

  manager.SetCheckOnStartUp(true);
  ASSERT_TRUE(manager.SaveCheckOnStartUp());
  ASSERT_TRUE(readUserDword(productKeyPath(), L"CheckUpdatesOnStartUp", value));
  EXPECT_EQ(value, 1u);
}

TEST_F(UpdateSettings, TheRequestGoesToTheServiceHostUnlessOverridden) {
  CHvAutomaticUpdateManager manager = loaded();
  EXPECT_EQ(manager.RequestUrl(30, L"1.1.0.1", L"ENG"),
            L"http://" + Hv::Http::CHvHttpClientManager::Instance()->GetHost() +
                L"/AutomaticUpdateServiceLibrary/CheckForUpdates?product=30&version=1.1.0.1&language=ENG");
  setRegistryString(installation, RegistryRoot::LocalMachine, productKeyPath(), L"CheckUpdateUrl", L"localhost:81");
  manager.LoadSettings(productKeyPath());
  EXPECT_EQ(
      manager.RequestUrl(75000, L"2.0", L"DEU"),
      L"http://localhost:81/AutomaticUpdateServiceLibrary/CheckForUpdates?product=75000&version=2.0&language=DEU");
}

}  // namespace
}  // namespace kvt1::testing
