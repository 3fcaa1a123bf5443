// One check from request to view, against the local update service.
#include <gtest/gtest.h>

#include "host/identity/ProductIdentity.h"
#include "online/AutomaticUpdateCheck.h"
#include "online/CHvAutomaticUpdateManager.h"
#include "online/CHvCheckForUpdatePresenter.h"
#include "online/CHvHttpClientManager.h"
#include "settings/ProductKey.h"
#include "tests/common/TestInstallation.h"
#include "tests/online/OnlineTestSupport.h"
#include "tools/kvt1-host/core/EmulatedHost.h"
#include "tools/kvt1-update-service/UpdateService.h"

namespace kvt1::testing {
namespace {

using Hv::Http::CHvAutomaticUpdateManager;
using Hv::Http::CHvCheckForUpdatePresenter;
using Hv::Http::CHvHttpClientManager;
using platform::RegistryRoot;
using service::ServiceMode;

constexpr std::uint32_t kProduct = 30;
constexpr std::int64_t kNow = 1700000000;

class UpdateCheck : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(service.start());
    CHvHttpClientManager::Release();
    ASSERT_TRUE(CHvHttpClientManager::Instance()->Load(programFolder()));
    const std::string host = service.hostAndPort();
    setRegistryString(installation, RegistryRoot::LocalMachine, productKeyPath(), L"CheckUpdateUrl",
                      std::wstring(host.begin(), host.end()));
    manager.LoadSettings(productKeyPath());
    emu::EmulatedHost::instance().setOutput([this](const std::wstring& text) { desktop += text; });
  }
  void TearDown() override {
    emu::EmulatedHost::instance().setOutput(nullptr);
    CHvHttpClientManager::Release();
    *CHvAutomaticUpdateManager::Instance() = CHvAutomaticUpdateManager();
  }

  bool run(bool manual, bool mapFlag = false, std::uint32_t product = kProduct) {
    return presenter.Run(product, L"1.1.0.1", L"ENG", mapFlag, manual);
  }
  void reload() {
    manager = CHvAutomaticUpdateManager();
    manager.LoadSettings(productKeyPath());
  }

  TestInstallation installation;
  service::UpdateService service;
  CHvAutomaticUpdateManager manager;
  RecordingView view;
  CHvCheckForUpdatePresenter presenter{view, &manager, [] { return kNow; }};
  std::wstring desktop;  // message boxes and shell requests
};

TEST_F(UpdateCheck, AStartUpCheckShowsWhatTheServiceOffers) {
  service.setAnswer(kProduct, answerJson({}, {}));
  ASSERT_TRUE(run(false));
  ASSERT_EQ(view.shown.size(), 1u);
  const ShownResult& shown = view.shown[0];
  EXPECT_TRUE(shown.updateShown);
  EXPECT_EQ(shown.updateName, L"KVT 1.1 SP1");
  EXPECT_TRUE(shown.upgradeShown);
  EXPECT_EQ(shown.upgradeName, L"KVT 2");
  EXPECT_FALSE(shown.mapFlag);
  EXPECT_EQ(shown.product, kProduct);
  EXPECT_FALSE(shown.manual);
  EXPECT_EQ(view.modalRuns, 1);
  const auto requests = service.requests();
  ASSERT_EQ(requests.size(), 1u);
  EXPECT_EQ(requests[0],
            "GET /AutomaticUpdateServiceLibrary/CheckForUpdates?product=30&version=1.1.0.1&language=ENG HTTP/1.1");
}

TEST_F(UpdateCheck, SwitchedOffStartUpChecksSendNothingButManualChecksRun) {
  service.setAnswer(kProduct, answerJson({}, {}));
  manager.SetCheckOnStartUp(false);
  EXPECT_FALSE(run(false));
  setRegistryDword(installation, RegistryRoot::LocalMachine, productKeyPath(), L"DisableAutomaticUpdates", 1);
  reload();
  EXPECT_FALSE(run(false));
  EXPECT_TRUE(service.requests().empty());
  EXPECT_TRUE(run(true));
  EXPECT_EQ(service.requests().size(), 1u);
}

TEST_F(UpdateCheck, InactiveOffersShowOnlyWhenInactiveUpdatesAreShown) {
  UpdatePart update;
  update.active = false;
  UpgradePart upgrade;
  upgrade.active = false;
  service.setAnswer(kProduct, answerJson(update, upgrade));
  EXPECT_FALSE(run(false));
  EXPECT_FALSE(run(true));
  EXPECT_EQ(view.created, 0);
  setRegistryDword(installation, RegistryRoot::LocalMachine, productKeyPath(), L"ShowInactiveUpdates", 1);
  reload();
  EXPECT_TRUE(run(false));
}

TEST_F(UpdateCheck, DismissalsHideOlderOffersAtStartUpOnly) {
  UpdatePart update;
  update.date = 1600000000;
  UpgradePart upgrade;
  upgrade.date = 1599999999;
  service.setAnswer(kProduct, answerJson(update, upgrade));
  manager.DismissUpdates(kProduct, 1600000000);

  ASSERT_TRUE(run(false));
  EXPECT_TRUE(view.shown.back().updateShown);    // dated exactly at the dismissal
  EXPECT_FALSE(view.shown.back().upgradeShown);  // a second earlier

  manager.DismissUpdates(kProduct, 1600000001);
  EXPECT_FALSE(run(false));
  ASSERT_TRUE(run(true));  // a manual check shows dismissed offers again
  EXPECT_TRUE(view.shown.back().updateShown);
  EXPECT_TRUE(view.shown.back().upgradeShown);
  // Another product's dismissal does not count.
  manager.DismissUpdates(kProduct + 1, 1800000000);
  manager.DismissUpdates(kProduct, 0);
  EXPECT_TRUE(run(false));
}

TEST_F(UpdateCheck, TheMapFlagDecidesMapOnlyUpdatesAndUpgradesWithoutAPlainLink) {
  UpdatePart update;
  update.mapOnly = true;
  UpgradePart upgrade;
  upgrade.noMapUrl = "";
  service.setAnswer(kProduct, answerJson(update, upgrade));
  EXPECT_FALSE(run(true, false));
  ASSERT_TRUE(run(true, true));
  EXPECT_TRUE(view.shown.back().updateShown);
  EXPECT_TRUE(view.shown.back().upgradeShown);
  EXPECT_TRUE(view.shown.back().mapFlag);

  // An empty plain link hides the upgrade whatever "UpgradeAvailable" says.
  upgrade.available = false;
  update.mapOnly = false;
  service.setAnswer(kProduct, answerJson(update, upgrade));
  ASSERT_TRUE(run(true, false));
  EXPECT_FALSE(view.shown.back().upgradeShown);
}

TEST_F(UpdateCheck, AClosedDialogWithChangedSettingsStoresTheBox) {
  service.setAnswer(kProduct, updateOnlyJson({}));
  view.autoCheck = false;
  ASSERT_TRUE(run(false));  // unchanged settings: nothing stored
  std::uint32_t stored = 7;
  EXPECT_FALSE(readUserDword(productKeyPath(), L"CheckUpdatesOnStartUp", stored));
  EXPECT_TRUE(manager.CheckOnStartUp());

  view.settingsChanged = true;
  ASSERT_TRUE(run(false));
  EXPECT_FALSE(manager.CheckOnStartUp());
  ASSERT_TRUE(readUserDword(productKeyPath(), L"CheckUpdatesOnStartUp", stored));
  EXPECT_EQ(stored, 0u);
}

TEST_F(UpdateCheck, AViewThatCannotBeCreatedShowsNothing) {
  service.setAnswer(kProduct, updateOnlyJson({}));
  view.canCreate = false;
  EXPECT_FALSE(run(true));
  EXPECT_EQ(view.created, 1);
  EXPECT_TRUE(view.shown.empty());
}

TEST_F(UpdateCheck, EveryFailureDegradesToNothingAvailable) {
  service.setAnswer(kProduct, answerJson({}, {}));
  for (ServiceMode mode : {ServiceMode::NoContent, ServiceMode::MovedPermanently, ServiceMode::ServerError,
                           ServiceMode::Garbage, ServiceMode::Oversized, ServiceMode::Close}) {
    service.setMode(mode);
    EXPECT_FALSE(run(true)) << static_cast<int>(mode);
  }
  service.setMode(ServiceMode::Answer);
  for (const char* body :
       {"[]", "{\"CheckForUpdatesResult\":[1]}",
        "{\"CheckForUpdatesResult\":{\"UpdateResult\":{\"UpdateAvailable\":\"yes\",\"UpdateActive\":1}}}"}) {
    service.setAnswer(kProduct, body);
    EXPECT_FALSE(run(true)) << body;
  }
  EXPECT_FALSE(run(true, false, 12345));  // no answer for the product: 404
  service.stop();                         // refused
  EXPECT_FALSE(run(true));
  CHvHttpClientManager::Release();  // no library
  EXPECT_FALSE(run(true));
  EXPECT_EQ(view.created, 0);
}

TEST_F(UpdateCheck, LinksOpenOnlyWhenTheyAreWebAddresses) {
  UpgradePart upgrade;
  upgrade.mapUrl = "HTTP://maps.example/kvt2";
  upgrade.noMapUrl = "file:///C:/Windows/System32/calc.exe";
  service.setAnswer(kProduct, answerJson({}, upgrade));
  ASSERT_TRUE(run(true, true));
  presenter.ViewUpdate();
  presenter.ViewUpgrade();
  EXPECT_EQ(desktop,
            L"shell open: https://www.halvorn.aero/kvt/sp1 (show 1)\n"
            L"shell open: HTTP://maps.example/kvt2 (show 1)\n");

  desktop.clear();
  ASSERT_TRUE(run(true, false));  // the upgrade has a plain link, though not a web one
  presenter.ViewUpgrade();
  EXPECT_EQ(desktop, L"");
}

TEST_F(UpdateCheck, DismissingStoresTheClocksTimeForTheCheckedProduct) {
  service.setAnswer(75000, updateOnlyJson({}));
  ASSERT_TRUE(run(false, false, 75000));
  EXPECT_TRUE(presenter.IsLibraryProduct());
  presenter.DismissUpdates();
  EXPECT_EQ(manager.DismissedTime(75000), kNow);
  std::wstring record;
  ASSERT_TRUE(readUserString(productKeyPath(), L"DismissedUpdates", record));
  EXPECT_EQ(record, L"{\"Products\":[75000],\"Times\":[1700000000,0]}");

  service.setAnswer(74999, updateOnlyJson({}));
  ASSERT_TRUE(run(false, false, 74999));
  EXPECT_FALSE(presenter.IsLibraryProduct());
}

// The top-level check runs on the process-wide manager.
class TopLevelCheck : public UpdateCheck {
 protected:
  void SetUp() override {
    UpdateCheck::SetUp();
    CHvAutomaticUpdateManager::Instance()->LoadSettings(productKeyPath());
    request.version = L"1.1.0.1";
    request.language = L"ENG";
  }
  Hv::Http::UpdateCheckRequest request;
};

TEST_F(TopLevelCheck, TheSecondProductIsCheckedOnlyWhenTheFirstShowedNothing) {
  request.secondProduct = 75000;
  service.setAnswer(kProductNumber, nothingJson());
  service.setAnswer(75000, updateOnlyJson({}));
  ASSERT_TRUE(Hv::Http::RunAutomaticUpdateCheck(view, request));
  ASSERT_EQ(view.shown.size(), 1u);
  EXPECT_EQ(view.shown[0].product, 75000u);

  service.setAnswer(kProductNumber, updateOnlyJson({}));
  ASSERT_TRUE(Hv::Http::RunAutomaticUpdateCheck(view, request));
  EXPECT_EQ(view.shown.back().product, static_cast<std::uint32_t>(kProductNumber));
  EXPECT_EQ(service.requests().size(), 3u);
}

TEST_F(TopLevelCheck, AManualCheckThatShowedNothingSaysSo) {
  service.setAnswer(kProductNumber, nothingJson());
  EXPECT_FALSE(Hv::Http::RunAutomaticUpdateCheck(view, request));
  EXPECT_EQ(desktop, L"");  // not at start-up
  request.manual = true;
  EXPECT_FALSE(Hv::Http::RunAutomaticUpdateCheck(view, request));
  EXPECT_EQ(desktop, L"message box: [Automatic Updates Notification] No updates were found.\n");
}

// A view whose modal loop asks for another check, as a LISP call arriving then would.
class ReenteringView : public RecordingView {
 public:
  bool DoModal() override {
    Hv::Http::UpdateCheckRequest nested;
    nested.manual = true;
    RecordingView inner;
    nestedShown = Hv::Http::RunAutomaticUpdateCheck(inner, nested);
    return RecordingView::DoModal();
  }
  bool nestedShown = true;
};

TEST_F(TopLevelCheck, NoCheckStartsWhileOneIsRunning) {
  service.setAnswer(kProductNumber, updateOnlyJson({}));
  ReenteringView reentering;
  ASSERT_TRUE(Hv::Http::RunAutomaticUpdateCheck(reentering, request));
  EXPECT_FALSE(reentering.nestedShown);
  EXPECT_EQ(service.requests().size(), 1u);
  EXPECT_EQ(desktop, L"");
  // Once it ended, checks run again.
  EXPECT_TRUE(Hv::Http::RunAutomaticUpdateCheck(view, request));
}

}  // namespace
}  // namespace kvt1::testing
