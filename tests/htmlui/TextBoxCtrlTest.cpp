#include "htmlui/CHTMTextBoxCtrl.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/Resources.h"
#include "platform/ThisModule.h"
#include "platform/Unicode.h"
#include "platform/Win32.h"
#include "tests/htmlui/TestDialogs.h"
#include "tests/htmlui/TextBoxDialog.h"

namespace kvt1::testing {
namespace {

const std::wstring kNoLimit = L"No Limit";

class TextBoxCtrlTest : public DialogTest {
 protected:
  // The English texts are this program's resources.
  void SetUp() override {
    DialogTest::SetUp();
    platform::setResourceModule(platform::thisModuleHandle());
  }
  void TearDown() override {
    dialog.Close();
    platform::setResourceModule(nullptr);
    DialogTest::TearDown();
  }

  void create() {
    dialog.RegisterControl(name);
    dialog.RegisterControl(height);
    dialog.RegisterControl(slope);
    ASSERT_TRUE(dialog.Create());
    ASSERT_TRUE(height.IsBound());
  }
  void focus(const CHTMCtrl* control) {
    engine_.setFocus(dialog.GetHwnd(), control != nullptr ? control->Element().Handle() : nullptr);
  }
  void type(const std::wstring& text) {
    for (const wchar_t c : text) engine_.key(dialog.GetHwnd(), KEY_CHAR, static_cast<UINT>(c), 0);
  }
  bool press(UINT key) { return engine_.key(dialog.GetHwnd(), KEY_DOWN, key, 0); }
  // Types text into a numeric field as a user does: focus, type, leave.
  void enter(CHTMTextBoxCtrl& field, const std::wstring& text) {
    focus(&field);
    type(text);
    focus(nullptr);
  }
  CHTMElement panel() { return dialog.ElementById(CHTMTextBoxCtrl::kLimitsPanelId); }
  bool panelShown() { return (panel().GetState() & STATE_POPUP) != 0; }
  std::wstring limit(const wchar_t* id) {
    return panel().SelectFirst(std::wstring(L"div[id='") + id + L"']").GetText();
  }

  // Declared before the dialog: they outlive its release of the page.
  CHTMTextBoxCtrl name{L"txtName"};
  CHTMTextBoxCtrl height{L"txtHeight"};
  CHTMTextBoxCtrl slope{L"txtSlope"};
  CHTMTextBoxCtrl created{L"txtCreated"};
  TextBoxDialog dialog;
};

TEST_F(TextBoxCtrlTest, CreatedInPlaceItIsAnEmptyTextInputPlacedAbsolutely) {
  ASSERT_TRUE(dialog.Create());
  ASSERT_TRUE(created.CreateInPlace(dialog, 10, 20, 90, 22));
  const CHTMElement& element = created.Element();
  EXPECT_EQ(element.GetType(), L"input");
  EXPECT_EQ(element.GetAttribute("type"), L"text");
  EXPECT_EQ(element.Parent(), dialog.Body());
  EXPECT_EQ(element.GetStyle("position"), L"absolute");
  EXPECT_EQ(element.GetStyle("left"), L"10px");
  EXPECT_EQ(created.GetWidth(), 90);
  EXPECT_EQ(created.GetText(), L"");
  created.SetText(L"a <b> & c");
  EXPECT_EQ(element.GetAttribute("value"), L"a <b> & c");
  EXPECT_EQ(created.GetText(), L"a <b> & c");
}

TEST_F(TextBoxCtrlTest, NumbersAreWrittenWithTheFieldsDecimalsAndTheFormatSaysSo) {
  create();
  height.SetNumber(3.14159, 2);
  EXPECT_EQ(height.GetText(), L"3.14");
  EXPECT_EQ(height.Element().GetAttribute("format"), L"fdigits:2;leading-zero:true;thousand-sep:'';grouping-sep:'';");
  EXPECT_DOUBLE_EQ(height.GetNumber(), 3.14);

  // No decimals: no decimal point.
  height.SetNumber(7.6, 0);
  EXPECT_EQ(height.GetText(), L"8");
  EXPECT_EQ(height.Element().GetAttribute("format"), L"fdigits:0;leading-zero:true;thousand-sep:'';grouping-sep:'';");
  height.SetNumber(-0.25, -3);
  EXPECT_EQ(height.Decimals(), 0);
  EXPECT_EQ(height.GetText().find(L'.'), std::wstring::npos);

  height.SetNumber(1234567.5, 1);
  EXPECT_EQ(height.GetText(), L"1234567.5");  // no grouping
  height.SetNumber(0.5, 3);
  EXPECT_EQ(height.GetText(), L"0.500");  // a leading zero

  height.SetStep(5);
  EXPECT_EQ(height.Element().GetAttribute("step"), L"5");
}

TEST_F(TextBoxCtrlTest, ANumericFieldThatHoldsNoNumberIsResetWhenItsNumberIsRead) {
  create();
  height.SetNumber(std::numeric_limits<double>::quiet_NaN(), 2);
  EXPECT_EQ(height.GetText(), L"0.00");
  height.SetNumber(std::numeric_limits<double>::infinity(), 1);
  EXPECT_EQ(height.GetText(), L"0.0");

  height.SetNumber(12, 2);
  for (const wchar_t* bad : {L"abc", L"NaN", L"inf", L"", L"0x10", L"1e999", L"1.5.2"}) {
    height.SetText(bad);
    EXPECT_EQ(height.GetText(), bad);  // as it stands, until read or committed
    EXPECT_EQ(height.GetNumber(), 0.0) << platform::toUtf8(bad);
    EXPECT_EQ(height.GetText(), L"0.00");
  }
  // A number set as text is taken as a number.
  height.SetText(L" 2.5 ");
  EXPECT_EQ(height.GetText(), L"2.50");

  // A free text field is read, never reset.
  EXPECT_EQ(name.GetNumber(), 0.0);
  EXPECT_EQ(name.GetText(), L"Runway 09");
  EXPECT_TRUE(dialog.events.empty());
}

TEST_F(TextBoxCtrlTest, TypingIsCommittedOnlyOnEnterOrWhenTheFocusGoes) {
  create();
  height.SetNumber(10, 2);
  focus(&height);
  type(L"42.5");  // the focus selected the text: typing replaced it
  EXPECT_EQ(height.GetText(), L"42.5");
  EXPECT_TRUE(dialog.events.empty());
  EXPECT_TRUE(press(VK_RETURN));
  ASSERT_EQ(dialog.events.size(), 1u);
  EXPECT_EQ(dialog.events[0].control, &height);
  EXPECT_EQ(dialog.events[0].code, static_cast<UINT>(EDIT_VALUE_CHANGED));
  EXPECT_EQ(dialog.events[0].text, L"42.50");
  EXPECT_DOUBLE_EQ(dialog.events[0].number, 42.5);
  EXPECT_FALSE(dialog.events[0].clamped);
  EXPECT_FALSE(dialog.events[0].rejected);
  EXPECT_EQ(height.GetText(), L"42.50");

  // Leaving without a change tells nothing; Escape brings the committed text back.
  focus(&slope);
  EXPECT_EQ(dialog.events.size(), 1u);
  focus(&height);
  type(L"7");
  EXPECT_TRUE(press(VK_ESCAPE));
  EXPECT_EQ(height.GetText(), L"42.50");
  EXPECT_FALSE(press(VK_ESCAPE));  // nothing to undo: the key is left to others
  focus(nullptr);
  EXPECT_EQ(dialog.events.size(), 1u);
}

TEST_F(TextBoxCtrlTest, ValuesBeyondALimitAreSetToItAndTheOwnerIsTold) {
  create();
  height.SetNumber(50, 2);
  height.SetLimits(0.0, 100.0);
  enter(height, L"150");
  EXPECT_EQ(height.GetText(), L"100.00");
  ASSERT_EQ(dialog.events.size(), 1u);
  EXPECT_TRUE(dialog.events[0].clamped);
  EXPECT_DOUBLE_EQ(dialog.events[0].number, 100.0);

  // Clamped to the value it had: the owner still hears of the correction.
  enter(height, L"1e6");
  ASSERT_EQ(dialog.events.size(), 2u);
  EXPECT_TRUE(dialog.events[1].clamped);
  EXPECT_EQ(dialog.events[1].text, L"100.00");

  enter(height, L"-0.001");
  EXPECT_EQ(height.GetText(), L"0.00");
  ASSERT_EQ(dialog.events.size(), 3u);
  EXPECT_TRUE(dialog.events[2].clamped);

  // One limit only.
  height.SetLimits(std::nullopt, 10.0);
  enter(height, L"-500");
  EXPECT_EQ(height.GetText(), L"-500.00");
  EXPECT_FALSE(dialog.events.back().clamped);
}

TEST_F(TextBoxCtrlTest, TextNaNAndInfinityAreRefusedAndTheLastGoodValueComesBack) {
  create();
  height.SetNumber(12.5, 1);
  int expected = 0;
  for (const wchar_t* bad : {L"abc", L"NaN", L"nan", L"inf", L"-Infinity", L"1e999", L"0x1A", L"12,5", L"-"}) {
    enter(height, bad);
    EXPECT_EQ(height.GetText(), L"12.5") << platform::toUtf8(bad);
    ASSERT_EQ(dialog.events.size(), static_cast<std::size_t>(++expected)) << platform::toUtf8(bad);
    EXPECT_TRUE(dialog.events.back().rejected);
    EXPECT_FALSE(dialog.events.back().clamped);
    EXPECT_EQ(dialog.events.back().text, L"12.5");
    EXPECT_DOUBLE_EQ(dialog.events.back().number, 12.5);
  }
  // Emptied with Back, the field gets its value back too.
  focus(&height);
  press(0x08);
  EXPECT_EQ(height.GetText(), L"");
  press(VK_RETURN);
  EXPECT_EQ(height.GetText(), L"12.5");
  EXPECT_TRUE(dialog.events.back().rejected);

  // Text the program set is refused the same way at the next commit.
  height.SetText(L"twelve");
  focus(&height);
  focus(nullptr);
  EXPECT_EQ(height.GetText(), L"12.5");
}

TEST_F(TextBoxCtrlTest, UpAndDownSpinByTheStepWithinTheLimits) {
  create();
  height.SetNumber(10, 1);
  height.SetStep(5);
  height.SetLimits(0.0, 22.0);
  focus(&height);
  EXPECT_TRUE(press(VK_UP));
  EXPECT_EQ(height.GetText(), L"15.0");
  press(VK_UP);
  press(VK_UP);  // 25 is beyond the limit
  EXPECT_EQ(height.GetText(), L"22.0");
  ASSERT_EQ(dialog.events.size(), 3u);
  EXPECT_DOUBLE_EQ(dialog.events[2].number, 22.0);
  EXPECT_FALSE(dialog.events[2].clamped);  // the spin keeps within the limits itself
  press(VK_UP);                            // at the limit: nothing changes, nothing is told
  EXPECT_EQ(dialog.events.size(), 3u);
  press(VK_DOWN);
  EXPECT_EQ(height.GetText(), L"17.0");

  // From text that is no number the spin starts at the last good value.
  type(L"x");
  press(VK_DOWN);
  EXPECT_EQ(height.GetText(), L"12.0");

  // A free text field leaves the keys alone.
  focus(&name);
  EXPECT_FALSE(press(VK_UP));
  EXPECT_EQ(name.GetText(), L"Runway 09");
}

TEST_F(TextBoxCtrlTest, FreeTextIsCommittedAsTypedWhenChanged) {
  create();
  EXPECT_EQ(name.GetText(), L"Runway 09");
  focus(&name);
  type(L"L");  // a free text field keeps its text on focus
  focus(nullptr);
  ASSERT_EQ(dialog.events.size(), 1u);
  EXPECT_EQ(dialog.events[0].text, L"Runway 09L");
  EXPECT_FALSE(dialog.events[0].rejected);
  EXPECT_FALSE(panel().IsValid());  // a free text field has no limits popup

  name.SetText(L"Taxiway");  // the program's own change is not told back
  focus(&name);
  focus(nullptr);
  EXPECT_EQ(dialog.events.size(), 1u);
}

TEST_F(TextBoxCtrlTest, TheLimitsPopupShowsWhileANumericFieldHasTheFocus) {
  create();
  height.SetNumber(5, 1);
  height.SetLimits(-2.5, 40.0);
  focus(&height);
  ASSERT_TRUE(panel().IsValid());
  EXPECT_TRUE(panelShown());
  EXPECT_EQ(limit(L"MinVal"), L"-2.5");
  EXPECT_EQ(limit(L"MaxVal"), L"40.0");
  EXPECT_EQ(panel().Parent(), dialog.Body());
  EXPECT_EQ(dialog.Body().Child(dialog.Body().ChildCount() - 1), panel());
  EXPECT_NE(height.Element().GetState() & STATE_OWNS_POPUP, 0u);
  EXPECT_EQ(panel().GetText().find(L"Minimum:"), 0u);

  // The next field takes the same panel over, with its own limits.
  slope.SetNumber(1, 2);
  focus(&slope);
  EXPECT_TRUE(panelShown());
  EXPECT_EQ(limit(L"MinVal"), kNoLimit);
  EXPECT_EQ(limit(L"MaxVal"), kNoLimit);
  EXPECT_EQ(dialog.Root().SelectAll(L"[id='ID#LimitsTextPanel']").size(), 1u);
  EXPECT_NE(slope.Element().GetState() & STATE_OWNS_POPUP, 0u);
  EXPECT_EQ(height.Element().GetState() & STATE_OWNS_POPUP, 0u);

  focus(nullptr);
  EXPECT_FALSE(panelShown());
}

TEST_F(TextBoxCtrlTest, ALimitNotShownIsBlankAndAnOpenPopupGoesFirst) {
  create();
  height.SetNumber(5, 0);
  height.SetLimits(1.0, 9.0);
  height.SetLimitsShown(false, true);
  const CHTMElement other = dialog.ElementById(L"popOther");
  ASSERT_EQ(engine_.ShowPopup(other.Handle(), dialog.ElementById(L"btnOther").Handle(), 2), HLDOM_OK);
  focus(&height);
  EXPECT_EQ(other.GetState() & STATE_POPUP, 0u);
  EXPECT_EQ(limit(L"MinVal"), L"\u00A0");
  EXPECT_EQ(limit(L"MaxVal"), L"9");

  // Neither shown: no popup at all.
  focus(nullptr);
  height.SetLimitsShown(false, false);
  focus(&height);
  EXPECT_FALSE(panelShown());
  EXPECT_FALSE(height.ShowLimitsPopup());
}

TEST_F(TextBoxCtrlTest, SettingsMadeBeforeBindingAreWrittenWhenTheFieldIsBound) {
  height.SetNumber(3, 0);
  height.SetStep(2);
  EXPECT_FALSE(height.ShowLimitsPopup());  // unbound
  height.SelectAll();
  create();
  EXPECT_EQ(height.GetText(), L"3");
  EXPECT_EQ(height.Element().GetAttribute("step"), L"2");
  EXPECT_EQ(height.Element().GetAttribute("format"), L"fdigits:0;leading-zero:true;thousand-sep:'';grouping-sep:'';");
  focus(&height);
  press(VK_UP);
  EXPECT_EQ(height.GetText(), L"5");
}

// A page that holds its own limits panel and the tab element for it.
class TextBoxPanelTest : public DialogTest {
 protected:
  void TearDown() override {
    dialog.Close();
    DialogTest::TearDown();
  }

  CHTMTextBoxCtrl height{L"txtHeight"};
  TextBoxDialog dialog{L"HTM_DLG_TEXTBOX_PANEL"};
};

TEST_F(TextBoxPanelTest, APagesOwnPanelIsMovedToTheEndOfTheTextBoxTab) {
  dialog.RegisterControl(height);
  ASSERT_TRUE(dialog.Create());
  height.SetNumber(2, 1);
  height.SetLimits(std::nullopt, 4.0);
  engine_.setFocus(dialog.GetHwnd(), height.Element().Handle());
  const CHTMElement tab = dialog.ElementById(CHTMTextBoxCtrl::kLimitsTabId);
  const CHTMElement panel = dialog.ElementById(CHTMTextBoxCtrl::kLimitsPanelId);
  EXPECT_EQ(panel.Parent(), tab);
  EXPECT_EQ(tab.Child(tab.ChildCount() - 1), panel);
  EXPECT_EQ(panel.SelectFirst(L"div[id='MinVal']").GetText(), L"No Limit");
  EXPECT_EQ(panel.SelectFirst(L"div[id='MaxVal']").GetText(), L"4.0");
  EXPECT_NE(panel.GetState() & STATE_POPUP, 0u);
  EXPECT_EQ(dialog.Root().SelectAll(L"popup").size(), 1u);
}

}  // namespace
}  // namespace kvt1::testing
