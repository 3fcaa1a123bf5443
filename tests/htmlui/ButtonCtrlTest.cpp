#include "htmlui/CHTMButtonCtrl.h"

#include <gtest/gtest.h>

#include "platform/DialogWindow.h"
#include "tests/htmlui/ControlsDialog.h"
#include "tests/htmlui/TestDialogs.h"

namespace kvt1::testing {
namespace {

class ButtonCtrlTest : public DialogTest {
 protected:
  void TearDown() override {
    dialog.Close();
    DialogTest::TearDown();
  }

  // Declared before the dialog: they outlive its release of the page.
  CHTMButtonCtrl apply{L"btnApply"};
  CHTMButtonCtrl created{L"btnCreated"};
  CHTMButtonCtrl tooLow{L"btnTooLow"};
  CHTMButtonCtrl missing{L"btnMissing"};
  ControlsDialog dialog;
};

TEST_F(ButtonCtrlTest, PushedStateLivesInTheStateAttribute) {
  dialog.RegisterControl(apply);
  ASSERT_TRUE(dialog.Create());
  ASSERT_TRUE(apply.IsBound());
  EXPECT_FALSE(apply.IsPushed());
  EXPECT_EQ(apply.Element().GetAttribute("state"), L"");

  apply.SetPushed(true);
  apply.SetPushed(true);
  EXPECT_EQ(apply.Element().GetAttribute("state"), L"pushed");
  EXPECT_TRUE(apply.IsPushed());

  // Not pushed is written as "normal"; the attribute is never removed.
  apply.SetPushed(false);
  EXPECT_EQ(apply.Element().GetAttribute("state"), L"normal");
  EXPECT_FALSE(apply.IsPushed());

  // Another value in the page is not "pushed".
  apply.Element().SetAttribute("state", L"Pushed");
  EXPECT_FALSE(apply.IsPushed());
}

TEST_F(ButtonCtrlTest, AClickReachesTheDialogsHookAndThenTheOwnerAsButtonArgs) {
  dialog.RegisterControl(apply);
  ASSERT_TRUE(dialog.Create());
  apply.SetPushed(true);
  engine_.click(apply.Element().Handle());
  EXPECT_EQ(dialog.hookedClicks, std::vector<std::wstring>{L"btnApply"});
  ASSERT_EQ(dialog.events.size(), 1u);
  EXPECT_EQ(dialog.events[0].control, &apply);
  EXPECT_EQ(dialog.events[0].element, apply.Element().Handle());
  EXPECT_EQ(dialog.events[0].code, static_cast<UINT>(BUTTON_CLICK));
  EXPECT_TRUE(dialog.events[0].state);
  EXPECT_TRUE(platform::isWindow(dialog.GetHwnd()));  // not a standard button
}

TEST_F(ButtonCtrlTest, CreatedInPlaceItIsAppendedToTheBodyAndPlacedAbsolutely) {
  ASSERT_TRUE(dialog.Create());
  const UINT childrenBefore = dialog.Body().ChildCount();
  ASSERT_TRUE(created.CreateInPlace(dialog, 12, 34, 80, 24));
  ASSERT_TRUE(created.IsBound());
  const CHTMElement& element = created.Element();
  EXPECT_EQ(element.GetType(), L"button");
  EXPECT_EQ(element.Parent(), dialog.Body());
  EXPECT_EQ(dialog.Body().ChildCount(), childrenBefore + 1);
  EXPECT_EQ(dialog.Body().Child(childrenBefore), element);
  EXPECT_EQ(element.GetText(), L"");
  EXPECT_EQ(element.GetStyle("position"), L"absolute");
  EXPECT_EQ(element.GetStyle("left"), L"12px");
  EXPECT_EQ(element.GetStyle("top"), L"34px");
  EXPECT_EQ(created.GetWidth(), 80);
  EXPECT_EQ(created.GetHeight(), 24);

  // It is one of the dialog's controls: its clicks are reported.
  engine_.click(element.Handle());
  ASSERT_EQ(dialog.events.size(), 1u);
  EXPECT_EQ(dialog.events[0].control, &created);
}

TEST_F(ButtonCtrlTest, AWidthThatCannotBeSetFailsTheWholeCreationButTheMarkupStays) {
  ASSERT_TRUE(dialog.Create());
  EXPECT_FALSE(created.CreateInPlace(dialog, 5, 6, -1, 24));
  const CHTMElement element = dialog.ElementById(L"btnCreated");
  ASSERT_TRUE(element.IsValid());
  EXPECT_EQ(element.GetStyle("left"), L"5px");
  EXPECT_EQ(element.GetStyle("width"), L"");
  EXPECT_EQ(element.GetStyle("height"), L"");

  EXPECT_FALSE(tooLow.CreateInPlace(dialog, 5, 6, 10, -3));
  EXPECT_EQ(dialog.ElementById(L"btnTooLow").GetStyle("width"), L"10px");
}

TEST_F(ButtonCtrlTest, WithoutAWindowNothingIsCreatedAndAnUnboundButtonDoesNothing) {
  EXPECT_FALSE(created.CreateInPlace(dialog, 0, 0, 10, 10));
  EXPECT_FALSE(created.IsBound());
  dialog.RegisterControl(missing);
  ASSERT_TRUE(dialog.Create());
  EXPECT_FALSE(missing.IsBound());
  missing.SetPushed(true);
  EXPECT_FALSE(missing.IsPushed());
  EXPECT_FALSE(dialog.ElementById(L"btnCreated").IsValid());
}

}  // namespace
}  // namespace kvt1::testing
