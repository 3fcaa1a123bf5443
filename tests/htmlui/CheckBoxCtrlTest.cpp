#include "htmlui/CHTMCheckBoxCtrl.h"

#include <gtest/gtest.h>

#include "tests/htmlui/ControlsDialog.h"
#include "tests/htmlui/TestDialogs.h"

namespace kvt1::testing {
namespace {

class CheckBoxCtrlTest : public DialogTest {
 protected:
  void TearDown() override {
    dialog.Close();
    DialogTest::TearDown();
  }

  // Declared before the dialog: they outlive its release of the page.
  CHTMCheckBoxCtrl send{L"chkSend"};
  CHTMCheckBoxCtrl bare{L"chkBare"};
  CHTMCheckBoxCtrl missing{L"chkMissing"};
  CHTMCheckBoxCtrl created{L"chkCreated"};
  ControlsDialog dialog;
};

TEST_F(CheckBoxCtrlTest, BindingFindsTheInputAndTheLabelOfItsDiv) {
  dialog.RegisterControl(send);
  dialog.RegisterControl(bare);
  dialog.RegisterControl(missing);
  ASSERT_TRUE(dialog.Create());
  ASSERT_TRUE(send.IsBound());
  EXPECT_EQ(send.Input().GetType(), L"input");
  EXPECT_EQ(send.Input().Parent(), send.Element());
  EXPECT_EQ(send.Label().GetType(), L"label");
  EXPECT_EQ(send.GetCaption(), L"Send");

  // A div without them binds, but has nothing to check.
  EXPECT_TRUE(bare.IsBound());
  EXPECT_FALSE(bare.Input().IsValid());
  bare.SetCheck(true);
  EXPECT_FALSE(bare.IsChecked());

  // A check box whose element is missing fails to bind and does nothing.
  EXPECT_FALSE(missing.IsBound());
  missing.SetCheck(true);
  missing.SetCaption(L"x");
  EXPECT_FALSE(missing.IsChecked());
  EXPECT_EQ(missing.GetCaption(), L"");
}

TEST_F(CheckBoxCtrlTest, TheCheckedStateIsTheInputsEngineState) {
  dialog.RegisterControl(send);
  ASSERT_TRUE(dialog.Create());
  EXPECT_FALSE(send.IsChecked());
  send.SetCheck(true);
  EXPECT_NE(send.Input().GetState() & STATE_CHECKED, 0u);
  EXPECT_TRUE(dialog.ElementById(L"chkSend").SelectFirst(L"input:checked").IsValid());
  EXPECT_TRUE(dialog.events.empty());  // setting it is no user's change

  // A click toggles the same state and is reported with the state after it.
  engine_.click(send.Input().Handle());
  EXPECT_FALSE(send.IsChecked());
  engine_.click(send.Input().Handle());
  EXPECT_TRUE(send.IsChecked());
  ASSERT_EQ(dialog.events.size(), 2u);
  EXPECT_EQ(dialog.events[0].control, &send);
  EXPECT_EQ(dialog.events[0].element, send.Input().Handle());
  EXPECT_EQ(dialog.events[0].code, static_cast<UINT>(BUTTON_STATE_CHANGED));
  EXPECT_FALSE(dialog.events[0].state);
  EXPECT_TRUE(dialog.events[1].state);

  // A disabled check box takes no click.
  send.Enable(false);
  engine_.click(send.Input().Handle());
  EXPECT_TRUE(send.IsChecked());
  EXPECT_EQ(dialog.events.size(), 2u);
}

TEST_F(CheckBoxCtrlTest, CaptionsKeepTheirBlanksAndLineBreaks) {
  dialog.RegisterControl(send);
  ASSERT_TRUE(dialog.Create());
  send.SetCaption(L"Send usage\r\nreports <b>now</b>");
  const std::string html = send.Label().GetHtml(false);
  EXPECT_NE(html.find("usage"), std::string::npos);
  EXPECT_EQ(html.find("Send usage"), std::string::npos);  // the blank became &nbsp;
  EXPECT_TRUE(send.Label().SelectFirst(L"br").IsValid());
  EXPECT_TRUE(send.Label().SelectFirst(L"b").IsValid());  // markup passes unescaped
  EXPECT_EQ(send.GetCaption().find(L"Send usage"), 0u);
}

TEST_F(CheckBoxCtrlTest, CreatedInPlaceItShowsANonBreakingBlankUntilACaptionIsSet) {
  ASSERT_TRUE(dialog.Create());
  ASSERT_TRUE(created.CreateInPlace(dialog, 20, 40, 150, 18));
  EXPECT_EQ(created.Element().GetType(), L"div");
  EXPECT_EQ(created.Element().Parent(), dialog.Body());
  ASSERT_TRUE(created.Input().IsValid());
  EXPECT_EQ(created.Input().GetAttribute("type"), L"checkbox");
  ASSERT_TRUE(created.Label().IsValid());
  EXPECT_EQ(created.Label().GetText(), L"\u00A0");
  EXPECT_EQ(created.GetCaption(), L" ");
  EXPECT_EQ(created.Element().GetStyle("top"), L"40px");
  EXPECT_EQ(created.GetWidth(), 150);
  EXPECT_EQ(created.GetHeight(), 18);

  created.SetCaption(L"Do not ask again");
  EXPECT_EQ(created.GetCaption(), L"Do not ask again");
  engine_.click(created.Input().Handle());
  EXPECT_TRUE(created.IsChecked());
  ASSERT_EQ(dialog.events.size(), 1u);
  EXPECT_EQ(dialog.events[0].control, &created);
}

TEST_F(CheckBoxCtrlTest, AHeightThatCannotBeSetFailsTheCreationWithItsPartsInThePage) {
  ASSERT_TRUE(dialog.Create());
  EXPECT_FALSE(created.CreateInPlace(dialog, 0, 0, 150, -18));
  const CHTMElement element = dialog.ElementById(L"chkCreated");
  ASSERT_TRUE(element.IsValid());
  EXPECT_TRUE(element.SelectFirst(L"input[type='checkbox']").IsValid());
  EXPECT_EQ(element.GetStyle("height"), L"");
}

}  // namespace
}  // namespace kvt1::testing
