// kvt1_splash and kvt1_info as the LISP services run them, with the module's
// splash and about box on our DOM engine and a sleep that is only counted.
#include "host/LispServices.h"

#include <gtest/gtest.h>

#include <vector>

#include "htmlui/dialogs/CKVTSplash.h"
#include "settings/CHelpTopicMap.h"
#include "settings/SettingsStore.h"
#include "tests/htmlui/dialogs/ProductDialogTest.h"
#ifndef _WIN32
#include "platform/posix/HeadlessDesktop.h"
#endif

namespace kvt1::testing {
namespace {

std::vector<unsigned> g_sleeps;
void countSleep(unsigned milliseconds) { g_sleeps.push_back(milliseconds); }

class LispDialogServicesTest : public ProductDialogTest {
 protected:
  void SetUp() override {
    ProductDialogTest::SetUp();
    g_sleeps.clear();
  }
  void TearDown() override {
    splash.StopTimedDisplay();
    ProductDialogTest::TearDown();
  }

  CHelpTopicMap helpMap;
  CLispServices services{helpMap, theSettings(), countSleep};
  CKVTSplash splash{nullptr};
};

TEST_F(LispDialogServicesTest, WithoutASplashTheSplashCallsDoNothingAndDoNotSleep) {
  services.driveSplash(3);
  services.driveSplash(1);
  EXPECT_TRUE(g_sleeps.empty());
}

// A LISP loop paces itself with the splash calls, before the splash shows and after it closed.
TEST_F(LispDialogServicesTest, ASplashNotOnScreenStillPacesTheCaller) {
  services.setSplash(&splash);  // made, never shown
  services.driveSplash(3);
  ASSERT_TRUE(splash.ShowAtStartUp());
  splash.StopTimedDisplay();  // shown and gone again
  services.driveSplash(3);
  services.driveSplash(2);
  EXPECT_FALSE(splash.IsShown());
  EXPECT_EQ(g_sleeps, (std::vector<unsigned>{100, 100, 100}));
}

TEST_F(LispDialogServicesTest, AShownSplashIsKeptGoingAndEachCallSleeps) {
  services.setSplash(&splash);
  ASSERT_TRUE(splash.ShowAtStartUp());
  services.driveSplash(1);
  services.driveSplash(2);
  EXPECT_TRUE(splash.IsShown());
  EXPECT_EQ(splash.RemainingTicks(), CKVTSplash::kStartUpDisplayMs / CHTMSplashDlg::kSplashTickMs);
  EXPECT_EQ(g_sleeps, (std::vector<unsigned>{100, 100}));
}

TEST_F(LispDialogServicesTest, CodeThreeStopsTheTimedDisplay) {
  services.setSplash(&splash);
  ASSERT_TRUE(splash.ShowAtStartUp());
  services.driveSplash(3);
  EXPECT_FALSE(splash.IsShown());
  EXPECT_EQ(splash.RemainingTicks(), 0u);
  EXPECT_EQ(g_sleeps, std::vector<unsigned>{100});
}

#ifndef _WIN32
TEST_F(LispDialogServicesTest, TheSleepIsTheDesktopsTimeSoTheSplashEndsOnTime) {
  CLispServices sleeping(helpMap, theSettings());
  sleeping.setSplash(&splash);
  ASSERT_TRUE(splash.ShowAtStartUp());
  platform::HeadlessDesktop& desktop = platform::HeadlessDesktop::instance();
  const std::uint64_t start = desktop.now();
  // Each call handles the tick that the previous call's sleep let fall due.
  const unsigned ticks = CKVTSplash::kStartUpDisplayMs / CHTMSplashDlg::kSplashTickMs;
  for (unsigned i = 0; i < ticks; ++i) sleeping.driveSplash(1);
  EXPECT_TRUE(splash.IsShown());
  EXPECT_EQ(desktop.now(), start + CKVTSplash::kStartUpDisplayMs);
  sleeping.driveSplash(1);
  EXPECT_FALSE(splash.IsShown());
  // Closed, it still paces the caller.
  const std::uint64_t closed = desktop.now();
  sleeping.driveSplash(3);
  EXPECT_EQ(desktop.now(), closed + 100);
}

TEST_F(LispDialogServicesTest, InfoRunsTheAboutBoxModallyUntilItsButtonEndsIt) {
  platform::HeadlessDesktop& desktop = platform::HeadlessDesktop::instance();
  HWND opened = nullptr;
  std::wstring program;
  desktop.setWindowCreatedHandler([&](HWND window) { opened = window; });
  desktop.setIdleHandler([&] {
    if (opened == nullptr) return;
    auto* about = reinterpret_cast<CHTMDialog*>(platform::windowUserData(opened));
    opened = nullptr;
    program = about->ElementById(L"txtProgVersion").GetText();
    engine_.click(about->ElementById(L"OK").Handle());
  });
  services.showInfo();
  desktop.setWindowCreatedHandler(nullptr);
  EXPECT_EQ(program.find(L"Program: "), 0u);
  EXPECT_TRUE(desktop.windows().empty());
}
#endif

}  // namespace
}  // namespace kvt1::testing
