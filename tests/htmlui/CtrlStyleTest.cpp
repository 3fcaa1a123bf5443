// The style setters every control has (here a button's), through the real
// engine: what each writes into the element's style and, laid out by
// litehtml, what that does to the page.
#include "htmlui/CHTMButtonCtrl.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "tests/htmlui/ControlsDialog.h"
#include "tests/htmlui/TestDialogs.h"
#ifndef _WIN32
#include "htmlui/engine/litehtml/LitehtmlLayout.h"
#endif

namespace kvt1::testing {
namespace {

class CtrlStyleTest : public DialogTest {
 protected:
  void TearDown() override {
    dialog.Close();
    DialogTest::TearDown();
  }

  // The element's box, in the page's coordinates.
  RECT box(const CHTMCtrl& control) {
    RECT rect{};
    engine_.GetElementLocation(control.Element().Handle(), &rect, ROOT_RELATIVE | CONTENT_BOX);
    return rect;
  }

  CHTMButtonCtrl apply{L"btnApply"};
  ControlsDialog dialog;
};

TEST_F(CtrlStyleTest, EachSetterWritesItsStyleAndUndoesIt) {
  const struct {
    const char* setter;
    std::function<void(CHTMCtrl&)> set;
    std::function<void(CHTMCtrl&)> clear;
    std::vector<std::pair<const char*, const wchar_t*>> style;  // after set
    std::vector<std::pair<const char*, const wchar_t*>> cleared;
  } cases[] = {
      {"SetVisible",
       [](CHTMCtrl& c) { c.SetVisible(false); },
       [](CHTMCtrl& c) { c.SetVisible(true); },
       {{"visibility", L"hidden"}},
       {{"visibility", L"visible"}}},
      {"SetWidth", [](CHTMCtrl& c) { c.SetWidth(120); }, nullptr, {{"width", L"120px"}}, {}},
      {"SetHeight", [](CHTMCtrl& c) { c.SetHeight(40); }, nullptr, {{"height", L"40px"}}, {}},
      {"SetFontFamily", [](CHTMCtrl& c) { c.SetFontFamily(L"serif"); }, nullptr, {{"font-family", L"serif"}}, {}},
      {"SetFontSize", [](CHTMCtrl& c) { c.SetFontSize(L"14pt"); }, nullptr, {{"font-size", L"14pt"}}, {}},
      {"SetWeight",
       [](CHTMCtrl& c) { c.SetWeight(L"bold"); },
       [](CHTMCtrl& c) { c.SetWeight(L""); },
       {{"font-weight", L"bold"}},
       {{"font-weight", L"inherit"}}},
      {"SetItalic",
       [](CHTMCtrl& c) { c.SetItalic(true); },
       [](CHTMCtrl& c) { c.SetItalic(false); },
       {{"font-style", L"italic"}},
       {{"font-style", L"inherit"}}},
      {"SetPositionAbsolute",
       [](CHTMCtrl& c) { c.SetPositionAbsolute(30); },
       nullptr,
       {{"position", L"absolute"}, {"left", L"30px"}},
       {}},
      {"SetPositionRelative",
       [](CHTMCtrl& c) { c.SetPositionRelative(-5); },
       nullptr,
       {{"position", L"relative"}, {"left", L"-5px"}},
       {}},
  };
  dialog.RegisterControl(apply);
  ASSERT_TRUE(dialog.Create());
  for (const auto& c : cases) {
    c.set(apply);
    for (const auto& [name, value] : c.style) EXPECT_EQ(apply.Element().GetStyle(name), value) << c.setter;
    if (!c.clear) continue;
    c.clear(apply);
    for (const auto& [name, value] : c.cleared) EXPECT_EQ(apply.Element().GetStyle(name), value) << c.setter;
  }
}

#ifndef _WIN32
TEST_F(CtrlStyleTest, SizeVisibilityAndPositionShowInTheLayout) {
  engine_.setLayoutProvider(std::make_unique<html::LitehtmlLayout>());
  dialog.RegisterControl(apply);
  ASSERT_TRUE(dialog.Create());
  // Each pixel more in the style is a pixel more on the page.
  apply.SetWidth(150);
  apply.SetHeight(44);
  const RECT before = box(apply);
  apply.SetWidth(200);
  apply.SetHeight(60);
  const RECT after = box(apply);
  EXPECT_EQ((after.right - after.left) - (before.right - before.left), 50);
  EXPECT_EQ((after.bottom - after.top) - (before.bottom - before.top), 16);
  EXPECT_EQ(apply.GetWidth(), 200);
  EXPECT_EQ(apply.GetHeight(), 60);

  apply.SetPositionAbsolute(70);
  const LONG at70 = box(apply).left;
  apply.SetPositionAbsolute(100);
  EXPECT_EQ(box(apply).left, at70 + 30);
  apply.SetPositionRelative(0);
  const LONG inFlow = box(apply).left;
  apply.SetPositionRelative(25);
  EXPECT_EQ(box(apply).left, inFlow + 25);

  // Hidden keeps the element's place; only IsVisible changes.
  apply.SetVisible(false);
  EXPECT_FALSE(apply.IsVisible());
  EXPECT_EQ(box(apply).right - box(apply).left, after.right - after.left);
  apply.SetVisible(true);
  EXPECT_TRUE(apply.IsVisible());
}
#endif

TEST_F(CtrlStyleTest, ModifyClassAddsAndRemovesOneWordAndKeepsTheOthers) {
  dialog.RegisterControl(apply);
  ASSERT_TRUE(dialog.Create());
  apply.Element().SetAttribute("class", L"wide  plain");
  const struct {
    const wchar_t* name;
    bool add;
    const wchar_t* classes;
  } steps[] = {
      {L"bold", true, L"wide plain bold"}, {L"bold", true, L"wide plain bold"}, {L"plain", false, L"wide bold"},
      {L"absent", false, L"wide bold"},    {L"", true, L"wide bold"},
  };
  for (const auto& step : steps) {
    apply.ModifyClass(step.name, step.add);
    EXPECT_EQ(apply.Element().GetAttribute("class"), step.classes) << step.name << L" " << step.add;
  }
}

}  // namespace
}  // namespace kvt1::testing
