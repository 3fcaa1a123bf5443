// Popups with their states and events, control values, and the VALUE functions.
#include <gtest/gtest.h>

#include <cwchar>

#include "htmlui/engine/HtmlayoutEventHandler.h"
#include "tests/htmlui/engine/EngineTestSupport.h"

namespace kvt1::html {
namespace {

using namespace test;

// Records the popup events that bubble to the root.
struct PopupLog : htmlayout::event_handler {
  BOOL on_event(HELEMENT, HELEMENT target, BEHAVIOR_EVENTS type, UINT_PTR) override {
    if ((type & SINKING) == 0 && (type == POPUP_READY || type == POPUP_DISMISSED || type == MENU_ITEM_CLICK))
      events.emplace_back(type, target);
    return FALSE;
  }
  std::vector<std::pair<UINT, HELEMENT>> events;
};

class PopupValueTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(load(engine, window(),
                     "<body><button #anchor>a</button><menu.context #menu><li #i1>One</li><li #i2>Two</li></menu>"
                     "<input #text value='start'><input|checkbox #check><textarea #area>a &amp; b</textarea>"
                     "<select #sel><option value=1>One<option value=2 selected>Two<option>Three</select>"
                     "<div #plain>plain <b>text</b></div></body>"));
    root = rootOf(engine, window());
    engine.AttachEventHandlerEx(root, &htmlayout::event_handler::element_proc, &log, HANDLE_ALL);
  }
  HELEMENT byId(const char* id) { return selectFirst(engine, root, (std::string("#") + id).c_str()); }
  std::string valueOf(HELEMENT he) {
    VALUE v;
    engine.ValueInit(&v);
    if (engine.ControlGetValue(he, &v) != HLDOM_OK) return "(failed)";
    std::string out = v.t == T_UNDEFINED ? "(undefined)" : "";
    if (v.t != T_UNDEFINED) {
      engine.ValueToString(&v, CVT_SIMPLE);
      LPCWSTR chars = nullptr;
      UINT length = 0;
      engine.ValueStringData(&v, &chars, &length);
      out = platform::toUtf8(std::wstring(chars, length));
    }
    engine.ValueClear(&v);
    return out;
  }
  HLDOM_RESULT setText(HELEMENT he, const wchar_t* text) {
    VALUE v;
    engine.ValueInit(&v);
    engine.ValueStringDataSet(&v, text, static_cast<UINT>(std::wcslen(text)), 0);
    const HLDOM_RESULT r = engine.ControlSetValue(he, &v);
    engine.ValueClear(&v);
    return r;
  }

  DomEngine engine;
  HELEMENT root = nullptr;
  PopupLog log;
};

TEST_F(PopupValueTest, ShowAndHideSetStatesAndSendEvents) {
  HELEMENT menu = byId("menu");
  HELEMENT anchor = byId("anchor");
  ASSERT_EQ(engine.ShowPopup(menu, anchor, 2), HLDOM_OK);
  EXPECT_NE(stateOf(engine, menu) & STATE_POPUP, 0u);
  EXPECT_NE(stateOf(engine, anchor) & STATE_OWNS_POPUP, 0u);
  ASSERT_EQ(engine.HidePopup(byId("i2")), HLDOM_OK);  // any element inside hides it
  EXPECT_EQ(stateOf(engine, menu) & STATE_POPUP, 0u);
  EXPECT_EQ(stateOf(engine, anchor) & STATE_OWNS_POPUP, 0u);
  EXPECT_EQ(log.events, (std::vector<std::pair<UINT, HELEMENT>>{{POPUP_READY, menu}, {POPUP_DISMISSED, menu}}));
  EXPECT_EQ(engine.HidePopup(menu), HLDOM_OK);  // not shown: nothing happens
  EXPECT_EQ(log.events.size(), 2u);
  EXPECT_EQ(engine.ShowPopup(menu, menu, 2), HLDOM_INVALID_PARAMETER);
}

TEST_F(PopupValueTest, ClickOnAMenuItemReportsItAndClosesTheMenu) {
  HELEMENT menu = byId("menu");
  engine.ShowPopupAt(menu, POINT{10, 20}, 0x20001);
  EXPECT_EQ(stateOf(engine, byId("anchor")) & STATE_OWNS_POPUP, 0u);
  engine.click(byId("i2"));
  EXPECT_EQ(log.events, (std::vector<std::pair<UINT, HELEMENT>>{
                            {POPUP_READY, menu}, {MENU_ITEM_CLICK, byId("i2")}, {POPUP_DISMISSED, menu}}));
  EXPECT_EQ(stateOf(engine, menu) & STATE_POPUP, 0u);
}

TEST_F(PopupValueTest, TrackPopupReturnsWhatTheUserChose) {
  HELEMENT menu = byId("menu");
  HELEMENT item = byId("i1");
  EXPECT_EQ(engine.TrackPopupAt(menu, POINT{0, 0}, 0, &item), HLDOM_OK);
  EXPECT_EQ(item, nullptr);  // nobody to choose
  EXPECT_EQ(stateOf(engine, menu) & STATE_POPUP, 0u);
  engine.setPopupUser([&](HELEMENT popup) {
    EXPECT_NE(stateOf(engine, popup) & STATE_POPUP, 0u);
    return byId("i2");
  });
  EXPECT_EQ(engine.TrackPopupAt(menu, POINT{0, 0}, 0, &item), HLDOM_OK);
  EXPECT_EQ(item, byId("i2"));
  engine.setPopupUser([&](HELEMENT) { return byId("anchor"); });  // not an item of the popup
  engine.TrackPopupAt(menu, POINT{0, 0}, 0, &item);
  EXPECT_EQ(item, nullptr);
  EXPECT_EQ(engine.TrackPopupAt(menu, POINT{0, 0}, 0, nullptr), HLDOM_INVALID_PARAMETER);
}

TEST_F(PopupValueTest, ControlValuesOfEachKind) {
  EXPECT_EQ(valueOf(byId("text")), "start");
  EXPECT_EQ(valueOf(byId("check")), "false");
  EXPECT_EQ(valueOf(byId("area")), "a & b");
  EXPECT_EQ(valueOf(byId("sel")), "2");
  EXPECT_EQ(valueOf(byId("plain")), "plain text");
  EXPECT_EQ(setText(byId("text"), L"typed"), HLDOM_OK);
  EXPECT_EQ(valueOf(byId("text")), "typed");
  EXPECT_EQ(setText(byId("sel"), L"Three"), HLDOM_OK);  // an option without value goes by its text
  EXPECT_EQ(valueOf(byId("sel")), "Three");
  EXPECT_EQ(ids(engine, selectAll(engine, root, "option:checked")), "(none)");
  EXPECT_EQ(setText(byId("sel"), L"nothing"), HLDOM_OK);
  EXPECT_EQ(valueOf(byId("sel")), "(undefined)");
  EXPECT_EQ(setText(byId("area"), L"<new>"), HLDOM_OK);
  EXPECT_EQ(valueOf(byId("area")), "<new>");
  VALUE on;
  engine.ValueInit(&on);
  engine.ValueIntDataSet(&on, 1, T_BOOL, 0);
  EXPECT_EQ(engine.ControlSetValue(byId("check"), &on), HLDOM_OK);
  EXPECT_NE(stateOf(engine, byId("check")) & STATE_CHECKED, 0u);
  EXPECT_EQ(setText(byId("check"), L"yes"), HLDOM_INVALID_PARAMETER);
  EXPECT_EQ(engine.ControlGetValue(byId("check"), nullptr), HLDOM_INVALID_PARAMETER);
}

TEST(ValueFunctions, EachTypeStoredReadCopiedComparedAndConverted) {
  DomEngine engine;
  VALUE a, b;
  engine.ValueInit(&a);
  engine.ValueInit(&b);
  EXPECT_EQ(a.t, static_cast<UINT>(T_UNDEFINED));
  EXPECT_EQ(engine.ValueCompare(&a, &b), static_cast<UINT>(HV_OK_TRUE));

  engine.ValueIntDataSet(&a, -42, T_INT, 0);
  INT i = 0;
  EXPECT_EQ(engine.ValueIntData(&a, &i), static_cast<UINT>(HV_OK));
  EXPECT_EQ(i, -42);
  LPCWSTR chars = nullptr;
  UINT length = 0;
  EXPECT_EQ(engine.ValueStringData(&a, &chars, &length), static_cast<UINT>(HV_INCOMPATIBLE_TYPE));

  engine.ValueStringDataSet(&b, L"text\"q", 6, 0);
  EXPECT_EQ(engine.ValueIntData(&b, &i), static_cast<UINT>(HV_INCOMPATIBLE_TYPE));
  EXPECT_EQ(engine.ValueCompare(&a, &b), static_cast<UINT>(HV_OK));
  EXPECT_EQ(engine.ValueCopy(&a, &b), static_cast<UINT>(HV_OK));  // replaces the int
  EXPECT_EQ(engine.ValueCompare(&a, &b), static_cast<UINT>(HV_OK_TRUE));
  engine.ValueClear(&b);  // the copy owns its own text
  engine.ValueStringData(&a, &chars, &length);
  EXPECT_EQ(std::wstring(chars, length), L"text\"q");
  engine.ValueToString(&a, CVT_JSON_LITERAL);
  engine.ValueStringData(&a, &chars, &length);
  EXPECT_EQ(std::wstring(chars, length), L"\"text\\\"q\"");

  const auto asText = [&](VALUE v) {
    engine.ValueToString(&v, CVT_SIMPLE);
    engine.ValueStringData(&v, &chars, &length);
    std::wstring out(chars, length);
    engine.ValueClear(&v);
    return out;
  };
  VALUE v;
  engine.ValueInit(&v);
  engine.ValueFloatDataSet(&v, 0.1, T_FLOAT, 0);
  EXPECT_EQ(asText(v), L"0.1");
  engine.ValueInit(&v);
  engine.ValueFloatDataSet(&v, 1.0 / 3.0, T_FLOAT, 0);
  EXPECT_EQ(std::wcstod(asText(v).c_str(), nullptr), 1.0 / 3.0);
  engine.ValueInit(&v);
  engine.ValueIntDataSet(&v, 5, T_BOOL, 0);
  EXPECT_EQ(asText(v), L"true");
  engine.ValueInit(&v);
  v.t = T_NULL;
  EXPECT_EQ(asText(v), L"null");
  engine.ValueInit(&v);
  EXPECT_EQ(asText(v), L"");
  engine.ValueClear(&a);
  EXPECT_EQ(engine.ValueIntDataSet(nullptr, 1, T_INT, 0), static_cast<UINT>(HV_BAD_PARAMETER));
  EXPECT_EQ(engine.ValueFloatDataSet(&a, 1.0, T_INT, 0), static_cast<UINT>(HV_BAD_PARAMETER));
}

}  // namespace
}  // namespace kvt1::html
