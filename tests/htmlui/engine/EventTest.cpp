// Events: sinking then bubbling, HANDLED stopping the walk, subscriptions,
// posted events, behaviours, clicks, focus, hover, timers.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "htmlui/engine/HtmlayoutEventHandler.h"
#include "tests/htmlui/engine/EngineTestSupport.h"

namespace kvt1::html {
namespace {

using namespace test;

using Log = std::vector<std::string>;

// Writes "name:phase:code" for each behaviour event; handles the ones named in handleAt.
class Recorder : public htmlayout::event_handler {
 public:
  Recorder(Log& log, std::string name, UINT subscription = HANDLE_ALL)
      : event_handler(subscription), log_(log), name_(std::move(name)) {}

  BOOL on_event(HELEMENT he, HELEMENT target, BEHAVIOR_EVENTS type, UINT_PTR reason) override {
    const bool sinking = (type & SINKING) != 0;
    const std::string entry = name_ + (sinking ? ":sink:" : ":bubble:") + std::to_string(type & ~(SINKING | HANDLED));
    log_.push_back(entry);
    if (onEvent) onEvent();
    return entry == handleAt ? TRUE : FALSE;
  }
  BOOL on_focus(HELEMENT he, HELEMENT target, UINT type) override {
    if ((type & SINKING) == 0) log_.push_back(name_ + (type == FOCUS_GOT ? ":got" : ":lost"));
    return FALSE;
  }
  BOOL on_mouse(HELEMENT he, HELEMENT target, UINT type, POINT, UINT, UINT) override {
    if ((type & SINKING) == 0) log_.push_back(name_ + (type == MOUSE_ENTER ? ":enter" : ":leave"));
    return FALSE;
  }
  BOOL on_timer(HELEMENT he, UINT_PTR id) override {
    log_.push_back(name_ + ":timer" + std::to_string(id));
    return --timerTicksLeft > 0 ? TRUE : FALSE;
  }

  std::string handleAt;
  std::function<void()> onEvent;
  int timerTicksLeft = 1000;

 private:
  Log& log_;
  std::string name_;
};

class EventTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(load(engine, window(),
                     "<body id=body><div id=outer><button id=btn>Go</button><input|checkbox #cb>"
                     "<a #link href='http://x'>x</a></div><p id=p>p</p></body>"));
    root = rootOf(engine, window());
  }
  HELEMENT byId(const char* id) { return selectFirst(engine, root, (std::string("#") + id).c_str()); }
  void attach(HELEMENT he, Recorder& r) {
    ASSERT_EQ(engine.AttachEventHandlerEx(he, &htmlayout::event_handler::element_proc, &r, r.subscribed_to), HLDOM_OK);
  }

  DomEngine engine;
  HELEMENT root = nullptr;
  Log log;
};

TEST_F(EventTest, SinkingFromTheRootThenBubblingBack) {
  Recorder top(log, "root"), outer(log, "outer"), btn(log, "btn");
  attach(root, top);
  attach(byId("outer"), outer);
  attach(byId("btn"), btn);
  BOOL handled = TRUE;
  ASSERT_EQ(engine.SendEvent(byId("btn"), 0x123, byId("p"), 5, &handled), HLDOM_OK);
  EXPECT_FALSE(handled);
  EXPECT_EQ(log, (Log{"root:sink:291", "outer:sink:291", "btn:sink:291", "btn:bubble:291", "outer:bubble:291",
                      "root:bubble:291"}));
}

TEST_F(EventTest, HandledStopsTheWalk) {
  Recorder top(log, "root"), outer(log, "outer"), btn(log, "btn");
  attach(root, top);
  attach(byId("outer"), outer);
  attach(byId("btn"), btn);
  outer.handleAt = "outer:sink:0";
  BOOL handled = FALSE;
  engine.SendEvent(byId("btn"), BUTTON_CLICK, nullptr, 0, &handled);
  EXPECT_TRUE(handled);
  EXPECT_EQ(log, (Log{"root:sink:0", "outer:sink:0"}));
  log.clear();
  outer.handleAt = "outer:bubble:0";
  EXPECT_TRUE(engine.click(byId("btn")));
  EXPECT_EQ(log, (Log{"root:sink:0", "outer:sink:0", "btn:sink:0", "btn:bubble:0", "outer:bubble:0"}));
}

TEST_F(EventTest, SubscriptionsFilterGroups) {
  Recorder mouseOnly(log, "mouse", HANDLE_MOUSE);
  attach(byId("btn"), mouseOnly);
  engine.click(byId("btn"));
  EXPECT_TRUE(log.empty());
  engine.setHover(window(), byId("btn"));
  EXPECT_EQ(log, (Log{"mouse:enter"}));
}

TEST_F(EventTest, HandlerDetachedDuringDispatchIsNotCalledAgain) {
  Recorder outer(log, "outer"), btn(log, "btn");
  attach(byId("outer"), outer);
  attach(byId("btn"), btn);
  btn.onEvent = [&] { engine.DetachEventHandler(byId("outer"), &htmlayout::event_handler::element_proc, &outer); };
  engine.click(byId("btn"));
  EXPECT_EQ(log, (Log{"outer:sink:0", "btn:sink:0", "btn:bubble:0"}));
}

TEST_F(EventTest, ElementDeletedDuringDispatchEndsItSafely) {
  Recorder top(log, "root"), btn(log, "btn");
  attach(root, top);
  attach(byId("btn"), btn);
  HELEMENT outer = byId("outer");
  btn.onEvent = [&] { engine.DeleteElement(outer); };
  BOOL handled = TRUE;
  EXPECT_EQ(engine.SendEvent(byId("btn"), BUTTON_CLICK, nullptr, 0, &handled), HLDOM_OK);
  EXPECT_EQ(log, (Log{"root:sink:0", "btn:sink:0", "root:bubble:0"}));
}

TEST_F(EventTest, AttachAndDetachInitialiseTheHandler) {
  struct Life : htmlayout::event_handler {
    void attached(HELEMENT he) override { calls.push_back(he); }
    void detached(HELEMENT he) override { calls.push_back(nullptr); }
    std::vector<HELEMENT> calls;
  } life;
  HELEMENT btn = byId("btn");
  engine.AttachEventHandlerEx(btn, &htmlayout::event_handler::element_proc, &life, HANDLE_ALL);
  engine.AttachEventHandlerEx(btn, &htmlayout::event_handler::element_proc, &life, HANDLE_MOUSE);  // only resubscribes
  engine.DetachEventHandler(btn, &htmlayout::event_handler::element_proc, &life);
  EXPECT_EQ(life.calls, (std::vector<HELEMENT>{btn, nullptr}));
  EXPECT_EQ(engine.DetachEventHandler(btn, &htmlayout::event_handler::element_proc, &life), HLDOM_INVALID_PARAMETER);
  engine.AttachEventHandlerEx(btn, &htmlayout::event_handler::element_proc, &life, HANDLE_ALL | DISABLE_INITIALIZATION);
  EXPECT_EQ(life.calls.size(), 2u);
}

TEST_F(EventTest, PostedEventsWaitForThePump) {
  Recorder btn(log, "btn");
  attach(byId("btn"), btn);
  engine.PostEvent(byId("btn"), 0x200, nullptr, 0);
  engine.PostEvent(byId("p"), 0x201, nullptr, 0);
  EXPECT_TRUE(log.empty());
  btn.onEvent = [&] {
    if (log.size() == 1) engine.PostEvent(byId("btn"), 0x202, nullptr, 0);
  };
  EXPECT_EQ(engine.pumpPosted(), 2u);
  EXPECT_EQ(log, (Log{"btn:sink:512", "btn:bubble:512"}));
  HELEMENT btnHandle = byId("btn");
  engine.DeleteElement(btnHandle);
  EXPECT_EQ(engine.pumpPosted(), 0u);  // its target is gone
}

TEST_F(EventTest, ClickTogglesCheckBoxesAndSkipsDisabledElements) {
  Recorder top(log, "root");
  attach(root, top);
  HELEMENT cb = byId("cb");
  engine.click(cb);
  EXPECT_EQ(stateOf(engine, cb) & STATE_CHECKED, static_cast<UINT>(STATE_CHECKED));
  EXPECT_EQ(log, (Log{"root:sink:2", "root:bubble:2", "root:sink:0", "root:bubble:0"}));
  engine.click(cb);
  EXPECT_EQ(stateOf(engine, cb) & STATE_CHECKED, 0u);
  log.clear();
  engine.SetElementState(byId("outer"), STATE_DISABLED, 0, FALSE);
  EXPECT_FALSE(engine.click(cb));
  EXPECT_TRUE(log.empty());
  EXPECT_EQ(stateOf(engine, cb) & STATE_CHECKED, 0u);
}

TEST_F(EventTest, ClickOnALinkIsAHyperlinkClick) {
  Recorder top(log, "root");
  top.handleAt = "root:sink:128";
  attach(root, top);
  EXPECT_TRUE(engine.click(byId("link")));
  EXPECT_EQ(log, (Log{"root:sink:128"}));
}

TEST_F(EventTest, FocusAndHoverMoveStatesAndSendEvents) {
  Recorder btn(log, "btn"), p(log, "p");
  attach(byId("btn"), btn);
  attach(byId("p"), p);
  EXPECT_TRUE(engine.setFocus(window(), byId("btn")));
  EXPECT_TRUE(engine.setFocus(window(), byId("p")));
  EXPECT_EQ(stateOf(engine, byId("btn")) & STATE_FOCUS, 0u);
  EXPECT_NE(stateOf(engine, byId("p")) & STATE_FOCUS, 0u);
  EXPECT_TRUE(engine.setHover(window(), byId("btn")));
  EXPECT_TRUE(engine.setHover(window(), nullptr));
  EXPECT_EQ(log, (Log{"btn:got", "btn:lost", "p:got", "btn:enter", "btn:leave"}));
  EXPECT_EQ(stateOf(engine, byId("outer")) & STATE_HOVER, 0u);
  EXPECT_FALSE(engine.setFocus(window(9), byId("p")));
}

TEST_F(EventTest, TimersRunOnTheEnginesClock) {
  Recorder btn(log, "btn"), p(log, "p");
  attach(byId("btn"), btn);
  attach(byId("p"), p);
  engine.SetTimerEx(byId("btn"), 100, 7);
  engine.SetTimerEx(byId("p"), 250, 8);
  engine.tick(99);
  EXPECT_TRUE(log.empty());
  engine.tick(1);
  EXPECT_EQ(log, (Log{"btn:timer7"}));
  engine.tick(200);  // 200 (btn), 250 (p), 300 (btn)
  EXPECT_EQ(log, (Log{"btn:timer7", "btn:timer7", "p:timer8", "btn:timer7"}));
  log.clear();
  engine.SetTimerEx(byId("btn"), 0, 7);  // stopped
  p.timerTicksLeft = 1;                  // answers FALSE at its next tick: stopped
  engine.tick(1000);
  EXPECT_EQ(log, (Log{"p:timer8"}));
}

TEST_F(EventTest, TimerOfADeletedElementIsDropped) {
  engine.SetTimerEx(byId("btn"), 10, 1);
  HELEMENT btnHandle = byId("btn");
  engine.DeleteElement(btnHandle);
  engine.tick(100);
  EXPECT_EQ(engine.SetTimerEx(btnHandle, 10, 1), HLDOM_INVALID_HANDLE);
}

// A behaviour found by name when a page names it.
struct Counter : htmlayout::behavior {
  Counter() : behavior(HANDLE_BEHAVIOR_EVENT, "counter") {}
  void attached(HELEMENT) override { ++attaches; }
  BOOL on_event(HELEMENT, HELEMENT, BEHAVIOR_EVENTS type, UINT_PTR) override {
    if (type == BUTTON_CLICK) ++clicks;
    return FALSE;
  }
  int attaches = 0;
  int clicks = 0;
};

// The page's notification receiver, as a dialog would be.
struct Host : htmlayout::notification_handler<Host> {
  LRESULT on_attach_behavior(LPNMHL_ATTACH_BEHAVIOR request) override {
    names.push_back(request->behaviorName);
    return notification_handler::on_attach_behavior(request);
  }
  LRESULT on_document_complete() override {
    ++completes;
    return 0;
  }
  std::vector<std::string> names;
  int completes = 0;
};

TEST_F(EventTest, BehavioursAttachThroughTheNotificationCallback) {
  Counter counter;
  Host host;
  host.setup_callback(engine, window(2));
  ASSERT_TRUE(load(engine, window(2), "<body><div #w behavior='counter other'>w</div><p behavior=none></body>"));
  EXPECT_EQ(host.names, (std::vector<std::string>{"counter", "other", "none"}));
  EXPECT_EQ(host.completes, 1);
  EXPECT_EQ(counter.attaches, 1);
  HELEMENT w = selectFirst(engine, rootOf(engine, window(2)), "#w");
  engine.click(w);
  EXPECT_EQ(counter.clicks, 1);
  // Content added later gets its behaviours too.
  const std::string more = "<span behavior=counter>s</span>";
  engine.SetElementHtml(w, reinterpret_cast<LPCBYTE>(more.data()), static_cast<DWORD>(more.size()),
                        SIH_APPEND_AFTER_LAST);
  EXPECT_EQ(counter.attaches, 2);
  EXPECT_EQ(htmlayout::behavior::find("counter"), &counter);
  EXPECT_EQ(htmlayout::behavior::find("nosuch"), nullptr);
}

TEST_F(EventTest, BehaviorMethodsReachHandlersAndClickByDefault) {
  struct Method : htmlayout::event_handler {
    BOOL on_method_call(HELEMENT, UINT id, METHOD_PARAMS*) override { return id == FIRST_APPLICATION_METHOD_ID; }
  } method;
  Recorder top(log, "root");
  attach(root, top);
  HELEMENT btn = byId("btn");
  engine.AttachEventHandlerEx(btn, &htmlayout::event_handler::element_proc, &method, HANDLE_METHOD_CALL);
  METHOD_PARAMS app{FIRST_APPLICATION_METHOD_ID};
  EXPECT_EQ(engine.CallBehaviorMethod(btn, &app), HLDOM_OK);
  METHOD_PARAMS other{FIRST_APPLICATION_METHOD_ID + 1};
  EXPECT_EQ(engine.CallBehaviorMethod(btn, &other), HLDOM_OK_NOT_HANDLED);
  METHOD_PARAMS click{DO_CLICK};
  EXPECT_EQ(engine.CallBehaviorMethod(btn, &click), HLDOM_OK);
  EXPECT_EQ(log, (Log{"root:sink:0", "root:bubble:0"}));
}

}  // namespace
}  // namespace kvt1::html
