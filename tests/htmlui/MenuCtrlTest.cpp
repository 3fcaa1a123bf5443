// The menu control on our DOM engine: its three kinds of element, the exact
// markup of its items, later changes of rendered items, choices mapped back
// to items, large and deep trees, and the dialog's own context menu.
#include "htmlui/CHTMMenuCtrl.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "platform/DialogWindow.h"
#include "platform/Unicode.h"
#include "platform/Win32.h"
#include "tests/htmlui/TestDialogs.h"
#ifdef _WIN32
#include <windows.h>
#else
#include "htmlui/engine/litehtml/LitehtmlLayout.h"
#include "platform/posix/HeadlessDesktop.h"
#endif

namespace kvt1::testing {
namespace {

// The test page "HTM_DLG_MENUS": the context menu of the paragraph
// "surface" lists entries; every choice and command is recorded.
class MenuDialog : public CHTMDialog {
 public:
  MenuDialog() : CHTMDialog(L"HTM_DLG_MENUS", nullptr) {}

  std::vector<SHTMMenuCtrlEventArgs> choices;
  std::vector<std::wstring> asked;  // ids offered to HasContextMenu
  POINT filledAt{-1, -1};
  std::vector<SHTMMenuEntry> entries;
  std::vector<std::pair<std::wstring, unsigned>> commands;

 protected:
  void OnControlEvent(SHTMCtrlEventArgs& args) override {
    if (args.control->TypeName() == L"CHTMMenuCtrl") choices.push_back(static_cast<SHTMMenuCtrlEventArgs&>(args));
  }
  bool HasContextMenu(const CHTMElement&, const std::wstring& id) override {
    asked.push_back(id);
    return id == L"surface";
  }
  void FillContextMenu(const std::wstring&, POINT point, std::vector<SHTMMenuEntry>& out) override {
    filledAt = point;
    out = entries;
  }
  void OnContextMenuCommand(const std::wstring& id, unsigned command) override { commands.emplace_back(id, command); }
};

std::wstring n(const SHTMMenuItem* item) { return MenuItemNumberText(item->number); }

class MenuCtrlTest : public DialogTest {
 protected:
  void TearDown() override {
    dialog.Close();
    DialogTest::TearDown();
  }
  void create() {
    dialog.RegisterControl(menu);
    ASSERT_TRUE(dialog.Create());
    ASSERT_TRUE(menu.IsBound());
  }
  std::string html(const CHTMCtrl& control) { return control.Element().GetHtml(false); }
  bool shown(const CHTMElement& popup) { return (popup.GetState() & STATE_POPUP) != 0; }
  // Puts the cursor on a point of the dialog's client area.
  void moveCursor(POINT client) {
#ifdef _WIN32
    POINT screen = client;
    ClientToScreen(dialog.GetHwnd(), &screen);
    SetCursorPos(screen.x, screen.y);
#else
    const platform::WindowRect rect = platform::windowRect(dialog.GetHwnd());
    platform::HeadlessDesktop::instance().setCursor({rect.left + client.x, rect.top + client.y});
#endif
  }

  // Declared before the dialog: they outlive its release of the page.
  CHTMMenuCtrl menu{L"mnuPage", CHTMMenuCtrl::Kind::Context};
  CHTMMenuCtrl button{L"mnuButton", CHTMMenuCtrl::Kind::Button};
  CHTMMenuCtrl bar{L"mnuBar", CHTMMenuCtrl::Kind::Bar};
  MenuDialog dialog;
};

TEST_F(MenuCtrlTest, EachKindWritesItsElementWhenThePageLacksIt) {
  EXPECT_EQ(button.Markup(), L"<Button type='menu' id='mnuButton' ></Button>");
  EXPECT_EQ(menu.Markup(), L"<menu.context id='mnuPage' ></menu>");
  EXPECT_EQ(bar.Markup(), L"<widget id='mnuBar' class='menu-bar'></widget>");
  create();
  const std::size_t pageMenus = dialog.Root().SelectAll(L"menu").size();
  ASSERT_TRUE(menu.Create(dialog));  // present: bound again, nothing written
  EXPECT_EQ(dialog.Root().SelectAll(L"menu").size(), pageMenus);

  ASSERT_TRUE(bar.Create(dialog));
  EXPECT_EQ(bar.Element().GetHtml(true), "<widget id=\"mnuBar\" class=\"menu-bar\"></widget>");
  EXPECT_EQ(bar.Element().Parent(), dialog.Body());
  ASSERT_TRUE(button.CreateInPlace(dialog, 10, 20, 80, 24));
  EXPECT_EQ(button.Element().GetType(), L"button");
  EXPECT_EQ(button.Element().GetAttribute("type"), L"menu");
  EXPECT_EQ(button.Element().GetStyle("top"), L"20px");
}

TEST_F(MenuCtrlTest, ItemsRenderAsTheLibrarysMenuMarkup) {
  create();
  SHTMMenuItem* open = menu.AddItem(L"Open file", nullptr, 1);
  open->icon = L"IMG_OPEN.IMAGES";
  SHTMMenuItem* grid = menu.AddItem(L"Grid", nullptr, 2);
  grid->checked = true;
  SHTMMenuItem* red = menu.AddColorItem(L"Red", L"#ff0000", nullptr, 3);
  red->disabled = true;
  SHTMMenuItem* blue = menu.AddColorItem(L"Blue", L"#0000ff");
  blue->checked = true;  // checked wins over the colour type
  SHTMMenuItem* line = menu.AddSeparator();
  line->text = L"ignored";
  line->checked = true;
  line->icon = L"IMG_OPEN.IMAGES";
  SHTMMenuItem* zoom = menu.AddItem(L"Zoom");
  SHTMMenuItem* in = menu.AddItem(L"In", zoom);

  const std::wstring expected = L"<menu><li  FPID='" + n(open) +
                                L"' style='foreground-image:url(IMG_OPEN.IMAGES);'>Open&nbsp;file</li>"
                                L"<li  status='checked'  FPID='" +
                                n(grid) +
                                L"' >Grid</li>"
                                L"<li  type='color'  disabled  FPID='" +
                                n(red) +
                                L"' >Red</li>"
                                L"<li  status='checked'  FPID='" +
                                n(blue) +
                                L"' >Blue</li>"
                                L"<hr FPID='" +
                                n(line) +
                                L"' />"
                                L"<li  FPID='" +
                                n(zoom) + L"' >Zoom<menu><li  FPID='" + n(in) + L"' >In</li></menu></li></menu>";
  EXPECT_EQ(RenderMenuLevel(menu.FirstItem()), expected);

  menu.Render();
  const std::string nbsp = "\xC2\xA0";
  EXPECT_EQ(html(menu), "<menu><li FPID=\"" + platform::toUtf8(n(open)) +
                            "\" style=\"foreground-image:url(IMG_OPEN.IMAGES);\">Open" + nbsp +
                            "file</li>"
                            "<li status=\"checked\" FPID=\"" +
                            platform::toUtf8(n(grid)) +
                            "\">Grid</li>"
                            "<li type=\"color\" disabled=\"\" FPID=\"" +
                            platform::toUtf8(n(red)) +
                            "\">Red</li>"
                            "<li status=\"checked\" FPID=\"" +
                            platform::toUtf8(n(blue)) +
                            "\">Blue</li>"
                            "<hr FPID=\"" +
                            platform::toUtf8(n(line)) +
                            "\">"
                            "<li FPID=\"" +
                            platform::toUtf8(n(zoom)) + "\">Zoom<menu><li FPID=\"" + platform::toUtf8(n(in)) +
                            "\">In</li></menu></li></menu>");

  // Only the colour item proper gets the recoloured icon.
  const CHTMElement redLi = menu.ItemElement(*red);
  EXPECT_EQ(redLi.GetStyle("foreground-image"), L"url(ICON_MENUCOLOR.NEWICONS)");
  EXPECT_EQ(redLi.GetStyle("foreground-image-transformation"),
            L"color-schema(#ff0000,#000000,#000000,#000000,#000000)");
  EXPECT_EQ(menu.ItemElement(*blue).GetStyle("foreground-image"), L"");
  EXPECT_NE(redLi.GetState() & STATE_DISABLED, 0u);
}

TEST_F(MenuCtrlTest, AnEmptyMenuIsAnEmptyLevel) {
  create();
  EXPECT_EQ(RenderMenuLevel(nullptr), L"<menu></menu>");
  menu.Render();
  EXPECT_EQ(html(menu), "<menu></menu>");
}

TEST_F(MenuCtrlTest, TextsPassTheirMarkupIntoThePageUnescaped) {
  create();
  SHTMMenuItem* item = menu.AddItem(L"<b>Bold</b> & <i>co</i>\r\nnext");
  menu.Render();
  const CHTMElement li = menu.ItemElement(*item);
  ASSERT_TRUE(li.IsValid());
  EXPECT_EQ(li.SelectFirst(L"b").GetText(), L"Bold");
  EXPECT_EQ(li.SelectFirst(L"i").GetText(), L"co");
  EXPECT_TRUE(li.SelectFirst(L"br").IsValid());
  EXPECT_EQ(li.GetText(), L"Bold\u00A0&\u00A0conext");
}

TEST_F(MenuCtrlTest, RenderedItemsAreCheckedAndHiddenLater) {
  create();
  SHTMMenuItem* grid = menu.AddItem(L"Grid");
  SHTMMenuItem* snap = menu.AddItem(L"Snap");
  menu.Render();
  menu.CheckItem(*grid, true);
  EXPECT_TRUE(grid->checked);
  EXPECT_EQ(menu.ItemElement(*grid).GetAttribute("status"), L"checked");
  menu.CheckItem(*grid, false);
  EXPECT_EQ(menu.ItemElement(*grid).GetAttribute("status"), L"normal");  // set, never removed
  menu.ShowItem(*snap, false);
  EXPECT_EQ(menu.ItemElement(*snap).GetStyle("display"), L"none");
  menu.ShowItem(*snap, true);
  EXPECT_EQ(menu.ItemElement(*snap).GetStyle("display"), L"block");
}

TEST_F(MenuCtrlTest, AChoiceComesBackAsItsItem) {
  create();
  menu.AddItem(L"One", nullptr, 1);
  SHTMMenuItem* two = menu.AddItem(L"Two", nullptr, 2);
  SHTMMenuItem* off = menu.AddItem(L"Off", nullptr, 3);
  off->disabled = true;
  SHTMMenuItem* more = menu.AddItem(L"More");
  SHTMMenuItem* deep = menu.AddItem(L"Deep", more, 4);
  menu.Render();
  ASSERT_TRUE(menu.ShowAt(POINT{20, 30}));
  EXPECT_TRUE(shown(menu.Element()));

  engine_.click(menu.ItemElement(*off).Handle());   // disabled: no choice
  engine_.click(menu.ItemElement(*more).Handle());  // opens its sub-menu instead
  EXPECT_TRUE(dialog.choices.empty());
  EXPECT_TRUE(shown(menu.ItemElement(*more).SelectFirst(L"menu")));

  engine_.click(menu.ItemElement(*deep).Handle());
  ASSERT_EQ(dialog.choices.size(), 1u);
  EXPECT_EQ(dialog.choices[0].item, deep);
  EXPECT_EQ(dialog.choices[0].itemNumber, deep->number);
  EXPECT_EQ(dialog.choices[0].control, &menu);
  EXPECT_EQ(dialog.choices[0].code, static_cast<UINT>(MENU_ITEM_CLICK));
  EXPECT_FALSE(shown(menu.Element()));  // the whole chain closed

  menu.ShowAt(POINT{20, 30});
  engine_.click(menu.ItemElement(*two).Handle());
  ASSERT_EQ(dialog.choices.size(), 2u);
  EXPECT_EQ(dialog.choices[1].item->command, 2u);
}

TEST_F(MenuCtrlTest, NumbersStayUniqueAcrossAClearAndARefill) {
  create();
  std::set<std::uint64_t> before;
  for (int i = 0; i < 5; ++i) before.insert(menu.AddItem(L"Item " + std::to_wstring(i))->number);
  menu.Render();
  menu.Clear();
  EXPECT_EQ(menu.ItemCount(), 0u);
  EXPECT_EQ(html(menu), "<menu></menu>");
  for (const std::uint64_t number : before) EXPECT_EQ(menu.FindItem(number), nullptr);

  menu.Fill({{L"A"}, {L"-"}, {L"B", true, false, 7}, {L"C", false, true, 8}});
  ASSERT_EQ(menu.ItemCount(), 4u);
  std::set<std::wstring> rendered;
  for (const CHTMElement& e : menu.Element().SelectAll(L"[FPID]")) {
    const std::wstring number = e.GetAttribute("FPID");
    EXPECT_EQ(before.count(std::stoull(number)), 0u) << platform::toUtf8(number);
    rendered.insert(number);
  }
  EXPECT_EQ(rendered.size(), 4u);
  EXPECT_EQ(menu.Element().SelectAll(L"hr").size(), 1u);
  const SHTMMenuItem* b = menu.FirstItem()->next->next;
  EXPECT_TRUE(b->checked);
  EXPECT_EQ(b->command, 7u);
  EXPECT_TRUE(b->next->disabled);
  EXPECT_EQ(menu.ItemElement(*b).GetAttribute("status"), L"checked");
}

TEST_F(MenuCtrlTest, TenThousandItemsWideRenderAndChoose) {
  create();
  constexpr int kItems = 10000;
  SHTMMenuItem* last = nullptr;
  for (int i = 0; i < kItems; ++i) last = menu.AddItem(L"Item " + std::to_wstring(i), nullptr, i);
  menu.Render();
  const std::vector<CHTMElement> items = menu.Element().SelectAll(L"li");
  ASSERT_EQ(items.size(), static_cast<std::size_t>(kItems));
  std::set<std::wstring> numbers;
  for (const CHTMElement& li : items) numbers.insert(li.GetAttribute("FPID"));
  EXPECT_EQ(numbers.size(), static_cast<std::size_t>(kItems));
  menu.ShowAt(POINT{0, 0});
  engine_.click(items.back().Handle());
  ASSERT_EQ(dialog.choices.size(), 1u);
  EXPECT_EQ(dialog.choices[0].item, last);
  EXPECT_EQ(last->command, static_cast<unsigned>(kItems - 1));
}

TEST_F(MenuCtrlTest, TenLevelsDeepOpenOneByOneAndChooseAtTheBottom) {
  create();
  constexpr int kLevels = 10;
  std::vector<SHTMMenuItem*> path;
  SHTMMenuItem* parent = nullptr;
  for (int level = 0; level < kLevels; ++level) {
    menu.AddItem(L"Sibling " + std::to_wstring(level), parent);
    parent = menu.AddItem(L"Level " + std::to_wstring(level), parent, static_cast<unsigned>(level));
    path.push_back(parent);
  }
  menu.Render();
  EXPECT_EQ(menu.Element().SelectAll(L"menu").size(), static_cast<std::size_t>(kLevels));
  const CHTMElement bottom = menu.ItemElement(*path.back());
  int depth = 0;
  for (CHTMElement e = bottom.Parent(); e.IsValid() && !(e == menu.Element()); e = e.Parent())
    if (e.GetType() == L"li") ++depth;
  EXPECT_EQ(depth, kLevels - 1);

  menu.ShowAt(POINT{0, 0});
  for (int level = 0; level + 1 < kLevels; ++level) {
    engine_.click(menu.ItemElement(*path[level]).Handle());
    EXPECT_TRUE(shown(menu.ItemElement(*path[level]).SelectFirst(L":root>menu"))) << level;
  }
  EXPECT_TRUE(dialog.choices.empty());
  engine_.click(bottom.Handle());
  ASSERT_EQ(dialog.choices.size(), 1u);
  EXPECT_EQ(dialog.choices[0].item, path.back());
  for (const SHTMMenuItem* item : path) EXPECT_FALSE(shown(menu.ItemElement(*item).SelectFirst(L":root>menu")));
  EXPECT_FALSE(shown(menu.Element()));
}

TEST_F(MenuCtrlTest, AMenuButtonDropsItsMenuDownAtTheSideItsAlignmentNames) {
  ASSERT_TRUE(dialog.Create());
  ASSERT_TRUE(button.CreateInPlace(dialog, 10, 20, 80, 24));
  button.AddItem(L"Plan");
  button.AddItem(L"Section");
  button.Render();
  const struct {
    int alignment;
    const wchar_t* side;
  } cases[] = {{1, L"right"}, {2, L"left"}, {3, L"top"}, {0, L"bottom"}, {7, L"bottom"}};
  for (const auto& c : cases) {
    button.SetPopupAlignment(c.alignment);
    EXPECT_EQ(button.Element().GetAttribute("align-popup"), c.side);
  }
  const CHTMElement popup = button.PopupElement();
  ASSERT_TRUE(popup.IsValid());
  EXPECT_FALSE(shown(popup));
  engine_.click(button.Element().Handle());
  EXPECT_TRUE(shown(popup));
  EXPECT_NE(button.Element().GetState() & STATE_OWNS_POPUP, 0u);
  engine_.click(popup.Child(1).Handle());
  ASSERT_EQ(dialog.choices.size(), 1u);
  EXPECT_EQ(dialog.choices[0].item, button.FirstItem()->next);
  EXPECT_FALSE(shown(popup));
}

TEST_F(MenuCtrlTest, TheDialogFillsItsContextMenuForTheElementAndGetsTheCommand) {
  dialog.entries = {
      {L"Edit surface", false, false, 101}, {L"-"}, {L"Show grid", true, false, 102}, {L"Delete", false, true, 103}};
  ASSERT_TRUE(dialog.Create());
  EXPECT_FALSE(dialog.ElementById(L"Menu#CHTMLDialog").IsValid());  // not before it is needed
  moveCursor(POINT{40, 15});
  const CHTMElement inner = dialog.ElementById(L"surface").SelectFirst(L"b");
  EXPECT_TRUE(engine_.contextMenu(dialog.GetHwnd(), inner.Handle(), POINT{40, 15}));
  EXPECT_EQ(dialog.asked, std::vector<std::wstring>{L"surface"});
  EXPECT_EQ(dialog.filledAt.x, 40);
  EXPECT_EQ(dialog.filledAt.y, 15);

  CHTMMenuCtrl& context = dialog.ContextMenu();
  ASSERT_TRUE(context.IsBound());
  EXPECT_EQ(context.Element(), dialog.ElementById(L"Menu#CHTMLDialog"));
  EXPECT_EQ(context.Element().GetType(), L"menu");
  EXPECT_EQ(context.Element().GetAttribute("class"), L"context");
  EXPECT_TRUE(shown(context.Element()));
  ASSERT_EQ(context.ItemCount(), 4u);
  EXPECT_TRUE(context.FirstItem()->next->separator);
  EXPECT_EQ(context.Element().SelectAll(L"li[status='checked']").size(), 1u);
  EXPECT_EQ(context.Element().SelectAll(L"li[disabled]").size(), 1u);

  engine_.click(context.Element().SelectFirst(L"li").Handle());
  EXPECT_EQ(dialog.commands, (std::vector<std::pair<std::wstring, unsigned>>{{L"surface", 101}}));
  EXPECT_TRUE(dialog.choices.empty());  // the dialog's own menu is not a control event
  EXPECT_FALSE(shown(context.Element()));

  // Elements without a context menu, or with no entries, open nothing.
  EXPECT_FALSE(engine_.contextMenu(dialog.GetHwnd(), dialog.ElementById(L"nomenu").Handle(), POINT{5, 5}));
  dialog.entries.clear();
  EXPECT_FALSE(engine_.contextMenu(dialog.GetHwnd(), inner.Handle(), POINT{5, 5}));
  EXPECT_FALSE(shown(context.Element()));
  EXPECT_EQ(dialog.Root().SelectAll(L"[id='Menu#CHTMLDialog']").size(), 1u);  // written once
}

#ifndef _WIN32
class MenuLayoutTest : public MenuCtrlTest {
 protected:
  void SetUp() override {
    MenuCtrlTest::SetUp();
    engine_.setLayoutProvider(std::make_unique<html::LitehtmlLayout>());
  }
  RECT location(const CHTMElement& e) {
    RECT r{};
    engine_.GetElementLocation(e.Handle(), &r, ROOT_RELATIVE | BORDER_BOX);
    return r;
  }
  LPARAM at(POINT p) { return static_cast<LPARAM>((static_cast<unsigned>(p.y) << 16) | static_cast<unsigned>(p.x)); }
};

TEST_F(MenuLayoutTest, ARightClickOnTheRenderedPageOpensTheMenuWhereThePointerIs) {
  dialog.entries = {{L"Edit surface", false, false, 101}, {L"Show grid", true, false, 102}};
  ASSERT_TRUE(dialog.Create());
  const RECT surface = location(dialog.ElementById(L"surface"));
  ASSERT_GT(surface.right, surface.left);
  const POINT point{surface.left + 5, surface.top + 3};
  moveCursor(point);
  platform::sendMessage(dialog.GetHwnd(), WM_RBUTTONDOWN, 2, at(point));
  platform::sendMessage(dialog.GetHwnd(), WM_RBUTTONUP, 0, at(point));
  const CHTMElement context = dialog.ContextMenu().Element();
  ASSERT_TRUE(shown(context));
  const RECT box = location(context);
  EXPECT_EQ(box.left, point.x);
  EXPECT_EQ(box.top, point.y);
  EXPECT_GT(box.right - box.left, 40);

  // The second item is where the pointer chooses it.
  const RECT second = location(context.SelectAll(L"li")[1]);
  const POINT choice{(second.left + second.right) / 2, (second.top + second.bottom) / 2};
  platform::sendMessage(dialog.GetHwnd(), WM_LBUTTONDOWN, 1, at(choice));
  platform::sendMessage(dialog.GetHwnd(), WM_LBUTTONUP, 0, at(choice));
  EXPECT_EQ(dialog.commands, (std::vector<std::pair<std::wstring, unsigned>>{{L"surface", 102}}));
}

TEST_F(MenuLayoutTest, DropDownsAndSubMenusAreDrawnBesideWhatOpensThem) {
  ASSERT_TRUE(dialog.Create());
  ASSERT_TRUE(button.CreateInPlace(dialog, 100, 40, 80, 24));
  SHTMMenuItem* view = button.AddItem(L"View");
  button.AddItem(L"Plan", view);
  button.Render();
  const RECT anchor = location(button.Element());

  button.SetPopupAlignment(1);
  engine_.click(button.Element().Handle());
  RECT popup = location(button.PopupElement());
  EXPECT_EQ(popup.left, anchor.right);
  EXPECT_EQ(popup.top, anchor.top);
  button.HidePopup();

  button.SetPopupAlignment(0);
  engine_.click(button.Element().Handle());
  popup = location(button.PopupElement());
  EXPECT_EQ(popup.left, anchor.left);
  EXPECT_EQ(popup.top, anchor.bottom);

  const CHTMElement item = button.ItemElement(*view);
  engine_.click(item.Handle());
  const RECT sub = location(item.SelectFirst(L":root>menu"));
  const RECT itemBox = location(item);
  EXPECT_EQ(sub.left, itemBox.right);
  EXPECT_EQ(sub.top, itemBox.top);
}
#endif

}  // namespace
}  // namespace kvt1::testing
