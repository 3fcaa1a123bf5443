// The right button, popup placement and menus in our DOM engine: context-menu
// requests that the page may answer, the menu a "context-menu" style names,
// popups placed beside their anchors or at a point in the layout HTML, and
// menu items that open sub-menus or choose and close the whole chain.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "htmlui/engine/HtmlayoutEventHandler.h"
#include "platform/Win32.h"
#include "tests/htmlui/engine/EngineTestSupport.h"

namespace kvt1::html {
namespace {

using namespace test;

// Fixed boxes for ordinary elements. A popup's box is where the layout HTML's
// "left" and "top" put it, shifted by its containing block's offset, as a
// real layout would do it.
class PlacingLayout : public BoxLayout {
 public:
  bool layout(const std::string& html, int) override {
    lastHtml = html;
    ++layouts;
    return true;
  }
  std::optional<LayoutBox> box(int node) const override {
    if (const auto popup = popups.find(node); popup != popups.end()) {
      int left = 0, top = 0;
      if (!written(node, left, top)) return std::nullopt;
      return LayoutBox{left + popup->second.offsetX, top + popup->second.offsetY, popup->second.width,
                       popup->second.height};
    }
    return BoxLayout::box(node);
  }

  // The "left" and "top" that the last layout HTML gives an element.
  bool written(int node, int& left, int& top) const {
    const std::string mark = "kvt1-node=\"" + std::to_string(node) + "\"";
    const std::size_t start = lastHtml.find(mark);
    if (start == std::string::npos) return false;
    const std::string tag = lastHtml.substr(start, lastHtml.find('>', start) - start);
    const std::size_t l = tag.find("left:");
    const std::size_t t = tag.find("top:");
    if (l == std::string::npos || t == std::string::npos || tag.find("position:absolute") == std::string::npos)
      return false;
    left = std::atoi(tag.c_str() + l + 5);
    top = std::atoi(tag.c_str() + t + 4);
    return true;
  }

  struct Popup {
    int width = 0, height = 0, offsetX = 0, offsetY = 0;
  };
  std::map<int, Popup> popups;
  std::string lastHtml;
  int layouts = 0;
};

// Records the menu events as they sink and bubble, and may take the request.
struct MenuLog : htmlayout::event_handler {
  BOOL handle_event(HELEMENT, BEHAVIOR_EVENT_PARAMS& params) override {
    const UINT code = params.cmd & ~(SINKING | HANDLED);
    if (code == CONTEXT_MENU_REQUEST) {
      requests.push_back({(params.cmd & SINKING) != 0, params.heTarget, params.he});
      return takeRequests && (params.cmd & SINKING) == 0;
    }
    if (code == MENU_ITEM_CLICK && (params.cmd & SINKING) == 0) chosen.push_back(params.heTarget);
    return FALSE;
  }
  struct Request {
    bool sinking;
    HELEMENT target;
    HELEMENT menu;
  };
  std::vector<Request> requests;
  std::vector<HELEMENT> chosen;
  bool takeRequests = false;
};

class ContextMenuTest : public ::testing::Test {
 protected:
  void SetUp() override {
    auto layout = std::make_unique<PlacingLayout>();
    layout_ = layout.get();
    engine.setLayoutProvider(std::move(layout));
    engine.setViewSize(window(), 400, 300);
    ASSERT_TRUE(load(engine, window(),
                     "<body #body>"
                     "<div #area style='context-menu: selector(menu#ctx)'><span #inner>inner</span></div>"
                     "<div #bad style='context-menu: menu#ctx'>bad</div><p #plain>plain</p>"
                     "<button #anchor>anchor</button>"
                     "<menu.context #ctx><li #one>One</li>"
                     "<li #more>More<menu #sub><li #deep>Deep</li></menu></li>"
                     "<li #other>Other<menu #sub2><li #deep2>Deep 2</li></menu></li></menu>"
                     "<widget.menu-bar #bar><menu><li #file>File<menu #fileMenu><li #quit>Quit</li></menu></li>"
                     "</menu></widget></body>"));
    root = rootOf(engine, window());
    place("body", {0, 0, 400, 300});
    place("area", {10, 10, 200, 40});
    place("inner", {20, 20, 40, 16});
    place("plain", {10, 60, 200, 20});
    place("anchor", {100, 100, 80, 24});
    place("file", {10, 200, 40, 20});
    popup("ctx", {120, 60});
    popup("sub", {90, 30, 0, 0});
    popup("sub2", {90, 30});
    popup("fileMenu", {80, 20});
    engine.AttachEventHandlerEx(root, &htmlayout::event_handler::element_proc, &log, HANDLE_ALL);
  }
  void TearDown() override { engine.DetachEventHandler(root, &htmlayout::event_handler::element_proc, &log); }

  HELEMENT byId(const std::string& id) { return selectFirst(engine, root, ("#" + id).c_str()); }
  int node(const std::string& id) { return static_cast<int>(reinterpret_cast<std::uintptr_t>(byId(id))); }
  void place(const std::string& id, LayoutBox box) { layout_->boxes[node(id)] = box; }
  void popup(const std::string& id, PlacingLayout::Popup size) { layout_->popups[node(id)] = size; }
  bool shown(const std::string& id) { return (stateOf(engine, byId(id)) & STATE_POPUP) != 0; }
  // Where the popup is drawn after the engine laid the page out.
  LayoutBox placed(const std::string& id) {
    RECT r{};
    engine.GetElementLocation(byId(id), &r, ROOT_RELATIVE | BORDER_BOX);
    return LayoutBox{r.left, r.top, r.right - r.left, r.bottom - r.top};
  }
  LRESULT send(UINT msg, LPARAM lParam) { return engine.ProcND(window(), msg, 0, lParam, nullptr); }

  DomEngine engine;
  HELEMENT root = nullptr;
  MenuLog log;
  PlacingLayout* layout_ = nullptr;
};

bool operator==(const LayoutBox& a, const LayoutBox& b) {
  return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
}

TEST_F(ContextMenuTest, ARightClickOpensTheMenuThatTheStyleNamesAtThePoint) {
  EXPECT_TRUE(engine.contextMenu(window(), byId("inner"), POINT{30, 25}));
  ASSERT_EQ(log.requests.size(), 2u);  // sinking, then bubbling
  EXPECT_TRUE(log.requests[0].sinking);
  EXPECT_FALSE(log.requests[1].sinking);
  EXPECT_EQ(log.requests[1].target, byId("inner"));
  EXPECT_EQ(log.requests[1].menu, byId("ctx"));  // found on an ancestor
  EXPECT_TRUE(shown("ctx"));
  EXPECT_EQ(engine.contextMenuPoint().x, 30);
  EXPECT_EQ(engine.contextMenuPoint().y, 25);
  EXPECT_TRUE(placed("ctx") == (LayoutBox{30, 25, 120, 60}));
}

TEST_F(ContextMenuTest, AHandlerThatTakesTheRequestKeepsTheMenuClosed) {
  log.takeRequests = true;
  EXPECT_TRUE(engine.contextMenu(window(), byId("area"), POINT{30, 25}));
  EXPECT_FALSE(shown("ctx"));
  EXPECT_EQ(engine.contextMenuPoint().y, 25);  // the point is kept all the same
}

TEST_F(ContextMenuTest, WithoutAMenuStyleOrWithAnotherValueNothingOpens) {
  EXPECT_FALSE(engine.contextMenu(window(), byId("plain"), POINT{20, 65}));
  EXPECT_FALSE(engine.contextMenu(window(), byId("bad"), POINT{20, 65}));
  EXPECT_FALSE(shown("ctx"));
  ASSERT_EQ(log.requests.size(), 4u);  // the page hears of both all the same
  EXPECT_EQ(log.requests[1].menu, nullptr);
  EXPECT_FALSE(engine.contextMenu(window(), nullptr, POINT{0, 0}));
  EXPECT_FALSE(engine.contextMenu(window(2), byId("area"), POINT{0, 0}));  // not that view's element
}

TEST_F(ContextMenuTest, TheRightButtonOpensOnReleaseAndAPressElsewhereDismisses) {
  send(WM_RBUTTONDOWN, at(25, 22));
  EXPECT_TRUE(log.requests.empty());
  send(WM_RBUTTONUP, at(25, 22));
  ASSERT_EQ(log.requests.size(), 2u);
  EXPECT_EQ(log.requests[1].target, byId("inner"));
  EXPECT_TRUE(shown("ctx"));
  EXPECT_TRUE(placed("ctx") == (LayoutBox{25, 22, 120, 60}));

  send(WM_RBUTTONDOWN, at(20, 65));  // on the paragraph, outside the menu
  EXPECT_FALSE(shown("ctx"));
  send(WM_RBUTTONUP, at(20, 65));
  EXPECT_FALSE(shown("ctx"));
}

TEST_F(ContextMenuTest, APopupGoesToTheSideOfItsAnchorThatThePlacementNames) {
  const struct {
    UINT placement;
    LayoutBox expected;
  } cases[] = {{2, {100, 124, 120, 60}}, {8, {100, 40, 120, 60}}, {4, {0, 100, 120, 60}}, {6, {180, 100, 120, 60}}};
  for (const auto& c : cases) {
    ASSERT_EQ(engine.ShowPopup(byId("ctx"), byId("anchor"), c.placement), HLDOM_OK);
    EXPECT_TRUE(placed("ctx") == c.expected) << "placement " << c.placement;
    engine.HidePopup(byId("ctx"));
  }
  // The containing block's offset is taken out of "left" and "top".
  layout_->popups[node("ctx")].offsetX = 7;
  layout_->popups[node("ctx")].offsetY = -5;
  engine.ShowPopup(byId("ctx"), byId("anchor"), 2);
  EXPECT_TRUE(placed("ctx") == (LayoutBox{100, 124, 120, 60}));
  int left = 0, top = 0;
  ASSERT_TRUE(layout_->written(node("ctx"), left, top));
  EXPECT_EQ(left, 93);
  EXPECT_EQ(top, 129);
}

TEST_F(ContextMenuTest, APopupAtAPointPutsTheNumpadPointOfTheModeThereAndStaysInTheView) {
  engine.ShowPopupAt(byId("ctx"), POINT{200, 150}, 3u << 16);  // bottom right at the point
  EXPECT_TRUE(placed("ctx") == (LayoutBox{80, 90, 120, 60}));
  engine.ShowPopupAt(byId("ctx"), POINT{200, 150}, 5u << 16);  // centred
  EXPECT_TRUE(placed("ctx") == (LayoutBox{140, 120, 120, 60}));
  engine.ShowPopupAt(byId("ctx"), POINT{200, 150}, 0);  // top left by default
  EXPECT_TRUE(placed("ctx") == (LayoutBox{200, 150, 120, 60}));
  engine.ShowPopupAt(byId("ctx"), POINT{390, 290}, 0);  // near the corner of a 400 x 300 view
  EXPECT_TRUE(placed("ctx") == (LayoutBox{280, 240, 120, 60}));
}

TEST_F(ContextMenuTest, AnItemWithASubMenuOpensItBesideInsteadOfChoosing) {
  engine.ShowPopupAt(byId("ctx"), POINT{50, 50}, 0);
  place("more", {52, 70, 116, 20});
  EXPECT_TRUE(engine.click(byId("more")));
  EXPECT_TRUE(log.chosen.empty());
  EXPECT_TRUE(shown("sub"));
  EXPECT_TRUE(shown("ctx"));
  EXPECT_NE(stateOf(engine, byId("more")) & STATE_OWNS_POPUP, 0u);
  EXPECT_TRUE(placed("sub") == (LayoutBox{168, 70, 90, 30}));

  // A sibling's sub-menu replaces it.
  engine.click(byId("other"));
  EXPECT_FALSE(shown("sub"));
  EXPECT_TRUE(shown("sub2"));

  // A choice deep down closes the whole chain.
  engine.click(byId("deep2"));
  EXPECT_EQ(log.chosen, std::vector<HELEMENT>{byId("deep2")});
  EXPECT_FALSE(shown("sub2"));
  EXPECT_FALSE(shown("ctx"));
}

TEST_F(ContextMenuTest, AMenuBarDropsItsMenusBelowTheirItems) {
  engine.click(byId("file"));
  EXPECT_TRUE(shown("fileMenu"));
  EXPECT_TRUE(placed("fileMenu") == (LayoutBox{10, 220, 80, 20}));
  engine.click(byId("quit"));
  EXPECT_EQ(log.chosen, std::vector<HELEMENT>{byId("quit")});
  EXPECT_FALSE(shown("fileMenu"));
}

TEST_F(ContextMenuTest, APlacedPopupIsLaidOutAgainOnlyWhileItIsNotWhereItBelongs) {
  engine.ShowPopupAt(byId("ctx"), POINT{10, 10}, 0);
  placed("ctx");
  const int first = layout_->layouts;
  placed("ctx");
  EXPECT_EQ(layout_->layouts, first);  // nothing changed: no layout at all
  engine.HidePopup(byId("ctx"));
  placed("ctx");
  int left = 0, top = 0;
  EXPECT_FALSE(layout_->written(node("ctx"), left, top));  // hidden: no place written
}

}  // namespace
}  // namespace kvt1::html
