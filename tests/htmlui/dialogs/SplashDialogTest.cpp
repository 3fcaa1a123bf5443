#include "htmlui/dialogs/CKVTSplash.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "host/identity/ModuleVersion.h"
#include "htmlui/dialogs/CKVTAbout.h"
#include "htmlui/engine/AutomationMessages.h"
#include "platform/DialogWindow.h"
#include "platform/Win32.h"
#include "tests/htmlui/dialogs/ProductDialogTest.h"
#ifndef _WIN32
#include "platform/posix/HeadlessDesktop.h"
#include "tests/htmlui/engine/litehtml/PngPixels.h"
#endif

namespace kvt1::testing {
namespace {

class SplashDialogTest : public ProductDialogTest {
 protected:
  void TearDown() override {
    splash.StopTimedDisplay();
    ProductDialogTest::TearDown();
  }

  // One tick of the splash's timer, as the system delivers it.
  void tick() { platform::sendMessage(splash.GetHwnd(), WM_TIMER, CHTMSplashDlg::kSplashTimerId, 0); }

  CKVTSplash splash{nullptr};
};

TEST_F(SplashDialogTest, IsATopmostPictureWithTheVersionWrittenOnIt) {
  ASSERT_TRUE(splash.ShowAtStartUp());
  ASSERT_TRUE(splash.IsShown());
  EXPECT_EQ(splash.Style(), WS_POPUP);
  EXPECT_EQ(platform::windowStyle(splash.GetHwnd()) & WS_CAPTION, 0u);
  EXPECT_EQ(splash.ExStyle(), WS_EX_TOPMOST);
  EXPECT_EQ(platform::windowText(splash.GetHwnd()), L"KVT");  // named in the task bar, though it has no caption
  EXPECT_EQ(splash.ElementById(L"splashImage").GetStyle("background-image"), L"url(IMG_VRMSPLASH.IMAGES)");
  EXPECT_EQ(splash.ElementById(L"versionType").GetText(), L"Version");
  const std::wstring version = moduleVersionString(CKVTSplash::kVersionSlot);
  EXPECT_FALSE(version.empty());
  EXPECT_EQ(splash.ElementById(L"versionInfo").GetText(), version);
  EXPECT_EQ(splash.ElementById(L"loading").GetText(), L"Loading...");

  const CHTMElement click = splash.ElementById(L"clickArea");
  EXPECT_EQ(click.GetStyle("left"), L"0px");
  EXPECT_EQ(click.GetStyle("width"), L"560px");
  EXPECT_EQ(click.GetStyle("height"), L"320px");

  // The maker's mark sits in the lower right corner.
  const CHTMElement container = splash.ElementById(L"InfoImageContainer");
  ASSERT_EQ(container.ChildCount(), 1u);
  const CHTMElement mark = container.Child(0);
  EXPECT_EQ(mark.GetType(), L"div");
  EXPECT_EQ(mark.GetStyle("top"), L"264px");
  EXPECT_EQ(mark.GetStyle("left"), L"504px");
  EXPECT_EQ(mark.GetStyle("width"), L"40px");
  EXPECT_EQ(mark.GetStyle("height"), L"40px");
  EXPECT_EQ(mark.GetStyle("background-image"), L"url(IMG_HALVORNMARK.IMAGES)");
}

TEST_F(SplashDialogTest, TheHostKeepsTheForeground) {
  const HWND host = platform::createDialogWindow(nullptr, 0x80C80000u, 0, nullptr);
  ASSERT_NE(host, nullptr);
  platform::showWindow(host, true);
  platform::setForegroundWindow(host);
  CKVTSplash owned(host);
  ASSERT_TRUE(owned.ShowAtStartUp());
  EXPECT_EQ(platform::parentWindow(owned.GetHwnd()), host);
  EXPECT_EQ(platform::foregroundWindow(), host);
  EXPECT_TRUE(owned.IsShown());
  owned.StopTimedDisplay();
  platform::destroyWindow(host);
}

TEST_F(SplashDialogTest, ClosesByItselfWhenItsTimeIsUp) {
  ASSERT_TRUE(splash.ShowTimed(450));
  EXPECT_EQ(splash.RemainingTicks(), 5u);  // whole ticks, rounded up
  for (int i = 0; i < 4; ++i) tick();
  EXPECT_TRUE(splash.IsShown());
  EXPECT_EQ(splash.RemainingTicks(), 1u);
  tick();
  EXPECT_FALSE(splash.IsShown());
  EXPECT_EQ(splash.RemainingTicks(), 0u);
}

TEST_F(SplashDialogTest, OtherTimersDoNotCountTheDisplayDown) {
  ASSERT_TRUE(splash.ShowTimed(100));
  platform::sendMessage(splash.GetHwnd(), WM_TIMER, 99, 0);
  EXPECT_TRUE(splash.IsShown());
  EXPECT_EQ(splash.RemainingTicks(), 1u);
}

#ifndef _WIN32
TEST_F(SplashDialogTest, ItsOwnTimerRunsOnTheDesktopsClock) {
  ASSERT_TRUE(splash.ShowAtStartUp());
  platform::HeadlessDesktop& desktop = platform::HeadlessDesktop::instance();
  const auto run = [&](unsigned milliseconds) {
    for (unsigned t = 0; t < milliseconds; t += CHTMSplashDlg::kSplashTickMs) {
      desktop.advance(CHTMSplashDlg::kSplashTickMs);
      desktop.pumpPendingMessages();
    }
  };
  run(CKVTSplash::kStartUpDisplayMs - 200);
  EXPECT_TRUE(splash.IsShown());
  // A busy host that lets a second go by delivers one tick, and one is counted.
  desktop.advance(1000);
  desktop.pumpPendingMessages();
  EXPECT_TRUE(splash.IsShown());
  run(100);
  EXPECT_FALSE(splash.IsShown());
}
#endif

TEST_F(SplashDialogTest, AClickOnItClosesItAtOnce) {
  ASSERT_TRUE(splash.ShowAtStartUp());
  engine_.click(splash.ElementById(L"clickArea").Handle());
  EXPECT_EQ(splash.RemainingTicks(), 0u);
  platform::pumpPendingMessages();
  EXPECT_FALSE(splash.IsShown());
}

TEST_F(SplashDialogTest, APointerClickOnThePictureClosesIt) {
  useLitehtml();
  ASSERT_TRUE(splash.ShowAtStartUp());
  const HWND hwnd = splash.GetHwnd();
  html::AutomationQuery query;
  query.selector = L"#clickArea";
  ASSERT_EQ(platform::sendMessage(hwnd, html::kWmAutomationLocate, 0, reinterpret_cast<std::intptr_t>(&query)), 1);
  ASSERT_TRUE(query.visible);
  EXPECT_EQ(query.rect.right - query.rect.left, CKVTSplash::kPictureWidth);
  // On the version line: the click area lies over the picture's lines of text.
  html::AutomationQuery version;
  version.selector = L"#versionInfo";
  ASSERT_EQ(platform::sendMessage(hwnd, html::kWmAutomationLocate, 0, reinterpret_cast<std::intptr_t>(&version)), 1);
  const std::intptr_t at = (static_cast<std::intptr_t>(version.rect.top + 2) << 16) | (version.rect.left + 2);
  platform::sendMessage(hwnd, WM_MOUSEMOVE, 0, at);
  platform::sendMessage(hwnd, WM_LBUTTONDOWN, 1, at);
  platform::sendMessage(hwnd, WM_LBUTTONUP, 0, at);
  EXPECT_EQ(splash.RemainingTicks(), 0u);
  platform::pumpPendingMessages();
  EXPECT_FALSE(splash.IsShown());
}

TEST_F(SplashDialogTest, StoppingEndsTheDisplayAndShowingAgainStartsAnother) {
  ASSERT_TRUE(splash.ShowAtStartUp());
  splash.StopTimedDisplay();
  EXPECT_FALSE(splash.IsShown());
  EXPECT_EQ(splash.RemainingTicks(), 0u);
  splash.StopTimedDisplay();  // nothing left to stop
  EXPECT_FALSE(splash.IsShown());

  ASSERT_TRUE(splash.ShowTimed(1000));
  EXPECT_TRUE(splash.IsShown());
  ASSERT_TRUE(splash.ShowTimed(200));  // while shown: the count starts again
  EXPECT_EQ(splash.RemainingTicks(), 2u);
}

TEST_F(SplashDialogTest, ADialogThatWaitsForTheUserIsNotCoveredByIt) {
  ASSERT_TRUE(splash.ShowAtStartUp());
  bool splashShown = true;
  unsigned remaining = 1;
  HWND atMiddle = nullptr;
  Scripted<CKVTAbout> about({[&](Scripted<CKVTAbout>& d) {
                               splashShown = splash.IsShown();
                               remaining = splash.RemainingTicks();
                               const platform::WindowRect rect = platform::windowRect(d.GetHwnd());
                               atMiddle = platform::windowFromPoint(
                                   platform::WindowPoint{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2});
                             },
                             [&](Scripted<CKVTAbout>& d) {
                               const platform::WindowRect rect = platform::windowRect(d.GetHwnd());
                               EXPECT_EQ(atMiddle, d.GetHwnd()) << rect.left << "," << rect.top;
                               platform::postMessage(d.GetHwnd(), WM_CLOSE, 0, 0);
                             }},
                            nullptr);
  EXPECT_EQ(about.DoModal(), 2);
  EXPECT_FALSE(splashShown);
  EXPECT_EQ(remaining, 0u);
  EXPECT_FALSE(splash.IsShown());
}

TEST_F(SplashDialogTest, WithoutTheEngineThereIsNoSplash) {
  SetHtmlEngine(nullptr);
  EXPECT_FALSE(splash.ShowAtStartUp());
  EXPECT_FALSE(splash.IsShown());
  EXPECT_EQ(splash.RemainingTicks(), 0u);
}

#ifndef _WIN32
TEST_F(SplashDialogTest, DrawsThePictureWithTheVersionAndTheMark) {
  useLitehtml();
  ASSERT_TRUE(splash.ShowAtStartUp());
  const std::string path = ::testing::TempDir() + "kvt1_splash_test.png";
  ASSERT_TRUE(engine_.renderPng(splash.GetHwnd(), path));
  const html::test::PngPixels picture(path);
  ASSERT_TRUE(picture.valid());
  EXPECT_EQ(picture.width(), CKVTSplash::kPictureWidth);
  EXPECT_GE(picture.height(), CKVTSplash::kPictureHeight);
  // The picture is drawn, not the page's plain navy: its frame line and the amber rule under the name.
  EXPECT_NE(picture.at(0, 100) & 0xFFFFFF, 0x0B2A4Au);
  const std::uint32_t rule = picture.at(60, 109) & 0xFFFFFF;
  EXPECT_GT((rule >> 16) & 0xFF, 0xE0u);
  // The mark's light tile in the lower right corner.
  EXPECT_GT(picture.at(507, 284) & 0xFF, 0xE0u);
  std::remove(path.c_str());
}
#endif

}  // namespace
}  // namespace kvt1::testing
