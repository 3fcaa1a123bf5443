// The update notification as the user meets it: a real check against the
// local update service, the dialog on our DOM engine, its page checked and
// its buttons clicked, and the registry read back afterwards.
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "htmlui/HTMEngine.h"
#include "htmlui/engine/AutomationMessages.h"
#include "htmlui/engine/DomEngine.h"
#include "htmlui/engine/litehtml/LitehtmlLayout.h"
#include "online/CCheckForUpdateView.h"
#include "online/CHvAutomaticUpdateManager.h"
#include "online/CHvCheckForUpdatePresenter.h"
#include "online/CHvHttpClientManager.h"
#include "platform/DialogWindow.h"
#include "platform/MessageBox.h"
#include "platform/Resources.h"
#include "platform/ThisModule.h"
#include "settings/ProductKey.h"
#include "tests/common/HeadlessRecorder.h"
#include "tests/common/TestInstallation.h"
#include "tests/online/OnlineTestSupport.h"
#include "text/MessageDescription.h"
#include "text/TextResources.h"
#include "tools/kvt1-update-service/UpdateService.h"

#ifdef _WIN32
#include <windows.h>
#else
#include "platform/posix/HeadlessDesktop.h"
#endif

namespace kvt1::testing {
namespace {

using Hv::Http::CHvAutomaticUpdateManager;
using Hv::Http::CHvCheckForUpdatePresenter;
using Hv::Http::CHvHttpClientManager;
using platform::RegistryRoot;

constexpr std::uint32_t kProduct = 30;
constexpr std::int64_t kNow = 1700000000;

// What the page showed when it came up.
struct Seen {
  bool updateRow = false, upgradeRow = false, libraryRow = false, dismiss = false;
  std::wstring updateLabel, updateName, upgradeLabel, upgradeName, closeMargin;
  bool checked = false;
  int height = 0;
  int clientHeight = 0;
};

class UpdateDialog;
UpdateDialog* current = nullptr;

class UpdateDialog : public ::testing::Test {
 public:
  // One tick of the user: the next step on the dialog that is up.
  void tick() {
    CHTMCheckForUpdateDlg* dialog = view.Dialog();
    if (dialog == nullptr || dialog->GetHwnd() == nullptr || next >= steps.size()) return;
    steps[next++](*dialog);
  }

 protected:
  using Step = std::function<void(CHTMCheckForUpdateDlg&)>;

  void SetUp() override {
    ASSERT_TRUE(service.start());
    CHvHttpClientManager::Release();
    ASSERT_TRUE(CHvHttpClientManager::Instance()->Load(programFolder()));
    const std::string host = service.hostAndPort();
    setRegistryString(installation, RegistryRoot::LocalMachine, productKeyPath(), L"CheckUpdateUrl",
                      std::wstring(host.begin(), host.end()));
    manager.LoadSettings(productKeyPath());
    headless() = HeadlessRecord();
    // The texts come from this program's copy of the English document.
    platform::setResourceModule(platform::thisModuleHandle());
    NTxtRes::SetApplicationTitle(L"KVT");
    SetHtmlEngine(&engine);
    view.SetPresenter(presenter);
    current = this;
    startDriver();
  }
  void TearDown() override {
    stopDriver();
    current = nullptr;
    SetHtmlEngine(nullptr);
    NTxtRes::ReleaseTextDocument();
    CHvHttpClientManager::Release();
  }

  // Runs a check; the steps play the user, one per tick once the dialog is up.
  bool run(bool manual, std::vector<Step> script, std::uint32_t product = kProduct, bool mapFlag = false) {
    steps = std::move(script);
    next = 0;
    return presenter.Run(product, L"1.1.0.1", L"ENG", mapFlag, manual);
  }

  void click(CHTMCheckForUpdateDlg& dialog, const wchar_t* id) {
    const CHTMElement element = dialog.ElementById(id);
    ASSERT_TRUE(element.IsValid());
    engine.click(element.Handle());
  }

  Step look(Seen& seen) {
    return [&seen](CHTMCheckForUpdateDlg& dialog) {
      const auto shown = [&](const wchar_t* id) { return dialog.ElementById(id).GetStyle("display") != L"none"; };
      seen.updateRow = shown(L"divUpdateRow");
      seen.upgradeRow = shown(L"divUpgradeRow");
      seen.libraryRow = shown(L"divLibraryUpdateRow");
      seen.dismiss = shown(L"btnDismiss");
      seen.updateLabel = dialog.ElementById(L"divUpdateText").GetText();
      seen.updateName = dialog.ElementById(L"divUpdateName").GetText();
      seen.upgradeLabel = dialog.ElementById(L"divUpgradeText").GetText();
      seen.upgradeName = dialog.ElementById(L"divUpgradeName").GetText();
      seen.closeMargin = dialog.ElementById(L"btnClose").GetStyle("margin-left");
      seen.checked = dialog.IsAutoCheckChecked();
      seen.height = dialog.ComputedHeight();
      const platform::WindowRect frame =
          platform::adjustWindowRectForStyle(platform::WindowRect{0, 0, 100, 100}, dialog.Style(), dialog.ExStyle());
      seen.clientHeight = platform::windowRect(dialog.GetHwnd()).height() - (frame.height() - 100);
    };
  }
  // The middle of the first visible element that selector finds, in client
  // coordinates, as the page's layout placed it.
  static bool middleOf(HWND dialog, const wchar_t* selector, int& x, int& y) {
    html::AutomationQuery query;
    query.selector = selector;
    if (platform::sendMessage(dialog, html::kWmAutomationLocate, 0, reinterpret_cast<std::intptr_t>(&query)) != 1 ||
        !query.visible || query.rect.right <= query.rect.left || query.rect.bottom <= query.rect.top)
      return false;
    x = (query.rect.left + query.rect.right) / 2;
    y = (query.rect.top + query.rect.bottom) / 2;
    return true;
  }
  // A press and release of the left button where the element is drawn.
  Step pressOn(const wchar_t* selector) {
    return [selector](CHTMCheckForUpdateDlg& dialog) {
      int x = 0, y = 0;
      ASSERT_TRUE(middleOf(dialog.GetHwnd(), selector, x, y));
      const std::intptr_t at = (static_cast<std::intptr_t>(y) << 16) | (x & 0xFFFF);
      platform::postMessage(dialog.GetHwnd(), WM_MOUSEMOVE, 0, at);
      platform::postMessage(dialog.GetHwnd(), WM_LBUTTONDOWN, 1, at);
      platform::postMessage(dialog.GetHwnd(), WM_LBUTTONUP, 0, at);
    };
  }
  Step press(const wchar_t* id) {
    return [this, id](CHTMCheckForUpdateDlg& dialog) { click(dialog, id); };
  }
  Step toggleCheckBox() {
    return [this](CHTMCheckForUpdateDlg& dialog) {
      const CHTMElement input = dialog.ElementById(L"chkAutoCheckForUpdates").Child(0);
      ASSERT_TRUE(input.IsValid());
      engine.click(input.Handle());
    };
  }

  std::int64_t storedDismissal() {
    CHvAutomaticUpdateManager reloaded;
    reloaded.LoadSettings(productKeyPath());
    return reloaded.DismissedTime(kProduct);
  }

  void startDriver();
  void stopDriver();

  TestInstallation installation;
  service::UpdateService service;
  html::DomEngine engine;
  CHvAutomaticUpdateManager manager;
  CCheckForUpdateView view{nullptr};
  CHvCheckForUpdatePresenter presenter{view, &manager, [] { return kNow; }};
  std::vector<Step> steps;
  std::size_t next = 0;
#ifdef _WIN32
  UINT_PTR timer = 0;
#endif
};

#ifdef _WIN32
void CALLBACK driverTick(HWND, UINT, UINT_PTR, DWORD) {
  if (current != nullptr) current->tick();
}
void UpdateDialog::startDriver() { timer = SetTimer(nullptr, 0, 30, &driverTick); }
void UpdateDialog::stopDriver() { KillTimer(nullptr, timer); }
#else
void UpdateDialog::startDriver() {
  // A step per tick of the dialog's own 100 ms timer, so the desktop sees the user act.
  platform::HeadlessDesktop::instance().setIdleHandler([this] {
    platform::HeadlessDesktop::instance().advance(100);
    tick();
  });
}
void UpdateDialog::stopDriver() { platform::HeadlessDesktop::instance().setIdleHandler(nullptr); }
#endif

TEST_F(UpdateDialog, UpdateAndUpgradeShowTwoRowsAndCloseLeavesTheSettingsAlone) {
  service.setAnswer(kProduct, answerJson({}, {}));
  Seen seen;
  ASSERT_TRUE(run(false, {look(seen), press(L"btnClose")}));
  EXPECT_TRUE(seen.updateRow);
  EXPECT_TRUE(seen.upgradeRow);
  EXPECT_FALSE(seen.libraryRow);
  EXPECT_TRUE(seen.dismiss);
  EXPECT_EQ(seen.updateLabel, L"A free update is available:");
  EXPECT_EQ(seen.updateName, L"KVT 1.1 SP1");
  EXPECT_EQ(seen.upgradeLabel, L"An upgrade is available:");
  EXPECT_EQ(seen.upgradeName, L"KVT 2");
  EXPECT_TRUE(seen.checked);
  EXPECT_EQ(seen.height, 100);
  EXPECT_EQ(seen.clientHeight, 100);
  EXPECT_EQ(next, 2u);
  std::uint32_t stored = 0;
  EXPECT_FALSE(readUserDword(productKeyPath(), L"CheckUpdatesOnStartUp", stored));
  EXPECT_EQ(storedDismissal(), 0);
}

TEST_F(UpdateDialog, OnlyAnUpgradeLeavesOneRowWithTheMapLabel) {
  UpdatePart none;
  none.available = false;
  service.setAnswer(kProduct, answerJson(none, {}));
  Seen seen;
  ASSERT_TRUE(run(false, {look(seen), press(L"btnViewUpgrade"), press(L"btnClose")}, kProduct, true));
  EXPECT_FALSE(seen.updateRow);
  EXPECT_TRUE(seen.upgradeRow);
  EXPECT_FALSE(seen.libraryRow);
  EXPECT_EQ(seen.upgradeLabel, L"A free upgrade is available:");
  EXPECT_EQ(seen.height, 75);
  EXPECT_EQ(headless().shellOpened, std::vector<std::wstring>{L"https://www.halvorn.aero/kvt2/map"});
}

TEST_F(UpdateDialog, ALibraryProductShowsItsUpdateAsALibraryUpdateAndNoUpgrade) {
  constexpr std::uint32_t kLibrary = 75000;
  service.setAnswer(kLibrary, answerJson({}, {}));
  Seen seen;
  ASSERT_TRUE(run(false, {look(seen), press(L"btnViewUpdate"), press(L"btnClose")}, kLibrary));
  EXPECT_TRUE(seen.updateRow);
  EXPECT_EQ(seen.updateLabel, L"A free library update is available:");
  EXPECT_FALSE(seen.upgradeRow);
  EXPECT_FALSE(seen.libraryRow);
  EXPECT_EQ(seen.height, 75);
  EXPECT_EQ(headless().shellOpened, std::vector<std::wstring>{L"https://www.halvorn.aero/kvt/sp1"});
}

TEST_F(UpdateDialog, AManualCheckHasNoDismissButtonAndTheCloseButtonTakesItsPlace) {
  service.setAnswer(kProduct, updateOnlyJson({}));
  Seen seen;
  ASSERT_TRUE(run(true, {look(seen), press(L"btnClose")}));
  EXPECT_FALSE(seen.dismiss);
  EXPECT_EQ(seen.closeMargin, L"104px");
  EXPECT_EQ(seen.height, 75);
}

TEST_F(UpdateDialog, NamesFromTheServiceAreShownAsText) {
  UpdatePart update;
  update.name = "<b>SP1</b> & <script>";
  service.setAnswer(kProduct, updateOnlyJson(update));
  Seen seen;
  ASSERT_TRUE(run(false, {look(seen), press(L"btnClose")}));
  EXPECT_EQ(seen.updateName, L"<b>SP1</b> & <script>");
}

// Control characters in a name, a NUL among them, are dropped: the rest of
// the page is still laid out, drawn and clickable where it is drawn.
TEST_F(UpdateDialog, ControlCharactersInANameNeverCutThePage) {
  engine.setLayoutProvider(std::make_unique<html::LitehtmlLayout>());
  UpdatePart update;
  update.name = "SP1\\u0000x\\u001b[2J\\u0085\\tend";
  service.setAnswer(kProduct, updateOnlyJson(update));
  Seen seen;
  std::vector<std::wstring> hidden;
  ASSERT_TRUE(
      run(false, {look(seen),
                  [&hidden](CHTMCheckForUpdateDlg& dialog) {
                    for (const wchar_t* selector :
                         {L"#btnViewUpdate", L"#chkAutoCheckForUpdates input", L"#btnDismiss", L"#btnClose"}) {
                      int x = 0, y = 0;
                      if (!middleOf(dialog.GetHwnd(), selector, x, y)) hidden.push_back(selector);
                    }
                  },
                  pressOn(L"#btnViewUpdate"), pressOn(L"#chkAutoCheckForUpdates input"), pressOn(L"#btnClose"),
                  // Reached only when the press on "Close" did not close the dialog.
                  [](CHTMCheckForUpdateDlg& dialog) { platform::postMessage(dialog.GetHwnd(), WM_CLOSE, 0, 0); }}));
  EXPECT_EQ(seen.updateName, L"SP1x[2Jend");
  EXPECT_TRUE(hidden.empty()) << hidden.size();
  EXPECT_EQ(next, 5u);
  EXPECT_EQ(headless().shellOpened, std::vector<std::wstring>{L"https://www.halvorn.aero/kvt/sp1"});
  std::uint32_t stored = 1;
  ASSERT_TRUE(readUserDword(productKeyPath(), L"CheckUpdatesOnStartUp", stored));
  EXPECT_EQ(stored, 0u);
}

TEST_F(UpdateDialog, DismissingAsksAndOnlyYesStoresTheTime) {
  service.setAnswer(kProduct, answerJson({}, {}));
  headless().answers = {platform::kIdNo, platform::kIdYes};
  ASSERT_TRUE(run(false, {press(L"btnDismiss"),
                          [this](CHTMCheckForUpdateDlg&) {
                            // "No": the dialog is still up and nothing was stored.
                            EXPECT_EQ(storedDismissal(), 0);
                          },
                          press(L"btnDismiss")}));
  ASSERT_EQ(headless().messages.size(), 2u);
  EXPECT_EQ(headless().messages[0], L"KVT: Are you sure you do not want to see these updates again ?");
  EXPECT_EQ(headless().messageTypes[0] & 0xF, unsigned{platform::kMbYesNo});
  EXPECT_EQ(storedDismissal(), kNow);

  // The next start-up check shows nothing; a manual one shows it again.
  manager.LoadSettings(productKeyPath());
  EXPECT_FALSE(run(false, {}));
  EXPECT_TRUE(run(true, {press(L"btnClose")}));
}

TEST_F(UpdateDialog, TheCheckBoxIsSavedWhenItChanged) {
  service.setAnswer(kProduct, answerJson({}, {}));
  ASSERT_TRUE(run(false, {toggleCheckBox(), press(L"btnClose")}));
  std::uint32_t stored = 1;
  ASSERT_TRUE(readUserDword(productKeyPath(), L"CheckUpdatesOnStartUp", stored));
  EXPECT_EQ(stored, 0u);
  EXPECT_FALSE(manager.CheckOnStartUp());
}

TEST_F(UpdateDialog, WithoutTheEngineNothingShowsAndTheCheckFoundNothing) {
  SetHtmlEngine(nullptr);
  service.setAnswer(kProduct, answerJson({}, {}));
  EXPECT_FALSE(run(false, {}));
}

}  // namespace
}  // namespace kvt1::testing
