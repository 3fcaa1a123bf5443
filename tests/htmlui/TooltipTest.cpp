#include "htmlui/CHTMTooltipCtrl.h"

#include <gtest/gtest.h>

#include "htmlui/CHTMButtonCtrl.h"
#include "htmlui/HTMTooltipTarget.h"
#include "platform/Resources.h"
#include "platform/ThisModule.h"
#include "tests/htmlui/TestDialogs.h"
#include "tests/htmlui/TextBoxDialog.h"
#ifndef _WIN32
#include <memory>

#include "htmlui/engine/litehtml/LitehtmlLayout.h"
#endif

namespace kvt1::testing {
namespace {

const wchar_t kTooltipId[] = L"Tooltip#FormPilotDialog";

// The tooltip page as the controls demonstration dialog (5400 in the
// English texts), answering for one "ContextID" itself.
class TooltipDialog : public CHTMDialog {
 public:
  TooltipDialog() : CHTMDialog(L"HTM_DLG_TOOLTIPS", nullptr) {}

 protected:
  int TooltipDialogId() const override { return 5400; }
  std::pair<std::wstring, std::wstring> TooltipTexts(const STooltipTarget& target) override {
    if (target.contextKey == L"custom") return {L"From the dialog", L"line one\nline two"};
    return CHTMDialog::TooltipTexts(target);
  }
};

class TooltipTest : public DialogTest {
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
    for (CHTMButtonCtrl* button : {&apply, &off, &offBare, &library, &markup, &silent}) dialog.RegisterControl(*button);
    ASSERT_TRUE(dialog.Create());
  }
  CHTMElement find(const std::wstring& selector) { return dialog.Root().SelectFirst(selector); }
  // The pointer rests on the element: the engine asks for its tooltip.
  void rest(const CHTMElement& element) {
    engine_.setHover(dialog.GetHwnd(), element.Handle());
    engine_.tick(html::DomEngine::kHoverRestMs);
  }
  // Asks directly; true when the dialog handled the request.
  bool request(const CHTMElement& element) {
    BOOL handled = FALSE;
    engine_.SendEvent(element.Handle(), POPUP_REQUEST, element.Handle(), 0, &handled);
    return handled != FALSE;
  }
  bool shown() { return dialog.Tooltip().IsBound() && dialog.Tooltip().IsPopupShown(); }
  std::wstring title() { return dialog.Tooltip().Title(); }
  std::wstring details() { return dialog.Tooltip().Element().SelectFirst(L"div.details").GetText(); }
  bool anchoredAt(const CHTMElement& element) { return (element.GetState() & STATE_OWNS_POPUP) != 0; }

  // Declared before the dialog: they outlive its release of the page.
  CHTMButtonCtrl apply{L"btnApply"};
  CHTMButtonCtrl off{L"btnOff"};
  CHTMButtonCtrl offBare{L"btnOffBare"};
  CHTMButtonCtrl library{L"btnLibrary"};
  CHTMButtonCtrl markup{L"btnMarkup"};
  CHTMButtonCtrl silent{L"btnSilent"};
  CHTMTooltipCtrl tip{L"tipOwn"};
  TooltipDialog dialog;
};

TEST_F(TooltipTest, TheTooltipControlWritesItsPopupAndReplacesItsContent) {
  ASSERT_TRUE(dialog.Create());
  EXPECT_FALSE(tip.ShowBeside(dialog.Body()));  // unbound: nothing happens
  tip.SetContent(L"Title <b>bold</b>", L"First");
  ASSERT_TRUE(tip.Create(dialog));
  const CHTMElement& popup = tip.Element();
  EXPECT_EQ(popup.GetType(), L"popup");
  EXPECT_EQ(popup.GetAttribute("class"), L"Tooltip");
  EXPECT_EQ(popup.Parent(), dialog.Body());
  EXPECT_EQ(popup.SelectFirst(L"b").GetText(), L"bold");
  EXPECT_EQ(popup.SelectFirst(L"div.details").GetText(), L"First");

  tip.SetContent(L"Other", L"Second");
  EXPECT_EQ(popup.GetText(), L"OtherSecond");
  EXPECT_EQ(popup.SelectAll(L"div.details").size(), 1u);
  tip.SetDetails(L"Third <i>part</i>");
  EXPECT_EQ(popup.SelectFirst(L"div.details").GetText(), L"Third part");
  EXPECT_EQ(tip.Details(), L"Third <i>part</i>");
  EXPECT_EQ(tip.Title(), L"Other");

  EXPECT_FALSE(tip.IsPopupShown());
  ASSERT_TRUE(tip.ShowBeside(find(L"#btnApply")));
  EXPECT_TRUE(tip.IsPopupShown());
  EXPECT_TRUE(anchoredAt(find(L"#btnApply")));
  tip.Hide();
  EXPECT_FALSE(tip.IsPopupShown());
  EXPECT_FALSE(anchoredAt(find(L"#btnApply")));
  EXPECT_EQ(tip.TypeName(), L"CHTMTooltipCtrl");

  // Without content it is created empty.
  CHTMTooltipCtrl bare{L"tipBare"};
  ASSERT_TRUE(bare.Create(dialog));
  EXPECT_EQ(bare.Element().ChildCount(), 0u);
  EXPECT_EQ(bare.Element().GetText(), L"");
}

TEST_F(TooltipTest, ABoundControlsTooltipShowsBesideItWhenThePointerRests) {
  create();
  EXPECT_FALSE(dialog.ElementById(kTooltipId).IsValid());
  apply.SetTooltip(L"Apply the changes\r\nnow");
  rest(find(L"#btnApply"));
  ASSERT_TRUE(shown());
  // Written into the page when first needed; blanks and line breaks kept.
  const CHTMElement popup = dialog.ElementById(kTooltipId);
  ASSERT_TRUE(popup.IsValid());
  EXPECT_EQ(popup, dialog.Tooltip().Element());
  EXPECT_EQ(popup.GetAttribute("class"), L"Tooltip");
  EXPECT_EQ(title(), L"Apply&nbsp;the&nbsp;changes<br>now");
  EXPECT_EQ(popup.SelectAll(L"br").size(), 1u);
  EXPECT_TRUE(anchoredAt(find(L"#btnApply")));
  EXPECT_EQ(details(), L"");

  // The pointer moves on: the tooltip goes, and the next rest shows it again.
  engine_.setHover(dialog.GetHwnd(), find(L"p.plain").Handle());
  EXPECT_FALSE(shown());
  rest(find(L"#btnApply"));
  EXPECT_TRUE(shown());
  EXPECT_EQ(dialog.Root().SelectAll(L"[id='Tooltip#FormPilotDialog']").size(), 1u);
}

TEST_F(TooltipTest, ADisabledControlShowsItsSecondTextOrElseItsFirst) {
  create();
  off.SetTooltip(L"Switch on", L"Not available now");
  offBare.SetTooltip(L"Switch bare on");
  rest(find(L"#btnOff"));
  EXPECT_EQ(title(), L"Not&nbsp;available&nbsp;now");
  rest(find(L"#btnOffBare"));
  EXPECT_EQ(title(), L"Switch&nbsp;bare&nbsp;on");
  off.Enable(true);
  rest(find(L"#btnOff"));
  EXPECT_EQ(title(), L"Switch&nbsp;on");
  EXPECT_TRUE(shown());
}

TEST_F(TooltipTest, EmptyTextsShowNothingAndDontHandleTooltipIsLeftToTheEngine) {
  create();
  apply.SetTooltip(L"Apply");
  rest(find(L"#btnApply"));
  ASSERT_TRUE(shown());

  // A bound control without a text: handled, and nothing shows.
  EXPECT_TRUE(request(find(L"#btnSilent")));
  EXPECT_FALSE(shown());

  library.SetTooltip(L"DontHandleTooltip");
  rest(find(L"#btnApply"));
  EXPECT_FALSE(request(find(L"#btnLibrary")));
  EXPECT_FALSE(shown());
  EXPECT_FALSE(anchoredAt(find(L"#btnLibrary")));
}

TEST_F(TooltipTest, ElementsThatBelongToNothingGetNoTooltip) {
  create();
  EXPECT_FALSE(request(find(L"p.plain b")));
  EXPECT_FALSE(request(find(L"#loose")));      // an id, but no control and no "cid"
  EXPECT_FALSE(request(find(L"[FPID='9']")));  // an item the texts do not know
  EXPECT_FALSE(request(dialog.Root()));
  EXPECT_FALSE(request(dialog.Body()));
  rest(find(L"p.plain"));
  EXPECT_FALSE(shown());
  EXPECT_FALSE(dialog.ElementById(kTooltipId).IsValid());
}

TEST_F(TooltipTest, MarkupInATooltipTextShowsAsMarkup) {
  create();
  markup.SetTooltip(L"<b>Bold</b> & <i>5</i>");
  rest(find(L"#btnMarkup"));
  ASSERT_TRUE(shown());
  const CHTMElement popup = dialog.Tooltip().Element();
  EXPECT_EQ(popup.SelectFirst(L"b").GetText(), L"Bold");
  EXPECT_EQ(popup.SelectFirst(L"i").GetText(), L"5");
  EXPECT_EQ(popup.GetText().find(L"Bold\u00A0&\u00A05"), 0u);

  // A stray "<" does not break the page.
  markup.SetTooltip(L"a < b");
  rest(find(L"#btnApply"));
  rest(find(L"#btnMarkup"));
  EXPECT_TRUE(shown());
  EXPECT_TRUE(dialog.Root().SelectFirst(L"#btnMarkup").IsValid());
}

TEST_F(TooltipTest, SubItemsAndContextKeysTakeTheirTextsFromTheTextStore) {
  create();
  rest(find(L"#txtHeight"));
  EXPECT_EQ(title(), L"Height&nbsp;of&nbsp;the&nbsp;surface");
  EXPECT_EQ(details(), L"In metres above the aerodrome reference point; the limits show while you type.");
  EXPECT_TRUE(anchoredAt(find(L"#txtHeight")));

  rest(find(L"[FPID='1'] span"));  // inside the tool bar's first item
  EXPECT_EQ(title(), L"Add&nbsp;a&nbsp;surface");
  EXPECT_TRUE(anchoredAt(find(L"#tools [FPID='1']")));
  rest(find(L"#tools [FPID='2']"));
  EXPECT_EQ(title(), L"Remove&nbsp;the&nbsp;surface");

  rest(find(L"#surfaces"));  // the chosen option
  EXPECT_EQ(title(), L"Remove&nbsp;the&nbsp;surface");
  rest(find(L"#props span"));  // the property row
  EXPECT_EQ(title(), L"Add&nbsp;a&nbsp;surface");
  rest(find(L"#tree span"));
  EXPECT_EQ(title(), L"Remove&nbsp;the&nbsp;surface");

  rest(find(L"[ContextID='1'] span"));
  EXPECT_EQ(title(), L"Height&nbsp;of&nbsp;the&nbsp;surface");
  rest(find(L"[ContextID='custom'] span"));  // the dialog's own answer
  EXPECT_EQ(title(), L"From&nbsp;the&nbsp;dialog");
  EXPECT_EQ(dialog.Tooltip().Element().SelectAll(L"div.details br").size(), 1u);
  EXPECT_TRUE(shown());
}

TEST_F(TooltipTest, SelfTooltipsShowTheElementsOwnTextOrImage) {
  create();
  rest(find(L"[SELFTOOLTIP='Runway 09L & its strip']"));
  EXPECT_EQ(title(), L"Runway 09L & its strip");
  rest(find(L"span[SELFTOOLTIP=''] i"));
  EXPECT_EQ(dialog.Tooltip().Element().SelectFirst(L"i").GetText(), L"09L");
  rest(find(L"[SELFIMAGETOOLTIP]"));
  EXPECT_EQ(dialog.Tooltip().Element().SelectFirst(L"img").GetAttribute("src"), L"IMG_HALVORNMARK.IMAGES");
  EXPECT_TRUE(shown());
}

TEST_F(TooltipTest, APressOrAClickHidesTheTooltip) {
  create();
  apply.SetTooltip(L"Apply");
  rest(find(L"#btnApply"));
  ASSERT_TRUE(shown());
  engine_.mouse(dialog.GetHwnd(), MOUSE_DOWN, find(L"#btnApply").Handle(), POINT{1, 1});
  EXPECT_FALSE(shown());

  rest(find(L"#btnSilent"));
  rest(find(L"#btnApply"));
  ASSERT_TRUE(shown());
  engine_.click(find(L"#btnApply").Handle());
  EXPECT_FALSE(shown());
}

// A page that holds its own tooltip popup.
class PageTooltipTest : public DialogTest {
 protected:
  void TearDown() override {
    dialog.Close();
    DialogTest::TearDown();
  }
  TextBoxDialog dialog;
};

TEST_F(PageTooltipTest, ThePagesOwnPopupIsUsedAndKeepsItsTitleKey) {
  ASSERT_TRUE(dialog.Create());
  ASSERT_TRUE(dialog.Tooltip().IsBound());
  EXPECT_EQ(dialog.Tooltip().TitleKey(), L"DlgTextBoxes/TipTitle");
  const CHTMElement button = dialog.ElementById(L"btnOther");
  button.SetAttribute("SELFTOOLTIP", L"Another button");
  engine_.setHover(dialog.GetHwnd(), button.Handle());
  engine_.tick(html::DomEngine::kHoverRestMs);
  EXPECT_TRUE(dialog.Tooltip().IsPopupShown());
  EXPECT_EQ(dialog.Tooltip().Element().GetText(), L"Another button");
  EXPECT_EQ(dialog.Root().SelectAll(L"popup.Tooltip").size(), 2u);  // its own and "popOther"
}

#ifndef _WIN32
// Laid out by litehtml: the limits popup stands to the right of its field,
// the tooltip below its element, and both take room on the page.
class PopupLayoutTest : public PageTooltipTest {
 protected:
  void SetUp() override {
    PageTooltipTest::SetUp();
    platform::setResourceModule(platform::thisModuleHandle());
    engine_.setLayoutProvider(std::make_unique<html::LitehtmlLayout>());
  }
  void TearDown() override {
    platform::setResourceModule(nullptr);
    PageTooltipTest::TearDown();
  }
  RECT location(const CHTMElement& e) {
    RECT r{};
    engine_.GetElementLocation(e.Handle(), &r, ROOT_RELATIVE | BORDER_BOX);
    return r;
  }

  CHTMTextBoxCtrl height{L"txtHeight"};
  CHTMButtonCtrl other{L"btnOther"};
};

TEST_F(PopupLayoutTest, TheLimitsShowRightOfTheFieldAndTheTooltipBelowItsElement) {
  dialog.RegisterControl(height);
  dialog.RegisterControl(other);
  ASSERT_TRUE(dialog.Create());
  height.SetNumber(12.5, 2);
  height.SetLimits(0.0, 100.0);
  engine_.setFocus(dialog.GetHwnd(), height.Element().Handle());
  const RECT field = location(height.Element());
  const RECT limits = location(dialog.ElementById(CHTMTextBoxCtrl::kLimitsPanelId));
  EXPECT_GE(limits.left, field.right);
  EXPECT_LT(limits.top, field.bottom);
  EXPECT_GT(limits.bottom - limits.top, 20);  // two rows

  other.SetTooltip(L"Apply the changes");
  engine_.setHover(dialog.GetHwnd(), other.Element().Handle());
  engine_.tick(html::DomEngine::kHoverRestMs);
  const RECT button = location(other.Element());
  const RECT tip = location(dialog.Tooltip().Element());
  EXPECT_GE(tip.top, button.bottom);
  EXPECT_GT(tip.right - tip.left, 50);
  EXPECT_TRUE(engine_.renderPng(dialog.GetHwnd(), ::testing::TempDir() + "kvt1_tooltip_test.png"));
}
#endif

}  // namespace
}  // namespace kvt1::testing
