#include "platform/DialogWindow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <vector>

#ifndef _WIN32
#include "platform/posix/HeadlessDesktop.h"
#endif

namespace kvt1::platform {
namespace {

constexpr std::uint32_t kPopup = 0x80000000;
constexpr std::uint32_t kPopupCaptionSysMenu = 0x80C80000;
constexpr std::uint32_t kChild = 0x40000000;
constexpr std::uint32_t kDialogFrameEx = 0x101;
constexpr std::uint32_t kTopmostEx = 0x8;
constexpr unsigned kAsk = WM_USER + 1;

struct Seen {
  unsigned message;
  std::uintptr_t wParam;
  std::intptr_t lParam;
};

// Records every message; destroys its window on WM_CLOSE and answers kAsk with 42.
class Recorder final : public DialogWindowProcedure {
 public:
  std::intptr_t onMessage(HWND window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam,
                          bool& handled) override {
    seen.push_back(Seen{message, wParam, lParam});
    if (message == WM_CLOSE) {
      handled = true;
      destroyWindow(window);
    } else if (message == kAsk) {
      handled = true;
      return 42;
    }
    return 0;
  }

  int count(unsigned message) const {
    return static_cast<int>(
        std::count_if(seen.begin(), seen.end(), [&](const Seen& s) { return s.message == message; }));
  }
  const Seen* last(unsigned message) const {
    const auto found = std::find_if(seen.rbegin(), seen.rend(), [&](const Seen& s) { return s.message == message; });
    return found != seen.rend() ? &*found : nullptr;
  }

  std::vector<Seen> seen;
};

// Procedures belong to the fixture, so that they outlive the windows that TearDown destroys.
class DialogWindowTest : public ::testing::Test {
 protected:
  Recorder& newRecorder() { return recorders_.emplace_back(); }

  HWND make(Recorder& recorder, std::uint32_t style = kPopup, HWND owner = nullptr, std::uint32_t exStyle = 0) {
    HWND window = createDialogWindow(owner, style, exStyle, &recorder);
    if (window != nullptr) made_.push_back(window);
    return window;
  }

  void TearDown() override {
    for (auto it = made_.rbegin(); it != made_.rend(); ++it) {
      if (isWindow(*it)) destroyWindow(*it);
    }
    pumpPendingMessages();
  }

  std::deque<Recorder> recorders_;
  std::vector<HWND> made_;
};

TEST_F(DialogWindowTest, CreationDeliversInitDialogAndKeepsStylesAndOwner) {
  Recorder& ownerProcedure = newRecorder();
  Recorder& recorder = newRecorder();
  HWND owner = make(ownerProcedure);
  HWND dialog = make(recorder, kPopupCaptionSysMenu, owner, kDialogFrameEx | kTopmostEx);
  ASSERT_TRUE(isWindow(dialog));
  ASSERT_EQ(recorder.count(WM_INITDIALOG), 1);
  EXPECT_EQ(recorder.last(WM_INITDIALOG)->lParam, reinterpret_cast<std::intptr_t>(&recorder));
  EXPECT_EQ(windowStyle(dialog) & kPopupCaptionSysMenu, kPopupCaptionSysMenu);
  EXPECT_EQ(windowExStyle(dialog) & (kDialogFrameEx | kTopmostEx), kDialogFrameEx | kTopmostEx);
  EXPECT_FALSE(isWindowVisible(dialog));
  EXPECT_EQ(ownerWindow(dialog), owner);
  EXPECT_EQ(parentWindow(dialog), owner);
  EXPECT_FALSE(isChildWindow(owner, dialog));
}

TEST_F(DialogWindowTest, ChildWindowLivesInItsParentsCoordinatesAndGoesWithIt) {
  Recorder& parentProcedure = newRecorder();
  Recorder& childProcedure = newRecorder();
  HWND parent = make(parentProcedure);
  HWND child = make(childProcedure, kChild, parent);
  ASSERT_NE(child, nullptr);
  EXPECT_EQ(parentWindow(child), parent);
  EXPECT_EQ(ownerWindow(child), nullptr);
  EXPECT_TRUE(isChildWindow(parent, child));

  ASSERT_TRUE(moveWindow(parent, 200, 100, 300, 200));
  ASSERT_TRUE(moveWindow(child, 10, 20, 50, 40));
  const WindowRect rect = windowRect(child);
  EXPECT_EQ(std::vector<int>({rect.left, rect.top, rect.right, rect.bottom}), std::vector<int>({210, 120, 260, 160}));
  const WindowPoint inside = screenToClient(child, WindowPoint{215, 130});
  EXPECT_EQ(inside.x, 5);
  EXPECT_EQ(inside.y, 10);

  ASSERT_TRUE(destroyWindow(parent));
  EXPECT_FALSE(isWindow(child));
  EXPECT_EQ(childProcedure.count(WM_NCDESTROY), 1);
}

TEST_F(DialogWindowTest, ModalLoopEndsWhenTheProcedureDestroysTheWindowOnClose) {
  Recorder& ownerProcedure = newRecorder();
  Recorder& recorder = newRecorder();
  HWND owner = make(ownerProcedure);
  HWND dialog = make(recorder, kPopupCaptionSysMenu, owner);
  ASSERT_TRUE(enableWindow(owner, false));
  EXPECT_FALSE(isWindowEnabled(owner));
  EXPECT_TRUE(isWindowEnabled(dialog));
  ASSERT_TRUE(postMessage(dialog, WM_CLOSE, 0, 0));
  EXPECT_EQ(recorder.count(WM_CLOSE), 0);  // posted, not sent

  while (isWindow(dialog)) ASSERT_TRUE(pumpMessage());

  EXPECT_EQ(recorder.count(WM_CLOSE), 1);
  EXPECT_EQ(recorder.count(WM_DESTROY), 1);
  EXPECT_EQ(recorder.seen.back().message, static_cast<unsigned>(WM_NCDESTROY));
  EXPECT_FALSE(postMessage(dialog, WM_CLOSE, 0, 0));
  ASSERT_TRUE(enableWindow(owner, true));
  EXPECT_TRUE(isWindowEnabled(owner));
  ASSERT_TRUE(showWindow(owner, true));
  EXPECT_TRUE(setForegroundWindow(owner));
  EXPECT_EQ(foregroundWindow(), owner);
}

TEST_F(DialogWindowTest, PostedMessagesWaitInOrderAndSentOnesAnswerAtOnce) {
  Recorder& recorder = newRecorder();
  HWND dialog = make(recorder);
  ASSERT_TRUE(postMessage(dialog, kAsk, 1, 0));
  ASSERT_TRUE(postMessage(dialog, kAsk, 2, 0));
  EXPECT_EQ(sendMessage(dialog, kAsk, 3, 4), 42);
  EXPECT_EQ(sendMessage(dialog, kAsk + 1, 0, 0), 0);  // not handled
  pumpPendingMessages();
  std::vector<std::uintptr_t> order;
  for (const Seen& s : recorder.seen) {
    if (s.message == kAsk) order.push_back(s.wParam);
  }
  EXPECT_EQ(order, (std::vector<std::uintptr_t>{3, 1, 2}));
}

TEST_F(DialogWindowTest, TimerTicksCarryTheirIdUntilKilled) {
  Recorder& recorder = newRecorder();
  HWND dialog = make(recorder);
  const std::uintptr_t id = 0xFFFFFFFF;
  ASSERT_TRUE(setTimer(dialog, id, 20));
#ifdef _WIN32
  const ULONGLONG deadline = GetTickCount64() + 3000;
  while (recorder.count(WM_TIMER) == 0 && GetTickCount64() < deadline) {
    pumpPendingMessages();
    Sleep(5);
  }
#else
  HeadlessDesktop::instance().advance(20);
  pumpPendingMessages();
#endif
  ASSERT_GE(recorder.count(WM_TIMER), 1);
  EXPECT_EQ(recorder.last(WM_TIMER)->wParam, id);
  EXPECT_TRUE(killTimer(dialog, id));
  EXPECT_FALSE(killTimer(dialog, id));
}

TEST_F(DialogWindowTest, TextUserDataAndPropertiesStayWithTheWindow) {
  Recorder& recorder = newRecorder();
  HWND dialog = make(recorder);
  const std::wstring title = L"Hindernisfl\u00e4chen \u2013 \u00dcbersicht";
  ASSERT_TRUE(setWindowText(dialog, title));
  EXPECT_EQ(windowText(dialog), title);
  setWindowUserData(dialog, 1234);
  EXPECT_EQ(windowUserData(dialog), 1234);

  ASSERT_TRUE(setWindowProp(dialog, L"FPHTMDialog", 1));
  ASSERT_TRUE(setWindowProp(dialog, L"Other", 2));
  removeWindowProp(dialog, L"Other");
  EXPECT_EQ(windowProp(dialog, L"FPHTMDialog"), 1);
  EXPECT_EQ(windowProp(dialog, L"Other"), 0);
}

TEST_F(DialogWindowTest, MovedWindowReportsItsSizeAndIsFoundUnderThePointerOnceShown) {
  Recorder& recorder = newRecorder();
  HWND dialog = make(recorder);
  ASSERT_TRUE(moveWindow(dialog, 300, 200, 200, 100));
  const WindowRect rect = windowRect(dialog);
  EXPECT_EQ(std::vector<int>({rect.left, rect.top, rect.right, rect.bottom}), std::vector<int>({300, 200, 500, 300}));
  ASSERT_NE(recorder.last(WM_SIZE), nullptr);
  EXPECT_EQ(recorder.last(WM_SIZE)->lParam, (100 << 16) | 200);

  EXPECT_NE(windowFromPoint(WindowPoint{350, 250}), dialog);  // hidden
  ASSERT_TRUE(showWindow(dialog, true));
  EXPECT_EQ(windowFromPoint(WindowPoint{350, 250}), dialog);
  EXPECT_NE(windowFromPoint(WindowPoint{500, 250}), dialog);  // the right edge is outside
}

TEST_F(DialogWindowTest, RectanglesAreKeptOnTheMonitor) {
  const WindowRect offScreen{-5000, -5000, -4800, -4850};
  const WindowRect work = monitorWorkRect(offScreen);
  ASSERT_GT(work.width(), 300);
  const WindowRect kept = keptOnMonitor(offScreen);
  EXPECT_EQ(std::vector<int>({kept.left, kept.top, kept.width(), kept.height()}),
            std::vector<int>({work.left, work.top, 200, 150}));

  const WindowRect area{0, 0, 1000, 750};
  const WindowRect pastCorner = movedInside(WindowRect{950, 700, 1050, 800}, area);
  EXPECT_EQ(std::vector<int>({pastCorner.left, pastCorner.top, pastCorner.right}), std::vector<int>({900, 650, 1000}));
  // Larger than the area: the left edge stays visible.
  const WindowRect tooWide = movedInside(WindowRect{-50, 10, 1150, 60}, area);
  EXPECT_EQ(std::vector<int>({tooWide.left, tooWide.top, tooWide.width()}), std::vector<int>({0, 10, 1200}));
}

TEST_F(DialogWindowTest, FocusMovesBetweenDialogsWithNotifications) {
  Recorder& first = newRecorder();
  Recorder& second = newRecorder();
  HWND a = make(first);
  HWND b = make(second);
  ASSERT_TRUE(showWindow(a, true));
  ASSERT_TRUE(showWindow(b, true));
  setFocusWindow(a);
  EXPECT_EQ(focusWindow(), a);
  EXPECT_EQ(setFocusWindow(b), a);
  EXPECT_EQ(focusWindow(), b);
  ASSERT_NE(first.last(WM_KILLFOCUS), nullptr);
  EXPECT_EQ(first.last(WM_KILLFOCUS)->wParam, reinterpret_cast<std::uintptr_t>(b));
  ASSERT_NE(second.last(WM_SETFOCUS), nullptr);
  EXPECT_EQ(second.last(WM_SETFOCUS)->wParam, reinterpret_cast<std::uintptr_t>(a));
}

}  // namespace
}  // namespace kvt1::platform
