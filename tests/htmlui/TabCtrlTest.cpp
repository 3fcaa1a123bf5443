#include "htmlui/CHTMTabCtrl.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "htmlui/HTMEngine.h"
#include "platform/Win32.h"
#include "tests/htmlui/TestDialogs.h"
#ifndef _WIN32
#include "htmlui/engine/litehtml/LitehtmlLayout.h"
#endif

namespace kvt1::testing {
namespace {

struct TabChange {
  CHTMCtrl* control = nullptr;
  HELEMENT header = nullptr;
  UINT code = 0;
  int index = -1;
  UINT reason = 0;
};

// The test page "HTM_DLG_TABS" as a modeless dialog that records what its tab controls report.
class TabsDialog : public CHTMDialog {
 public:
  TabsDialog() : CHTMDialog(L"HTM_DLG_TABS", nullptr) {}

  std::vector<TabChange> changes;
  std::vector<int> indexes() const {
    std::vector<int> found;
    for (const TabChange& change : changes) found.push_back(change.index);
    return found;
  }

 protected:
  void OnControlEvent(SHTMCtrlEventArgs& args) override {
    ASSERT_EQ(args.control->TypeName(), L"CHTMTabCtrl");
    const auto& tab = static_cast<SHTMTabCtrlEventArgs&>(args);
    changes.push_back(TabChange{args.control, args.element, args.code, tab.index, tab.reason});
  }
};

class TabCtrlTest : public DialogTest {
 protected:
  void TearDown() override {
    dialog.Close();
    DialogTest::TearDown();
  }

  // A tab set written into the page by the control.
  void createTabs(const std::vector<std::wstring>& captions) {
    ASSERT_TRUE(dialog.Create());
    ASSERT_TRUE(created.CreateInPlace(dialog, 10, 10, 300, 150));
    for (const std::wstring& caption : captions) created.AddTab(caption);
  }

  bool visible(const CHTMElement& element) {
    BOOL shown = FALSE;
    return engine_.IsElementVisible(element.Handle(), &shown) == HLDOM_OK && shown;
  }

  // Declared before the dialog: they outlive its release of the page.
  CHTMTabCtrl options{L"tabsOptions"};
  CHTMTabCtrl created{L"tabsCreated"};
  CHTMTabCtrl missing{L"tabsMissing"};
  TabsDialog dialog;
};

TEST_F(TabCtrlTest, BoundToThePagesTabSetItShowsThePanelOfTheHeaderMarkedSelected) {
  dialog.RegisterControl(options);
  ASSERT_TRUE(dialog.Create());
  ASSERT_TRUE(options.IsBound());
  EXPECT_EQ(options.GetTabCount(), 5);
  EXPECT_EQ(options.GetCurrentTab(), 1);
  EXPECT_EQ(options.GetPanelName(1), L"advanced");
  EXPECT_EQ(options.GetPanel(1).GetText(), L"Advanced settings");
  EXPECT_TRUE((options.GetPanel(1).GetState() & STATE_EXPANDED) != 0);
  EXPECT_EQ(options.GetPanel(1).GetStyle("display"), L"block");
  // The page's strip and panels are used as they are; the scroll buttons are added, hidden.
  EXPECT_EQ(options.Element().SelectAll(L":root>.strip").size(), 1u);
  EXPECT_EQ(options.ScrollButtons().Parent(), options.Element());
  EXPECT_FALSE(options.AreScrollButtonsShown());
  // Attaching chose the header: the owner heard of it.
  ASSERT_EQ(dialog.changes.size(), 1u);
  EXPECT_EQ(dialog.changes[0].control, &options);
  EXPECT_EQ(dialog.changes[0].header, options.GetHeader(1).Handle());
  EXPECT_EQ(dialog.changes[0].code, static_cast<UINT>(ELEMENT_EXPANDED));
  EXPECT_EQ(dialog.changes[0].reason, static_cast<UINT>(SYNTHESIZED));

  // Selecting it again reports nothing; selecting another collapses the old panel.
  EXPECT_TRUE(options.SelectTab(1));
  EXPECT_EQ(dialog.changes.size(), 1u);
  EXPECT_TRUE(options.SelectTab(L"general"));
  EXPECT_EQ(options.GetCurrentTab(), 0);
  EXPECT_EQ(options.GetPanel(1).GetState() & (STATE_EXPANDED | STATE_COLLAPSED), static_cast<UINT>(STATE_COLLAPSED));
  EXPECT_EQ(options.GetPanel(1).GetStyle("display"), L"none");
  EXPECT_EQ(options.GetPanel(0).GetStyle("display"), L"block");
  EXPECT_EQ(dialog.indexes(), (std::vector<int>{1, 0}));
}

TEST_F(TabCtrlTest, CreatedInPlaceItWritesItsMarkupAndAddsTabsInOrder) {
  createTabs({});
  EXPECT_EQ(created.Element().Parent(), dialog.Body());
  EXPECT_EQ(created.Element().GetStyle("position"), L"absolute");
  EXPECT_EQ(created.Element().GetHtml(true),
            "<div id=\"tabsCreated\" class=\"tabs\"><div class=\"strip\" tabindex=\"0\"></div>"
            "<div class=\"panels\"></div><div class=\"ScrollButtonsContainer\"><button type=\"Prev\">\u25C0</button>"
            "<button type=\"Next\">\u25B6</button></div></div>");
  EXPECT_EQ(created.GetTabCount(), 0);
  EXPECT_EQ(created.GetCurrentTab(), -1);

  EXPECT_EQ(created.AddTab(L"General"), 0);
  EXPECT_EQ(created.AddTab(L"Advanced options"), 1);
  EXPECT_EQ(created.Strip().GetHtml(true),
            "<div class=\"strip\" tabindex=\"0\"><div panel=\"panel-id1\">General</div>"
            "<div panel=\"panel-id2\">Advanced\u00A0options</div></div>");
  EXPECT_EQ(created.Panels().GetHtml(true),
            "<div class=\"panels\"><div name=\"panel-id1\"></div><div name=\"panel-id2\"></div></div>");
  EXPECT_EQ(created.GetTabCaption(1), L"Advanced options");
  // Panels created visible show until a selection collapses them; adding selects nothing.
  EXPECT_EQ(created.GetCurrentTab(), -1);
  EXPECT_TRUE(visible(created.GetPanel(0)));
  EXPECT_TRUE(dialog.changes.empty());

  ASSERT_TRUE(created.SetTabColor(0, 0x00FF00, 30));
  EXPECT_EQ(created.GetHeader(0).GetStyle("background-color"), L"rgba(0,255,0,0.7)");
  created.SetContextMenu(L"menuTabs");
  EXPECT_EQ(created.Strip().GetStyle("context-menu"), L"selector(menu#menuTabs)");
}

TEST_F(TabCtrlTest, AddingAtAPositionSwapsTheNewTabThereAndBeyondTheLastAppends) {
  createTabs({L"A", L"B", L"C"});
  ASSERT_TRUE(created.SelectTab(1));
  EXPECT_EQ(created.AddTab(L"X", 1), 1);
  EXPECT_EQ(created.Strip().GetHtml(false),
            "<div panel=\"panel-id1\">A</div><div panel=\"panel-id4\">X</div>"
            "<div panel=\"panel-id2\">B</div><div panel=\"panel-id3\">C</div>");
  EXPECT_EQ(created.Panels().GetHtml(false),
            "<div name=\"panel-id1\"></div><div name=\"panel-id4\"></div>"
            "<div name=\"panel-id2\"></div><div name=\"panel-id3\"></div>");
  // The current tab moved with its header.
  EXPECT_EQ(created.GetCurrentTab(), 2);

  EXPECT_EQ(created.AddTab(L"Y", 99), 4);
  EXPECT_EQ(created.GetPanelName(4), L"panel-id5");
  EXPECT_EQ(created.AddTab(L"Z", 4), 4);
  EXPECT_EQ(created.AddTab(L"First", 0), 0);
  std::vector<std::wstring> captions;
  for (int i = 0; i < created.GetTabCount(); ++i) captions.push_back(created.GetTabCaption(i));
  EXPECT_EQ(captions, (std::vector<std::wstring>{L"First", L"A", L"X", L"B", L"C", L"Z", L"Y"}));
  // Each header still finds its own panel, and the panels are in tab order.
  for (int i = 0; i < created.GetTabCount(); ++i) {
    EXPECT_EQ(created.GetPanel(i).GetAttribute("name"), created.GetPanelName(i));
    EXPECT_EQ(created.Panels().Child(i), created.GetPanel(i));
  }
  EXPECT_EQ(created.AddTab(L"Negative", -5), 7);
}

TEST_F(TabCtrlTest, WithHiddenPanelCreationNoPanelShowsUntilOneIsSelected) {
  created.SetCreatePanelsHidden(true);
  createTabs({L"One", L"Two"});
  EXPECT_EQ(
      created.Panels().GetHtml(false),
      "<div name=\"panel-id1\" style=\"display:none;\"></div><div name=\"panel-id2\" style=\"display:none;\"></div>");
  EXPECT_FALSE(visible(created.GetPanel(0)));
  EXPECT_FALSE(visible(created.GetPanel(1)));
  EXPECT_EQ(created.GetCurrentTab(), -1);
  EXPECT_TRUE(dialog.changes.empty());

  ASSERT_TRUE(created.SelectTab(1));
  EXPECT_FALSE(visible(created.GetPanel(0)));
  EXPECT_TRUE(visible(created.GetPanel(1)));
  ASSERT_EQ(dialog.changes.size(), 1u);
  EXPECT_EQ(dialog.changes[0].header, created.GetHeader(1).Handle());
  EXPECT_EQ(dialog.changes[0].index, 1);
  EXPECT_EQ(dialog.changes[0].reason, static_cast<UINT>(SYNTHESIZED));

  ASSERT_TRUE(created.SelectTab(L"panel-id1"));
  EXPECT_TRUE(visible(created.GetPanel(0)));
  EXPECT_FALSE(visible(created.GetPanel(1)));
  EXPECT_TRUE((created.GetPanel(1).GetState() & STATE_COLLAPSED) != 0);
  EXPECT_TRUE((created.GetHeader(0).GetState() & STATE_CURRENT) != 0);
  EXPECT_FALSE((created.GetHeader(1).GetState() & STATE_CURRENT) != 0);
}

TEST_F(TabCtrlTest, SelectingAnIndexOutOfRangeOrAnUnknownNameChangesNothing) {
  createTabs({L"One", L"Two"});
  ASSERT_TRUE(created.SelectTab(0));
  for (const int index : {-1, 2, 100}) EXPECT_FALSE(created.SelectTab(index)) << index;
  for (const wchar_t* name : {L"", L"panel-id3", L"One", L"it's"}) EXPECT_FALSE(created.SelectTab(name));
  EXPECT_EQ(created.GetCurrentTab(), 0);
  EXPECT_EQ(dialog.changes.size(), 1u);
  EXPECT_FALSE(created.GetPanel(-1).IsValid());
  EXPECT_FALSE(created.SetTabCaption(2, L"None"));
  EXPECT_FALSE(created.SetTabColor(-1, 0));
  EXPECT_FALSE(created.RemoveTab(2));
  EXPECT_EQ(created.GetTabCount(), 2);
}

TEST_F(TabCtrlTest, AfterARemovalANewTabMayShareANameAndEachHeaderKeepsItsOwnPanel) {
  created.SetCreatePanelsHidden(true);
  createTabs({L"A", L"B", L"C"});
  ASSERT_TRUE(created.RemoveTab(0));
  // Names come from the count: two tabs left, so the next is "panel-id3" again.
  EXPECT_EQ(created.AddTab(L"D"), 2);
  EXPECT_EQ(created.Strip().GetHtml(false),
            "<div panel=\"panel-id2\">B</div><div panel=\"panel-id3\">C</div><div panel=\"panel-id3\">D</div>");
  const CHTMElement panelC = created.GetPanel(1);
  const CHTMElement panelD = created.GetPanel(2);
  ASSERT_TRUE(panelC.IsValid());
  ASSERT_TRUE(panelD.IsValid());
  EXPECT_FALSE(panelC == panelD);

  // By the shared name, the first tab that carries it.
  ASSERT_TRUE(created.SelectTab(L"panel-id3"));
  EXPECT_EQ(created.GetCurrentTab(), 1);
  EXPECT_TRUE(visible(panelC));
  EXPECT_FALSE(visible(panelD));
  // By index, the second one shows its own panel.
  ASSERT_TRUE(created.SelectTab(2));
  EXPECT_FALSE(visible(panelC));
  EXPECT_TRUE(visible(panelD));
  EXPECT_EQ(dialog.indexes(), (std::vector<int>{1, 2}));
}

TEST_F(TabCtrlTest, RemovingTheCurrentTabMakesTheNextOrElseThePreviousOneCurrent) {
  created.SetCreatePanelsHidden(true);
  createTabs({L"A", L"B", L"C"});
  ASSERT_TRUE(created.SelectTab(1));
  ASSERT_TRUE(created.RemoveTab(1));
  EXPECT_EQ(created.GetCurrentTab(), 1);
  EXPECT_EQ(created.GetTabCaption(1), L"C");
  EXPECT_TRUE(visible(created.GetPanel(1)));
  EXPECT_EQ(created.Panels().ChildCount(), 2u);

  ASSERT_TRUE(created.RemoveTab(1));
  EXPECT_EQ(created.GetCurrentTab(), 0);
  EXPECT_TRUE(visible(created.GetPanel(0)));
  EXPECT_EQ(dialog.indexes(), (std::vector<int>{1, 1, 0}));

  // A tab that is not current goes without a report; the last one leaves none current.
  ASSERT_TRUE(created.SelectTab(0));
  ASSERT_TRUE(created.RemoveTab(0));
  EXPECT_EQ(created.GetCurrentTab(), -1);
  EXPECT_EQ(created.Strip().GetHtml(false), "");
  EXPECT_EQ(created.Panels().GetHtml(false), "");
  EXPECT_EQ(dialog.changes.size(), 3u);
}

TEST_F(TabCtrlTest, CaptionMarkupShowsButCannotBreakTheStrip) {
  createTabs({L"<b>Bold</b> & more"});
  const CHTMElement header = created.GetHeader(0);
  EXPECT_EQ(header.SelectFirst(L"b").GetText(), L"Bold");
  EXPECT_EQ(created.GetTabCaption(0), L"Bold & more");

  EXPECT_EQ(created.AddTab(L"</div></div><div panel='x'>Evil"), 1);
  EXPECT_EQ(created.GetTabCount(), 2);
  EXPECT_EQ(created.Strip().ChildCount(), 2u);
  EXPECT_EQ(created.Element().ChildCount(), 3u);
  EXPECT_EQ(created.GetPanelName(1), L"panel-id2");
  EXPECT_TRUE(created.SelectTab(1));
  EXPECT_EQ(created.GetCurrentTab(), 1);

  ASSERT_TRUE(created.SetTabCaption(0, L"a < b"));
  EXPECT_EQ(created.GetTabCaption(0), L"a < b");
  EXPECT_EQ(created.GetTabCount(), 2);
}

TEST_F(TabCtrlTest, AClickOrAPressOnAHeaderSelectsItUnlessItIsDisabled) {
  dialog.RegisterControl(options);
  ASSERT_TRUE(dialog.Create());
  dialog.changes.clear();
  engine_.click(options.GetHeader(0).Handle());
  EXPECT_EQ(options.GetCurrentTab(), 0);
  ASSERT_EQ(dialog.changes.size(), 1u);
  EXPECT_EQ(dialog.changes[0].reason, static_cast<UINT>(BY_MOUSE_CLICK));
  EXPECT_EQ(dialog.changes[0].header, options.GetHeader(0).Handle());

  // A click on text inside a header selects that header; the current one again reports nothing.
  engine_.click(options.GetHeader(0).Handle());
  EXPECT_EQ(dialog.changes.size(), 1u);
  EXPECT_FALSE(engine_.click(options.GetHeader(3).Handle()));
  EXPECT_EQ(options.GetCurrentTab(), 0);

  // A press of the main button selects, and the focus goes to the strip, so that keys work.
  engine_.mouse(dialog.GetHwnd(), MOUSE_DOWN, options.GetHeader(4).Handle(), POINT{0, 0});
  EXPECT_EQ(options.GetCurrentTab(), 4);
  EXPECT_TRUE((options.Strip().GetState() & STATE_FOCUS) != 0);
  engine_.mouse(dialog.GetHwnd(), MOUSE_DOWN, options.GetHeader(3).Handle(), POINT{0, 0});
  EXPECT_EQ(options.GetCurrentTab(), 4);
  EXPECT_EQ(dialog.indexes(), (std::vector<int>{0, 4}));
  EXPECT_EQ(dialog.changes[1].reason, static_cast<UINT>(BY_MOUSE_CLICK));
}

TEST_F(TabCtrlTest, KeysMoveBetweenHeadersWhileTheStripHasTheFocus) {
  dialog.RegisterControl(options);
  ASSERT_TRUE(dialog.Create());
  dialog.changes.clear();
  const HWND hwnd = dialog.GetHwnd();
  EXPECT_FALSE(engine_.key(hwnd, KEY_DOWN, VK_RIGHT, 0));
  EXPECT_EQ(options.GetCurrentTab(), 1);

  ASSERT_TRUE(engine_.setFocus(hwnd, options.Strip().Handle()));
  // Past the hidden and the disabled header to the last one, where it stays.
  EXPECT_TRUE(engine_.key(hwnd, KEY_DOWN, VK_RIGHT, 0));
  EXPECT_EQ(options.GetCurrentTab(), 4);
  EXPECT_TRUE(engine_.key(hwnd, KEY_DOWN, VK_RIGHT, 0));
  EXPECT_EQ(options.GetCurrentTab(), 4);
  EXPECT_TRUE(engine_.key(hwnd, KEY_DOWN, VK_HOME, 0));
  EXPECT_EQ(options.GetCurrentTab(), 0);
  EXPECT_TRUE(engine_.key(hwnd, KEY_DOWN, VK_LEFT, 0));
  EXPECT_EQ(options.GetCurrentTab(), 0);
  EXPECT_TRUE(engine_.key(hwnd, KEY_DOWN, VK_END, 0));
  EXPECT_TRUE(engine_.key(hwnd, KEY_DOWN, VK_LEFT, 0));
  EXPECT_EQ(options.GetCurrentTab(), 1);
  // Other keys and key releases pass.
  EXPECT_FALSE(engine_.key(hwnd, KEY_DOWN, 0x41, 0));
  EXPECT_FALSE(engine_.key(hwnd, KEY_UP, VK_RIGHT, 0));
  EXPECT_EQ(options.GetCurrentTab(), 1);

  EXPECT_EQ(dialog.indexes(), (std::vector<int>{4, 0, 4, 1}));
  for (const TabChange& change : dialog.changes) EXPECT_EQ(change.reason, static_cast<UINT>(BY_KEY_CLICK));
}

TEST_F(TabCtrlTest, APageAttachesTheBehaviourByNameWithoutAControl) {
  ASSERT_TRUE(dialog.Create());
  const CHTMElement set = dialog.ElementById(L"tabsPage");
  const CHTMElement one = set.SelectFirst(L"[panel='one']");
  const CHTMElement two = set.SelectFirst(L"[panel='two']");
  EXPECT_TRUE((one.GetState() & STATE_CURRENT) != 0);
  EXPECT_TRUE((set.SelectFirst(L"[name='one']").GetState() & STATE_EXPANDED) != 0);
  engine_.click(two.Handle());
  EXPECT_TRUE((two.GetState() & STATE_CURRENT) != 0);
  EXPECT_FALSE((one.GetState() & STATE_CURRENT) != 0);
  EXPECT_EQ(set.SelectFirst(L"[name='one']").GetStyle("display"), L"none");
  EXPECT_EQ(set.SelectFirst(L"[name='two']").GetStyle("display"), L"block");
  EXPECT_TRUE(dialog.changes.empty());
}

TEST_F(TabCtrlTest, AnUnboundControlDoesNothing) {
  dialog.RegisterControl(missing);
  ASSERT_TRUE(dialog.Create());
  EXPECT_FALSE(missing.IsBound());
  EXPECT_EQ(missing.AddTab(L"One"), -1);
  EXPECT_EQ(missing.GetCurrentTab(), -1);
  EXPECT_FALSE(missing.SelectTab(L"panel-id1"));
  EXPECT_FALSE(created.CreateInPlace(dialog, 0, 0, -1, 10));
}

#ifndef _WIN32
// Geometry from litehtml: the strip is 220 pixels wide, the captions wider together.
class TabStripScrollTest : public TabCtrlTest {
 protected:
  void SetUp() override {
    TabCtrlTest::SetUp();
    engine_.setLayoutProvider(std::make_unique<html::LitehtmlLayout>());
    ASSERT_TRUE(dialog.Create());
    ASSERT_TRUE(created.CreateInPlace(dialog, 10, 10, 220, 120));
  }

  RECT box(const CHTMElement& element) {
    RECT rect{0, 0, 0, 0};
    engine_.GetElementLocation(element.Handle(), &rect, ROOT_RELATIVE | BORDER_BOX);
    return rect;
  }
  // Wholly within the strip's visible part, left of the scroll buttons.
  bool inView(int index) {
    const RECT header = box(created.GetHeader(index));
    const RECT strip = box(created.Strip());
    return header.left >= strip.left && header.right <= strip.right;
  }
  // A pointer press and release in the middle of the scroll button.
  void clickButton(const wchar_t* type) {
    const RECT button = box(created.ScrollButtons().SelectFirst(std::wstring(L"[type='") + type + L"']"));
    const std::intptr_t at =
        (static_cast<std::intptr_t>((button.top + button.bottom) / 2) << 16) | ((button.left + button.right) / 2);
    platform::sendMessage(dialog.GetHwnd(), WM_LBUTTONDOWN, 1, at);
    platform::sendMessage(dialog.GetHwnd(), WM_LBUTTONUP, 0, at);
  }
};

TEST_F(TabStripScrollTest, NextBringsAHeaderThatWasOutOfViewIntoViewAndMovesTheStripOnly) {
  for (int i = 1; i <= 6; ++i) created.AddTab(L"Settings " + std::to_wstring(i));
  ASSERT_TRUE(created.SelectTab(0));
  ASSERT_TRUE(created.AreScrollButtonsShown());
  const RECT buttons = box(created.ScrollButtons());
  const RECT set = box(created.Element());
  EXPECT_GT(buttons.right, buttons.left);
  EXPECT_EQ(buttons.right, set.right);
  EXPECT_EQ(created.Strip().GetStyle("margin-right"), std::to_wstring(buttons.right - buttons.left) + L"px");
  EXPECT_LE(box(created.Strip()).right, buttons.left);

  int hidden = 0;
  while (hidden < 6 && inView(hidden)) ++hidden;
  ASSERT_GT(hidden, 0);
  ASSERT_LT(hidden, 6);
  for (int step = 0; step < 6 && !inView(hidden); ++step) clickButton(L"Next");
  EXPECT_TRUE(inView(hidden));
  EXPECT_GT(created.GetFirstShownTab(), 0);
  EXPECT_FALSE(inView(0));
  // The current header stays current out of view, and the owner hears of no change.
  const std::size_t reported = dialog.changes.size();
  EXPECT_EQ(created.GetCurrentTab(), 0);

  // Next stops at the last header; Prev goes back to the first.
  for (int step = 0; step < 10; ++step) clickButton(L"Next");
  EXPECT_TRUE(inView(5));
  EXPECT_EQ(created.GetCurrentTab(), 0);
  for (int step = 0; step < 10; ++step) clickButton(L"Prev");
  EXPECT_EQ(created.GetFirstShownTab(), 0);
  EXPECT_TRUE(inView(0));
  EXPECT_EQ(created.GetCurrentTab(), 0);
  EXPECT_EQ(dialog.changes.size(), reported);
}

TEST_F(TabStripScrollTest, SelectingAHeaderOutOfViewScrollsItInAndRemovalsHideTheButtons) {
  for (int i = 1; i <= 6; ++i) created.AddTab(L"Settings " + std::to_wstring(i));
  ASSERT_TRUE(created.SelectTab(5));
  EXPECT_TRUE(inView(5));
  EXPECT_FALSE(inView(0));
  // A click lands on the header in view.
  const RECT header = box(created.GetHeader(5));
  HELEMENT hit = nullptr;
  ASSERT_EQ(engine_.FindElement(dialog.GetHwnd(),
                                POINT{(header.left + header.right) / 2, (header.top + header.bottom) / 2}, &hit),
            HLDOM_OK);
  EXPECT_EQ(hit, created.GetHeader(5).Handle());

  ASSERT_TRUE(created.SelectTab(0));
  EXPECT_TRUE(inView(0));
  while (created.GetTabCount() > 2) created.RemoveTab(created.GetTabCount() - 1);
  EXPECT_FALSE(created.AreScrollButtonsShown());
  EXPECT_EQ(created.Strip().GetStyle("margin-right"), L"");
  EXPECT_TRUE(inView(1));
}
#endif

}  // namespace
}  // namespace kvt1::testing
