// The consent question on our DOM engine, answered as a user would: its four
// results, the page's texts and the "More Information..." link.
#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "htmlui/HTMEngine.h"
#include "htmlui/engine/DomEngine.h"
#include "online/usage/CHvsUsageReportManagerBase.h"
#include "online/usage/dialog/CHvsUsageDialog.h"
#include "platform/DialogWindow.h"
#include "platform/Resources.h"
#include "platform/ThisModule.h"
#include "tests/common/HeadlessRecorder.h"
#include "text/MessageDescription.h"
#include "text/TextResources.h"
#ifndef _WIN32
#include "platform/posix/HeadlessDesktop.h"
#endif

namespace kvt1::testing {
namespace {

constexpr std::uintptr_t kScriptTimer = 7;

// The dialog with a script that plays the user, one step per timer tick.
class ScriptedUsageDialog : public CHvsUsageDialog {
 public:
  using Step = std::function<void(ScriptedUsageDialog&)>;
  explicit ScriptedUsageDialog(std::vector<Step> script) : CHvsUsageDialog(nullptr), steps(std::move(script)) {}

  std::vector<Step> steps;
  std::size_t next = 0;

 protected:
  void OnInitDialog() override { platform::setTimer(GetHwnd(), kScriptTimer, 20); }
  void OnTimer(std::uintptr_t id) override {
    if (id == kScriptTimer && next < steps.size()) steps[next++](*this);
  }
};

class UsageDialog : public ::testing::Test {
 protected:
  void SetUp() override {
    platform::setResourceModule(platform::thisModuleHandle());
    NTxtRes::SetApplicationTitle(L"KVT");
    SetHtmlEngine(&engine);
    headless() = HeadlessRecord();
#ifndef _WIN32
    platform::HeadlessDesktop::instance().setIdleHandler([] { platform::HeadlessDesktop::instance().advance(20); });
#endif
  }
  void TearDown() override {
#ifndef _WIN32
    platform::HeadlessDesktop::instance().setIdleHandler(nullptr);
#endif
    SetHtmlEngine(nullptr);
    NTxtRes::ReleaseTextDocument();
  }

  ScriptedUsageDialog::Step click(const wchar_t* id) {
    return [this, id](ScriptedUsageDialog& dialog) {
      const CHTMElement element = dialog.ElementById(id);
      ASSERT_TRUE(element.IsValid()) << "no element";
      engine.click(element.Handle());
    };
  }
  int answer(std::vector<ScriptedUsageDialog::Step> steps) {
    ScriptedUsageDialog dialog(std::move(steps));
    return dialog.DoModal();
  }

  html::DomEngine engine;
};

TEST_F(UsageDialog, OkTakesTheCheckedChoice) {
  EXPECT_EQ(answer({click(L"btnOk")}), kUsageConsentAgreed);  // "Yes" is checked at first
  EXPECT_EQ(answer({click(L"NO"), click(L"btnOk")}), kUsageConsentDeclined);
  EXPECT_EQ(answer({click(L"NO"), click(L"YES"), click(L"btnOk")}), kUsageConsentAgreed);
  // With no choice checked at all, OK declines.
  EXPECT_EQ(answer({[](ScriptedUsageDialog& dialog) { dialog.ElementById(L"YES").SetState(0, STATE_CHECKED); },
                    click(L"btnOk")}),
            kUsageConsentDeclined);
}

TEST_F(UsageDialog, LaterAndClosingStoreNothing) {
  EXPECT_EQ(answer({click(L"btnLater")}), kUsageConsentLater);
  EXPECT_EQ(answer({[](ScriptedUsageDialog& dialog) { platform::postMessage(dialog.GetHwnd(), WM_CLOSE, 0, 0); }}),
            kUsageConsentClosed);
}

TEST_F(UsageDialog, ThePageNamesTheProductAndMoreInformationOpensAPage) {
  std::wstring heading;
  std::wstring yes;
  EXPECT_EQ(answer({[&](ScriptedUsageDialog& dialog) {
                      heading = dialog.ElementById(L"TXT1").GetText();
                      yes = dialog.ElementById(L"TXT4").GetText();
                    },
                    click(L"btnMoreInfo"), click(L"btnLater")}),
            kUsageConsentLater);
  EXPECT_EQ(heading, L"Help Improve the KVT Product Experience");
  EXPECT_EQ(yes, L"Yes, I would like to help make KVT even better");
  ASSERT_EQ(headless().shellOpened.size(), 1u);
  EXPECT_EQ(headless().shellOpened[0], L"https://www.halvorn.aero/kvt/usage-reports");
}

TEST_F(UsageDialog, WithoutAnEngineTheQuestionCountsAsClosed) {
  SetHtmlEngine(nullptr);
  EXPECT_EQ(CHvsUsageDialog::Ask(nullptr), kUsageConsentClosed);
}

}  // namespace
}  // namespace kvt1::testing
