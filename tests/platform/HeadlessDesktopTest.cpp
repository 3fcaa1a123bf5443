#include "platform/posix/HeadlessDesktop.h"

#include <gtest/gtest.h>

#include <deque>
#include <vector>

namespace kvt1::platform {
namespace {

constexpr std::uint32_t kPopup = 0x80000000;
constexpr std::uint32_t kChild = 0x40000000;
constexpr std::uint32_t kTopmostEx = 0x8;

// Records messages; on WM_CLOSE destroys its window unless told to ignore it.
class Dialog final : public DialogWindowProcedure {
 public:
  std::intptr_t onMessage(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam,
                          bool& handled) override {
    seen.push_back(message);
    params.push_back(lParam);
    if (message == WM_TIMER) tickIds.push_back(wParam);
    if (message == WM_INITDIALOG) setWindowText(window, L"made in WM_INITDIALOG");
    if (message == WM_CLOSE && !ignoreClose) destroyWindow(window);
    handled = true;
    return 0;
  }

  int count(unsigned message) const {
    int n = 0;
    for (unsigned m : seen) n += m == message ? 1 : 0;
    return n;
  }

  bool ignoreClose = false;
  std::vector<unsigned> seen;
  std::vector<std::intptr_t> params;
  std::vector<std::uintptr_t> tickIds;
};

// Procedures belong to the fixture, so that they outlive the windows that TearDown destroys.
class HeadlessDesktopTest : public ::testing::Test {
 protected:
  HeadlessDesktop& desktop = HeadlessDesktop::instance();
  Dialog& newDialog() { return dialogs_.emplace_back(); }

  void TearDown() override {
    desktop.setIdleHandler(nullptr);
    desktop.setWindowCreatedHandler(nullptr);
    desktop.pumpPendingMessages();
    for (HWND window : desktop.windows()) desktop.destroy(window);
  }

  std::deque<Dialog> dialogs_;
};

TEST_F(HeadlessDesktopTest, UnansweredModalDialogIsClosedLikeByItsCloseBox) {
  Dialog& outerProcedure = newDialog();
  Dialog& innerProcedure = newDialog();
  HWND outer = createDialogWindow(nullptr, kPopup, 0, &outerProcedure);
  HWND inner = createDialogWindow(outer, kPopup, 0, &innerProcedure);
  HWND child = createDialogWindow(inner, kChild, 0, &innerProcedure);
  enableWindow(outer, false);

  while (isWindow(inner)) ASSERT_TRUE(pumpMessage());

  EXPECT_EQ(innerProcedure.count(WM_CLOSE), 1);  // the child window was never asked
  EXPECT_FALSE(isWindow(child));
  EXPECT_TRUE(isWindow(outer));  // disabled, so not the one answered
  EXPECT_EQ(outerProcedure.count(WM_CLOSE), 0);
}

TEST_F(HeadlessDesktopTest, DialogThatIgnoresCloseIsDestroyedAtTheNextWait) {
  Dialog& stubborn = newDialog();
  stubborn.ignoreClose = true;
  HWND dialog = createDialogWindow(nullptr, kPopup, 0, &stubborn);
  int idles = 0;
  desktop.setIdleHandler([&] {
    ++idles;
    desktop.setCursor(WindowPoint{1, 1});  // neither a message nor a window: nothing happened
  });
  for (int waits = 0; isWindow(dialog) && waits < 10; ++waits) pumpMessage();
  EXPECT_FALSE(isWindow(dialog));
  EXPECT_EQ(idles, 2);
  EXPECT_EQ(stubborn.count(WM_CLOSE), 1);
  EXPECT_EQ(stubborn.count(WM_NCDESTROY), 1);
  EXPECT_FALSE(pumpMessage());  // no window is left to get a message
}

TEST_F(HeadlessDesktopTest, IdleScriptAnswersTheDialogInsteadOfTheFallback) {
  Dialog& host = newDialog();
  Dialog& procedure = newDialog();
  HWND owner = createDialogWindow(nullptr, kPopup, 0, &host);
  HWND dialog = createDialogWindow(owner, kPopup, 0, &procedure);
  moveWindow(dialog, 100, 50, 300, 200);
  int idles = 0;
  desktop.setIdleHandler([&] {
    if (++idles == 1) {
      desktop.click(dialog, WindowPoint{30, 40});
    } else {
      destroyWindow(dialog);  // acts without posting anything
    }
  });

  while (isWindow(dialog)) ASSERT_TRUE(pumpMessage());

  EXPECT_EQ(idles, 2);
  EXPECT_EQ(procedure.count(WM_CLOSE), 0);
  EXPECT_TRUE(isWindow(owner));
  std::vector<unsigned> mouse;
  for (std::size_t i = 0; i < procedure.seen.size(); ++i) {
    if (procedure.seen[i] >= WM_MOUSEMOVE && procedure.seen[i] <= WM_LBUTTONUP) {
      mouse.push_back(procedure.seen[i]);
      EXPECT_EQ(procedure.params[i], (40 << 16) | 30);
    }
  }
  EXPECT_EQ(mouse, (std::vector<unsigned>{WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP}));
  EXPECT_EQ(cursorPos().x, 130);
  EXPECT_EQ(cursorPos().y, 90);
}

TEST_F(HeadlessDesktopTest, QuitEndsTheLoopAndStopsThePendingPump) {
  Dialog& procedure = newDialog();
  HWND dialog = createDialogWindow(nullptr, kPopup, 0, &procedure);
  postMessage(nullptr, WM_QUIT, 0, 0);
  postMessage(dialog, WM_USER, 0, 0);
  pumpPendingMessages();
  EXPECT_EQ(procedure.count(WM_USER), 0);
  EXPECT_FALSE(pumpMessage());
  EXPECT_TRUE(pumpMessage());
  EXPECT_EQ(procedure.count(WM_USER), 1);
}

TEST_F(HeadlessDesktopTest, TimersFireInDueOrderAndCoalesceLikeWindows) {
  Dialog& procedure = newDialog();
  HWND dialog = createDialogWindow(nullptr, kPopup, 0, &procedure);
  const auto ticksAfter = [&](std::uint64_t milliseconds) {
    procedure.tickIds.clear();
    desktop.advance(milliseconds);
    pumpPendingMessages();
    return procedure.tickIds;
  };
  setTimer(dialog, 1, 30);
  setTimer(dialog, 2, 20);
  EXPECT_EQ(ticksAfter(19), std::vector<std::uintptr_t>{});
  EXPECT_EQ(ticksAfter(11), (std::vector<std::uintptr_t>{2, 1}));
  // A long wait without pumping leaves one tick per timer.
  EXPECT_EQ(ticksAfter(1000), (std::vector<std::uintptr_t>{2, 1}));

  setTimer(dialog, 1, 100);  // the same id starts again from now
  killTimer(dialog, 2);
  EXPECT_EQ(ticksAfter(99), std::vector<std::uintptr_t>{});
  EXPECT_EQ(ticksAfter(1), (std::vector<std::uintptr_t>{1}));

  desktop.advance(100);  // queues a tick, which goes with its window
  destroyWindow(dialog);
  EXPECT_FALSE(pumpMessage());
}

TEST_F(HeadlessDesktopTest, CreationHookSeesTheInitialisedWindow) {
  EXPECT_EQ(&HeadlessDesktop::instance(), &HeadlessDesktop::local());  // no program exports its own
  std::vector<std::wstring> titles;
  desktop.setWindowCreatedHandler([&](HWND window) { titles.push_back(windowText(window)); });
  createDialogWindow(nullptr, kPopup, 0, &newDialog());
  EXPECT_EQ(titles, (std::vector<std::wstring>{L"made in WM_INITDIALOG"}));
}

TEST_F(HeadlessDesktopTest, TopmostWindowsAreFoundFirstUnderThePoint) {
  Dialog& procedure = newDialog();
  HWND splash = createDialogWindow(nullptr, kPopup, kTopmostEx, &procedure);
  HWND later = createDialogWindow(nullptr, kPopup, 0, &procedure);
  HWND child = createDialogWindow(later, kChild, 0, &procedure);
  moveWindow(splash, 0, 0, 100, 100);
  moveWindow(later, 50, 50, 100, 100);
  moveWindow(child, 60, 60, 20, 20);  // 110..130 on the screen
  for (HWND window : {splash, later, child}) showWindow(window, true);
  EXPECT_EQ(windowFromPoint(WindowPoint{70, 70}), splash);
  EXPECT_EQ(windowFromPoint(WindowPoint{105, 105}), later);
  EXPECT_EQ(windowFromPoint(WindowPoint{115, 115}), child);
  showWindow(later, false);  // hides its child too
  EXPECT_FALSE(isWindowVisible(child));
  EXPECT_EQ(windowFromPoint(WindowPoint{115, 115}), nullptr);
}

}  // namespace
}  // namespace kvt1::platform
