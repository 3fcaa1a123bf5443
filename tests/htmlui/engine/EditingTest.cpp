// Text editing in the engine's inputs and text areas, the "selectAll"
// method, and the tooltip request of a pointer at rest.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "htmlui/engine/HtmlayoutEventHandler.h"
#include "platform/Win32.h"
#include "tests/htmlui/engine/EngineTestSupport.h"

namespace kvt1::html {
namespace {

using namespace test;

// Behaviour events as the bubbling phase sees them: "code:id:reason:value"
// with the target's value at that moment.
class EventLog : public htmlayout::event_handler {
 public:
  explicit EventLog(DomEngine& engine) : event_handler(HANDLE_ALL), engine_(engine) {}
  BOOL handle_event(HELEMENT, BEHAVIOR_EVENT_PARAMS& params) override {
    if ((params.cmd & SINKING) != 0) return FALSE;
    const UINT code = params.cmd & ~HANDLED;
    std::string name = code == EDIT_VALUE_CHANGING  ? "changing"
                       : code == EDIT_VALUE_CHANGED ? "changed"
                       : code == POPUP_REQUEST      ? "popup"
                                                    : "other";
    events.push_back(name + ":" + attribute(engine_, params.heTarget, "id") + ":" + std::to_string(params.reason) +
                     ":" + valueOf(params.heTarget));
    if (code == POPUP_REQUEST && params.he != params.heTarget) events.back() += ":source-differs";
    if (code == EDIT_VALUE_CHANGING && removeOnChanging) engine_.DeleteElement(params.heTarget);
    return FALSE;
  }
  BOOL handle_key(HELEMENT, KEY_PARAMS& params) override {
    return (params.cmd & SINKING) == 0 && params.cmd == KEY_CHAR && params.key_code == swallowed;
  }
  std::string valueOf(HELEMENT he) {
    VALUE value;
    engine_.ValueInit(&value);
    engine_.ControlGetValue(he, &value);
    LPCWSTR chars = nullptr;
    UINT count = 0;
    engine_.ValueStringData(&value, &chars, &count);
    std::string text = chars != nullptr ? platform::toUtf8(std::wstring(chars, count)) : "";
    engine_.ValueClear(&value);
    return text;
  }

  std::vector<std::string> events;
  UINT swallowed = 0;
  bool removeOnChanging = false;

 private:
  DomEngine& engine_;
};

class EditingTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(load(engine, window(),
                     "<html><body>"
                     "<input id='name' type='text' value='ab'/>"
                     "<input id='bare' value=''/>"
                     "<textarea id='notes'>line</textarea>"
                     "<input id='off' type='text' value='x' disabled/>"
                     "<input id='fixed' type='text' value='x' readonly/>"
                     "<input id='tick' type='checkbox'/>"
                     "<div id='pane'><button id='ok'>OK</button></div>"
                     "</body></html>"));
    engine.AttachEventHandlerEx(rootOf(engine, window()), &htmlayout::event_handler::element_proc, &log, HANDLE_ALL);
  }

  HELEMENT byId(const std::string& id) {
    return selectFirst(engine, rootOf(engine, window()), ("[id='" + id + "']").c_str());
  }
  void type(const std::wstring& text) {
    for (const wchar_t c : text) engine.key(window(), KEY_CHAR, static_cast<UINT>(c), 0);
  }
  bool selectAll(HELEMENT he) {
    XCALL_PARAMS params{};
    params.methodID = XCALL;
    params.method_name = "selectAll";
    return engine.CallBehaviorMethod(he, &params) == HLDOM_OK;
  }
  std::string value(const std::string& id) { return log.valueOf(byId(id)); }

  DomEngine engine;
  EventLog log{engine};
};

TEST_F(EditingTest, CharactersGoToTheEndOfTheFocusedInputBetweenChangingAndChanged) {
  ASSERT_TRUE(engine.setFocus(window(), byId("name")));
  type(L"c\u00e9");
  EXPECT_EQ(value("name"), "abc\xc3\xa9");
  const std::string ins = std::to_string(BY_INS_CHAR);
  EXPECT_EQ(log.events,
            (std::vector<std::string>{"changing:name:" + ins + ":ab", "changed:name:" + ins + ":abc",
                                      "changing:name:" + ins + ":abc", "changed:name:" + ins + ":abc\xc3\xa9"}));
  // The layout's copy of the page shows the new value.
  EXPECT_NE(engine.serializeForLayout(window()).find("value=\"abc\xc3\xa9\""), std::string::npos);
}

TEST_F(EditingTest, BackDeletesTheLastCharacterAndNothingWhenEmpty) {
  engine.setFocus(window(), byId("name"));
  engine.key(window(), KEY_DOWN, VK_BACK, 0);
  EXPECT_EQ(value("name"), "a");
  engine.key(window(), KEY_DOWN, VK_BACK, 0);
  engine.key(window(), KEY_DOWN, VK_BACK, 0);
  EXPECT_EQ(value("name"), "");
  const std::string del = std::to_string(BY_DEL_CHAR);
  EXPECT_EQ(log.events, (std::vector<std::string>{"changing:name:" + del + ":ab", "changed:name:" + del + ":a",
                                                  "changing:name:" + del + ":a", "changed:name:" + del + ":"}));
  // A key-up of Back, Delete without a selection and control characters change nothing.
  engine.setFocus(window(), byId("bare"));
  type(L"z");
  log.events.clear();
  engine.key(window(), KEY_UP, VK_BACK, 0);
  engine.key(window(), KEY_DOWN, VK_DELETE, 0);
  type(L"\r\t\x1b\b\x7f");
  EXPECT_EQ(value("bare"), "z");
  EXPECT_TRUE(log.events.empty());
}

TEST_F(EditingTest, ASelectionMadeBySelectAllIsReplacedOrClearedByTheNextEditOnly) {
  engine.setFocus(window(), byId("name"));
  ASSERT_TRUE(selectAll(byId("name")));
  type(L"xy");  // the first replaces the text, the second appends
  EXPECT_EQ(value("name"), "xy");

  ASSERT_TRUE(selectAll(byId("name")));
  engine.key(window(), KEY_DOWN, VK_BACK, 0);
  EXPECT_EQ(value("name"), "");
  EXPECT_EQ(log.events.back(), "changed:name:" + std::to_string(BY_DEL_CHARS) + ":");

  type(L"abc");
  ASSERT_TRUE(selectAll(byId("name")));
  engine.key(window(), KEY_DOWN, VK_DELETE, 0);
  EXPECT_EQ(value("name"), "");

  // A value set by the program drops the selection as well.
  type(L"abc");
  ASSERT_TRUE(selectAll(byId("name")));
  VALUE text;
  engine.ValueInit(&text);
  engine.ValueStringDataSet(&text, L"set", 3, 0);
  engine.ControlSetValue(byId("name"), &text);
  engine.ValueClear(&text);
  type(L"!");
  EXPECT_EQ(value("name"), "set!");
}

TEST_F(EditingTest, SelectAllIsAMethodOfTextFieldsOnly) {
  EXPECT_TRUE(selectAll(byId("bare")));
  EXPECT_TRUE(selectAll(byId("notes")));
  EXPECT_FALSE(selectAll(byId("tick")));
  EXPECT_FALSE(selectAll(byId("ok")));
  XCALL_PARAMS other{};
  other.methodID = XCALL;
  other.method_name = "selectNone";
  EXPECT_EQ(engine.CallBehaviorMethod(byId("name"), &other), HLDOM_OK_NOT_HANDLED);
  other.method_name = nullptr;
  EXPECT_EQ(engine.CallBehaviorMethod(byId("name"), &other), HLDOM_OK_NOT_HANDLED);
}

TEST_F(EditingTest, TextAreasAndInputsWithoutATypeAreEditedToo) {
  engine.setFocus(window(), byId("notes"));
  type(L"s");
  EXPECT_EQ(value("notes"), "lines");
  EXPECT_EQ(text(engine, byId("notes")), "lines");
  engine.setFocus(window(), byId("bare"));
  type(L"q");
  EXPECT_EQ(value("bare"), "q");
}

TEST_F(EditingTest, DisabledReadOnlyAndOtherElementsAndTheRootAreNotEdited) {
  for (const char* id : {"off", "fixed", "tick", "ok"}) {
    engine.setFocus(window(), byId(id));
    type(L"k");
    engine.key(window(), KEY_DOWN, VK_BACK, 0);
  }
  engine.setFocus(window(), nullptr);
  type(L"k");
  EXPECT_EQ(value("off"), "x");
  EXPECT_EQ(value("fixed"), "x");
  EXPECT_EQ(attribute(engine, byId("tick"), "value"), "(none)");
  EXPECT_EQ(text(engine, byId("ok")), "OK");
  EXPECT_TRUE(log.events.empty());

  // A field inside a disabled container takes no keys either.
  ASSERT_TRUE(load(engine, window(2), "<div id='box' disabled><input id='in' value='v'/></div>"));
  const HELEMENT in = selectFirst(engine, rootOf(engine, window(2)), "#in");
  engine.setFocus(window(2), in);
  engine.key(window(2), KEY_CHAR, 'k', 0);
  EXPECT_EQ(log.valueOf(in), "v");
}

TEST_F(EditingTest, AKeyThatAHandlerTookIsNotTyped) {
  engine.setFocus(window(), byId("name"));
  log.swallowed = 'q';
  EXPECT_TRUE(engine.key(window(), KEY_CHAR, 'q', 0));
  EXPECT_FALSE(engine.key(window(), KEY_CHAR, 'r', 0));  // the default action is no handler's
  EXPECT_EQ(value("name"), "abr");
}

TEST_F(EditingTest, CharactersAndKeysFromTheWindowProcedureEditToo) {
  engine.setFocus(window(), byId("name"));
  BOOL handled = FALSE;
  engine.ProcND(window(), WM_CHAR, 'Z', 0, &handled);
  engine.ProcND(window(), WM_KEYDOWN, VK_BACK, 0, &handled);
  engine.ProcND(window(), WM_KEYDOWN, VK_BACK, 0, &handled);
  EXPECT_EQ(value("name"), "a");
}

TEST_F(EditingTest, AFieldRemovedWhileItChangesIsLeftAlone) {
  engine.setFocus(window(), byId("name"));
  log.removeOnChanging = true;
  type(L"c");
  EXPECT_EQ(byId("name"), nullptr);
  ASSERT_EQ(log.events.size(), 1u);
  EXPECT_EQ(log.events[0].rfind("changing:name:", 0), 0u);
  type(L"d");  // the focus went with the element
  EXPECT_EQ(log.events.size(), 1u);
}

TEST_F(EditingTest, APointerAtRestAsksItsElementForATooltipOnce) {
  ASSERT_TRUE(engine.setHover(window(), byId("ok")));
  engine.tick(DomEngine::kHoverRestMs - 1);
  EXPECT_TRUE(log.events.empty());
  engine.tick(1);
  EXPECT_EQ(log.events, std::vector<std::string>{"popup:ok:0:OK"});
  engine.tick(5000);
  EXPECT_EQ(log.events.size(), 1u);

  // Each move starts the wait again; leaving the page ends it.
  log.events.clear();
  engine.setHover(window(), byId("name"));
  engine.tick(300);
  engine.setHover(window(), byId("pane"));
  engine.tick(300);
  EXPECT_TRUE(log.events.empty());
  engine.tick(200);
  EXPECT_EQ(log.events, std::vector<std::string>{"popup:pane:0:OK"});
  engine.setHover(window(), byId("ok"));
  engine.setHover(window(), nullptr);
  engine.tick(1000);
  EXPECT_EQ(log.events.size(), 1u);
}

}  // namespace
}  // namespace kvt1::html
