// What the engine's window procedure does with a user's pointer and with the
// automation messages: hit tests through the layout provider, clicks made of
// a press and a release on one element, hover, element lookup and the clock.
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "htmlui/engine/AutomationMessages.h"
#include "htmlui/engine/HtmlayoutEventHandler.h"
#include "platform/Win32.h"
#include "tests/htmlui/engine/EngineTestSupport.h"

namespace kvt1::html {
namespace {

using namespace test;

// The ids of the elements that took a click, as the bubbling phase reports
// them, and of those whose timers ticked.
class ClickLog : public htmlayout::event_handler {
 public:
  explicit ClickLog(DomEngine& engine) : event_handler(HANDLE_ALL), engine_(engine) {}
  BOOL on_event(HELEMENT, HELEMENT target, BEHAVIOR_EVENTS type, UINT_PTR) override {
    if (type == BUTTON_CLICK) clicks.push_back(attribute(engine_, target, "id"));
    return FALSE;
  }
  BOOL on_timer(HELEMENT he, UINT_PTR) override {
    ticks.push_back(attribute(engine_, he, "id"));
    return TRUE;
  }
  // Keys and presses as the bubbling phase sees them: "target:cmd:code".
  BOOL on_key(HELEMENT, HELEMENT target, UINT type, UINT code, UINT) override {
    if ((type & SINKING) == 0)
      keys.push_back(attribute(engine_, target, "id") + ":" + std::to_string(type) + ":" + std::to_string(code));
    return FALSE;
  }
  BOOL on_mouse(HELEMENT, HELEMENT target, UINT type, POINT pos, UINT, UINT) override {
    if ((type & SINKING) != 0 || (type != MOUSE_DOWN && type != MOUSE_UP)) return FALSE;
    presses.push_back(attribute(engine_, target, "id") + ":" + std::to_string(type) + "@" + std::to_string(pos.x) +
                      "," + std::to_string(pos.y));
    return type == MOUSE_DOWN && attribute(engine_, target, "id") == "label" && keepFocus;
  }
  std::vector<std::string> clicks;
  std::vector<std::string> ticks;
  std::vector<std::string> keys;
  std::vector<std::string> presses;
  bool keepFocus = false;

 private:
  DomEngine& engine_;
};

class InputTest : public ::testing::Test {
 protected:
  void SetUp() override {
    auto layout = std::make_unique<BoxLayout>();
    boxes_ = &layout->boxes;
    engine.setLayoutProvider(std::move(layout));
    ASSERT_TRUE(load(engine, window(),
                     "<body #body><button #ok name=OK><span #label>OK</span></button>"
                     "<button #off disabled>Off</button><button #gone style='display:none'>Gone</button>"
                     "<p #text>text</p></body>"));
    root = rootOf(engine, window());
    place("body", {0, 0, 300, 200});
    place("ok", {10, 10, 80, 24});
    place("label", {20, 14, 40, 16});
    place("off", {100, 10, 80, 24});
    place("text", {10, 60, 200, 20});
    engine.AttachEventHandlerEx(root, &htmlayout::event_handler::element_proc, &log, HANDLE_ALL);
  }
  void TearDown() override { engine.DetachEventHandler(root, &htmlayout::event_handler::element_proc, &log); }

  HELEMENT byId(const std::string& id) { return selectFirst(engine, root, ("#" + id).c_str()); }
  void place(const std::string& id, LayoutBox box) {
    (*boxes_)[static_cast<int>(reinterpret_cast<std::uintptr_t>(byId(id)))] = box;
  }
  LRESULT send(UINT msg, WPARAM wParam, LPARAM lParam, BOOL* handled = nullptr) {
    return engine.ProcND(window(), msg, wParam, lParam, handled);
  }
  void clickAt(int x, int y) {
    send(WM_LBUTTONDOWN, 1, at(x, y));
    send(WM_LBUTTONUP, 0, at(x, y));
  }
  UINT stateOf(const std::string& id) {
    UINT state = 0;
    engine.GetElementState(byId(id), &state);
    return state;
  }

  DomEngine engine;
  HELEMENT root = nullptr;
  ClickLog log{engine};

 private:
  std::map<int, LayoutBox>* boxes_ = nullptr;
};

TEST_F(InputTest, AClickInsideAButtonReachesItOutsideNothingDoes) {
  BOOL handled = FALSE;
  send(WM_LBUTTONDOWN, 1, at(15, 12), &handled);
  EXPECT_TRUE(handled);
  EXPECT_NE(stateOf("ok") & STATE_PRESSED, 0u);
  send(WM_LBUTTONUP, 0, at(15, 12));
  EXPECT_EQ(stateOf("ok") & STATE_PRESSED, 0u);
  // The button's content takes the button's click.
  clickAt(25, 18);
  EXPECT_EQ(log.clicks, (std::vector<std::string>{"ok", "ok"}));

  clickAt(50, 65);    // a paragraph is not clickable
  clickAt(250, 150);  // the body around it
  clickAt(500, 500);  // outside the page
  EXPECT_EQ(log.clicks.size(), 2u);
}

TEST_F(InputTest, AClickIsAPressAndAReleaseOnOneElement) {
  send(WM_LBUTTONDOWN, 1, at(15, 12));
  send(WM_LBUTTONUP, 0, at(50, 65));
  EXPECT_EQ(stateOf("ok") & STATE_PRESSED, 0u);  // released where it was pressed
  send(WM_LBUTTONUP, 0, at(15, 12));             // a release without a press
  EXPECT_TRUE(log.clicks.empty());
}

TEST_F(InputTest, ADisabledButtonTakesNoClick) {
  clickAt(110, 20);
  EXPECT_TRUE(log.clicks.empty());
  engine.SetElementState(byId("off"), 0, STATE_DISABLED, FALSE);
  clickAt(110, 20);
  EXPECT_EQ(log.clicks, std::vector<std::string>{"off"});
}

TEST_F(InputTest, PressesReachTheElementUnderThePointerAndMoveTheFocus) {
  clickAt(25, 18);
  EXPECT_EQ(log.presses, (std::vector<std::string>{"label:4@5,4", "label:3@5,4"}));
  EXPECT_NE(stateOf("ok") & STATE_FOCUS, 0u);  // the button that holds the label

  // A press on something that takes no focus leaves it where it was.
  clickAt(50, 65);
  EXPECT_NE(stateOf("ok") & STATE_FOCUS, 0u);

  // Nor does a press that a handler took, or one on a disabled element.
  engine.setFocus(window(), nullptr);
  log.keepFocus = true;
  clickAt(25, 18);
  EXPECT_EQ(stateOf("ok") & STATE_FOCUS, 0u);
  clickAt(110, 20);
  EXPECT_EQ(stateOf("off") & STATE_FOCUS, 0u);
}

TEST_F(InputTest, KeysGoToTheFocusedElementOrElseToTheRoot) {
  BOOL handled = FALSE;
  send(WM_KEYDOWN, VK_LEFT, 0, &handled);
  EXPECT_TRUE(handled);
  engine.setFocus(window(), byId("ok"));
  send(WM_CHAR, 'x', 0);
  send(WM_KEYUP, VK_LEFT, 0);
  EXPECT_EQ(log.keys, (std::vector<std::string>{"(none):0:37", "ok:2:120", "ok:1:37"}));
  // Nobody here handles keys; a window without a page takes none.
  EXPECT_FALSE(engine.key(window(), KEY_DOWN, VK_RETURN, 0));
  EXPECT_FALSE(engine.key(window(2), KEY_DOWN, VK_RETURN, 0));
}

TEST_F(InputTest, TabMovesTheFocusThroughWhatTakesItAndShiftTabBack) {
  // #off is disabled and #gone not displayed: only #ok takes the focus at first.
  EXPECT_FALSE(engine.key(window(), KEY_DOWN, VK_TAB, 0));
  EXPECT_NE(stateOf("ok") & STATE_FOCUS, 0u);
  engine.SetElementState(byId("off"), 0, STATE_DISABLED, FALSE);
  engine.SetAttributeByName(byId("text"), "tabindex", L"0");
  engine.key(window(), KEY_DOWN, VK_TAB, 0);
  EXPECT_NE(stateOf("off") & STATE_FOCUS, 0u);
  engine.key(window(), KEY_DOWN, VK_TAB, 0);
  EXPECT_NE(stateOf("text") & STATE_FOCUS, 0u);
  engine.key(window(), KEY_DOWN, VK_TAB, 0);  // round to the first
  EXPECT_NE(stateOf("ok") & STATE_FOCUS, 0u);
  engine.key(window(), KEY_DOWN, VK_TAB, SHIFT_KEY_PRESSED);
  EXPECT_NE(stateOf("text") & STATE_FOCUS, 0u);
}

TEST_F(InputTest, ThePointerHoversWhatItIsOver) {
  send(WM_MOUSEMOVE, 0, at(15, 12));
  EXPECT_NE(stateOf("ok") & STATE_HOVER, 0u);
  EXPECT_NE(stateOf("body") & STATE_HOVER, 0u);  // and what holds it
  send(WM_MOUSEMOVE, 0, at(50, 65));
  EXPECT_EQ(stateOf("ok") & STATE_HOVER, 0u);
  EXPECT_NE(stateOf("text") & STATE_HOVER, 0u);
  send(WM_MOUSEMOVE, 0, at(900, 900));
  EXPECT_EQ(stateOf("body") & STATE_HOVER, 0u);
}

TEST_F(InputTest, AutomationLocatesElementsBySelector) {
  AutomationQuery query;
  query.selector = L"[name='OK']";
  BOOL handled = FALSE;
  ASSERT_EQ(send(kWmAutomationLocate, 0, reinterpret_cast<LPARAM>(&query), &handled), 1);
  EXPECT_TRUE(handled);
  EXPECT_EQ(query.rect.left, 10);
  EXPECT_EQ(query.rect.top, 10);
  EXPECT_EQ(query.rect.right, 90);
  EXPECT_EQ(query.rect.bottom, 34);
  EXPECT_TRUE(query.visible);

  // The element's text, cut to the buffer.
  wchar_t text[4] = {L'x', L'x', L'x', L'x'};
  query.text = text;
  query.textCapacity = 4;
  ASSERT_EQ(send(kWmAutomationLocate, 0, reinterpret_cast<LPARAM>(&query)), 1);
  EXPECT_STREQ(text, L"OK");
  query.textCapacity = 2;
  ASSERT_EQ(send(kWmAutomationLocate, 0, reinterpret_cast<LPARAM>(&query)), 1);
  EXPECT_STREQ(text, L"O");

  AutomationQuery hidden;
  hidden.selector = L"#gone";
  ASSERT_EQ(send(kWmAutomationLocate, 0, reinterpret_cast<LPARAM>(&hidden)), 1);
  EXPECT_FALSE(hidden.visible);

  AutomationQuery missing;
  missing.selector = L"#nothing";
  EXPECT_EQ(send(kWmAutomationLocate, 0, reinterpret_cast<LPARAM>(&missing)), 0);
  missing.selector = L"[[bad";
  EXPECT_EQ(send(kWmAutomationLocate, 0, reinterpret_cast<LPARAM>(&missing)), 0);
  EXPECT_EQ(send(kWmAutomationLocate, 0, 0), 0);
  EXPECT_EQ(engine.ProcND(window(2), kWmAutomationLocate, 0, reinterpret_cast<LPARAM>(&query), nullptr), 0);
}

TEST_F(InputTest, AutomationMovesTheClockAndRendersThroughTheProvider) {
  // Timers go to the handlers of their own element.
  ClickLog text(engine);
  engine.AttachEventHandlerEx(byId("text"), &htmlayout::event_handler::element_proc, &text, HANDLE_TIMER);
  engine.SetTimerEx(byId("text"), 100, 3);
  EXPECT_EQ(send(kWmAutomationAdvance, 99, 0), 1);
  EXPECT_TRUE(text.ticks.empty());
  send(kWmAutomationAdvance, 1, 0);
  EXPECT_EQ(text.ticks, std::vector<std::string>{"text"});
  engine.DetachEventHandler(byId("text"), &htmlayout::event_handler::element_proc, &text);
  // This provider draws nothing.
  EXPECT_EQ(send(kWmAutomationRender, 0, reinterpret_cast<LPARAM>(L"unused.png")), 0);
  EXPECT_EQ(send(kWmAutomationRender, 0, 0), 0);
}

TEST_F(InputTest, OtherMessagesAreLeftToTheWindow) {
  BOOL handled = TRUE;
  EXPECT_EQ(send(0x000F, 0, 0, &handled), 0);  // WM_PAINT
  EXPECT_FALSE(handled);
}

}  // namespace
}  // namespace kvt1::html
