#include "htmlui/CHTMDialog.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <set>

#ifndef _WIN32
#include <cairo.h>

#include "htmlui/engine/litehtml/LitehtmlLayout.h"
#endif

#include "platform/DialogWindow.h"
#include "platform/Unicode.h"
#include "tests/common/HeadlessRecorder.h"
#include "tests/htmlui/TestDialogs.h"

namespace kvt1::testing {
namespace {

using Step = ScriptedDialog::Step;

class CHTMDialogTest : public DialogTest {};

TEST_F(CHTMDialogTest, APageOpensWithItsTagsFilledAndOkEndsTheModalRunWithOne) {
  std::wstring greeting;
  std::wstring unknown;
  bool waitBoxInPage = true;
  platform::WindowRect rect;
  ScriptedDialog dialog(L"HTM_DLG_TEST", {[&](ScriptedDialog& d) {
                                            greeting = d.ElementById(L"greeting").GetText();
                                            unknown = d.ElementById(L"unknown").GetText();
                                            waitBoxInPage = d.ElementById(L"ID#WaitBOX").IsValid();
                                            rect = platform::windowRect(d.GetHwnd());
                                          },
                                          [&](ScriptedDialog& d) { click(d, L"btnOk"); }});
  EXPECT_EQ(dialog.DoModal(), 1);
  EXPECT_FALSE(platform::isWindow(dialog.GetHwnd()));
  EXPECT_EQ(greeting, L"Hello from KVT");
  EXPECT_EQ(unknown, L"UNKNOWN TAG USED (*nothing)");
  EXPECT_FALSE(waitBoxInPage);  // taken out of the page until shown
  EXPECT_TRUE(dialog.dialogProperty);
  EXPECT_EQ(dialog.windowTitle, L"Test dialog");
  EXPECT_EQ(dialog.GetHtml().find(L"anything after"), std::wstring::npos);
  EXPECT_GE(rect.width(), 320);
  EXPECT_GE(rect.height(), 140);
  EXPECT_EQ(dialog.monitored, std::vector<std::wstring>{L"OK"});
  EXPECT_EQ(dialog.Style(), 0x80C80000u);
  EXPECT_EQ(dialog.ExStyle(), 0x101u);
}

TEST_F(CHTMDialogTest, OtherButtonsGoToTheSubclassAndTheDialogStaysOpen) {
  bool openAfterRetry = false;
  ScriptedDialog dialog(L"HTM_DLG_TEST", {[&](ScriptedDialog& d) { click(d, L"btnRetry"); },
                                          [&](ScriptedDialog& d) { openAfterRetry = platform::isWindow(d.GetHwnd()); },
                                          [&](ScriptedDialog& d) { click(d, L"btnMain"); }});
  EXPECT_EQ(dialog.DoModal(), 2);  // the main click keeps the result
  EXPECT_TRUE(openAfterRetry);
  EXPECT_EQ(dialog.clicks, std::vector<std::wstring>{L"btnRetry"});
  EXPECT_EQ(dialog.mainClicks, 1);
}

TEST_F(CHTMDialogTest, TheEngineLetsThePageGoWithItsWindow) {
  HWND window = nullptr;
  CHTMElement kept;
  ScriptedDialog dialog(L"HTM_DLG_TEST", {[&](ScriptedDialog& d) {
                                            window = d.GetHwnd();
                                            kept = d.ElementById(L"greeting");
                                          },
                                          [&](ScriptedDialog& d) { click(d, L"btnOk"); }});
  EXPECT_EQ(dialog.DoModal(), 1);
  HELEMENT root = nullptr;
  EXPECT_EQ(engine_.GetRootElement(window, &root), HLDOM_INVALID_HWND);
  // An element still held stays usable, outside any page.
  EXPECT_TRUE(kept.IsValid());
  EXPECT_EQ(kept.GetText(), L"Hello from KVT");
  EXPECT_EQ(kept.Window(), nullptr);
}

TEST_F(CHTMDialogTest, AMonitorThatSaysNoConsumesTheClick) {
  bool openAfterOk = false;
  ScriptedDialog dialog(L"HTM_DLG_TEST", {[&](ScriptedDialog& d) {
                                            d.consumeClicks = true;
                                            click(d, L"btnOk");
                                          },
                                          [&](ScriptedDialog& d) {
                                            openAfterOk = platform::isWindow(d.GetHwnd());
                                            d.consumeClicks = false;
                                            click(d, L"btnCancel");
                                          }});
  EXPECT_EQ(dialog.DoModal(), 2);
  EXPECT_TRUE(openAfterOk);
  EXPECT_EQ(dialog.monitored, (std::vector<std::wstring>{L"OK", L"CANCEL"}));
}

TEST_F(CHTMDialogTest, APageWithTheNoMonitorMarkerNeverAsksTheHookAndIsKeptOnScreen) {
  platform::WindowRect rect;
  ScriptedDialog dialog(L"HTM_DLG_QUIET", {[&](ScriptedDialog& d) { rect = platform::windowRect(d.GetHwnd()); },
                                           [&](ScriptedDialog& d) { click(d, L"btnOk"); }});
  EXPECT_EQ(dialog.DoModal(), 1);
  EXPECT_TRUE(dialog.monitored.empty());
  EXPECT_EQ(dialog.Style(), 0x80CC0000u);  // resizeable wins over splash
  EXPECT_EQ(dialog.ExStyle(), 8u);         // but the splash stays on top
  const platform::WindowRect monitor = platform::monitorWorkRect(rect);
  EXPECT_GE(rect.left, monitor.left);
  EXPECT_LE(rect.bottom, monitor.bottom);
}

// A dialog whose window may grow to 500 by 400 pixels at most.
class LimitedDialog : public ScriptedDialog {
 public:
  LimitedDialog(const wchar_t* page, std::vector<Step> steps) : ScriptedDialog(page, std::move(steps)) {
    m_maxTrackWidth = 500;
    m_maxTrackHeight = 400;
  }
};

TEST_F(CHTMDialogTest, ABodyMadeResizeableGetsASizingFrameAndIsSizedWithinItsLimits) {
  struct Case {
    const wchar_t* page;
    std::uint32_t style;
    platform::WindowRect small;  // after sizing to 40 by 30
    platform::WindowRect large;  // after sizing to 2000 by 1500
  };
  const Case cases[] = {
      {L"HTM_DLG_RESIZEABLE", 0x80CC0000u, {10, 20, 110, 120}, {10, 20, 510, 420}},
      // Without a sizing frame the window takes any size.
      {L"HTM_DLG_TEST", 0x80C80000u, {10, 20, 50, 50}, {10, 20, 2010, 1520}},
  };
  for (const Case& c : cases) {
    std::uint32_t style = 0;
    platform::WindowRect small;
    platform::WindowRect large;
    LimitedDialog dialog(c.page, {[&](ScriptedDialog& d) {
                                    style = platform::windowStyle(d.GetHwnd());
                                    platform::moveWindow(d.GetHwnd(), 10, 20, 40, 30);
                                    small = platform::windowRect(d.GetHwnd());
                                    platform::moveWindow(d.GetHwnd(), 10, 20, 2000, 1500);
                                    large = platform::windowRect(d.GetHwnd());
                                  },
                                  [&](ScriptedDialog& d) { click(d, L"btnOk"); }});
    EXPECT_EQ(dialog.DoModal(), 1);
    EXPECT_EQ(dialog.Style(), c.style);
    // The window's own style bits: popup, caption, system menu and sizing frame.
    EXPECT_EQ(style & 0x80CC0000u, c.style);
    EXPECT_EQ(std::vector<int>({small.left, small.top, small.right, small.bottom}),
              std::vector<int>({c.small.left, c.small.top, c.small.right, c.small.bottom}));
    EXPECT_EQ(std::vector<int>({large.left, large.top, large.right, large.bottom}),
              std::vector<int>({c.large.left, c.large.top, c.large.right, c.large.bottom}));
  }
}

TEST_F(CHTMDialogTest, HyperlinksOpenWithTheShell) {
  headless() = {};
  ScriptedDialog dialog(L"HTM_DLG_TEST", {[&](ScriptedDialog& d) { click(d, L"link"); },
                                          [&](ScriptedDialog& d) { click(d, L"btnCancel"); }});
  EXPECT_EQ(dialog.DoModal(), 2);
  EXPECT_EQ(headless().shellOpened, std::vector<std::wstring>{L"https://www.halvorn.aero/support/kvt"});
}

TEST_F(CHTMDialogTest, TheWaitBoxIsInsertedAndTakenOutAgain) {
  bool shown = false;
  bool hidden = true;
  ScriptedDialog dialog(L"HTM_DLG_TEST", {[&](ScriptedDialog& d) {
                                            d.ShowWaitBox(true);
                                            shown = d.ElementById(L"ID#WaitBOX").IsValid();
                                            d.ShowWaitBox(false);
                                            hidden = !d.ElementById(L"ID#WaitBOX").IsValid();
                                            d.ShowShim(true, 10, -1);
                                          },
                                          [&](ScriptedDialog& d) {
                                            const CHTMElement shim = d.Body().Child(0);
                                            EXPECT_EQ(shim.GetAttribute("class"), L"ShimColor");
                                            EXPECT_EQ(shim.GetStyle("margin-top"), L"10");
                                            EXPECT_EQ(shim.GetStyle("margin-left"), L"");
                                            click(d, L"btnOk");
                                          }});
  EXPECT_EQ(dialog.DoModal(), 1);
  EXPECT_TRUE(shown);
  EXPECT_TRUE(hidden);
}

TEST_F(CHTMDialogTest, AMissingPageOrEngineMakesNoWindow) {
  ScriptedDialog missing(L"HTM_DLG_ABSENT", {});
  EXPECT_FALSE(missing.Create());
  EXPECT_EQ(missing.DoModal(), -1);
  EXPECT_EQ(missing.GetHwnd(), nullptr);

  SetHtmlEngine(nullptr);
  ScriptedDialog noEngine(L"HTM_DLG_TEST", {});
  EXPECT_EQ(noEngine.DoModal(), -1);
}

#ifndef _WIN32
// The whole path down to a picture: the page laid out and drawn by litehtml.
TEST_F(CHTMDialogTest, TheOpenDialogRendersToAPictureThatIsNotBlank) {
  engine_.setLayoutProvider(std::make_unique<html::LitehtmlLayout>());
  const std::string path = ::testing::TempDir() + "kvt1_dialog_test.png";
  std::remove(path.c_str());
  bool rendered = false;
  ScriptedDialog dialog(L"HTM_DLG_TEST", {[&](ScriptedDialog& d) { rendered = engine_.renderPng(d.GetHwnd(), path); },
                                          [&](ScriptedDialog& d) { click(d, L"btnOk"); }});
  EXPECT_EQ(dialog.DoModal(), 1);
  ASSERT_TRUE(rendered);
  cairo_surface_t* picture = cairo_image_surface_create_from_png(path.c_str());
  ASSERT_EQ(cairo_surface_status(picture), CAIRO_STATUS_SUCCESS);
  const int width = cairo_image_surface_get_width(picture);
  const int height = cairo_image_surface_get_height(picture);
  EXPECT_GE(width, 300);
  EXPECT_GE(height, 100);
  cairo_surface_flush(picture);
  const unsigned char* pixels = cairo_image_surface_get_data(picture);
  const int stride = cairo_image_surface_get_stride(picture);
  std::set<std::uint32_t> colours;
  for (int y = 0; y < height; y += 2) {
    for (int x = 0; x < width; x += 2) {
      colours.insert(*reinterpret_cast<const std::uint32_t*>(pixels + y * stride + x * 4));
    }
  }
  cairo_surface_destroy(picture);
  EXPECT_GT(colours.size(), 10u);  // background, text and button borders at least
}
#endif

}  // namespace
}  // namespace kvt1::testing
