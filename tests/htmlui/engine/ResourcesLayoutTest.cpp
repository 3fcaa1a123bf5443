// What a page pulls in while it loads, the snapshot handed to layout, and
// geometry with and without a layout provider.
#include <gtest/gtest.h>

#include <map>
#include <memory>

#include "htmlui/engine/HtmlayoutEventHandler.h"
#include "tests/htmlui/engine/EngineTestSupport.h"

namespace kvt1::html {
namespace {

using namespace test;

// Answers load requests from a table, one way or the other.
struct Loader : htmlayout::notification_handler<Loader> {
  LRESULT on_load_data(LPNMHL_LOAD_DATA request) override {
    requests.emplace_back(platform::toUtf8(request->uri), request->dataType);
    const auto found = files.find(platform::toUtf8(request->uri));
    if (found == files.end()) return LOAD_OK;
    if (throughDataReady) {
      std::string copy = found->second;  // the engine keeps its own copy
      engine->DataReady(request->hdr.hwndFrom, request->uri, reinterpret_cast<LPBYTE>(copy.data()),
                        static_cast<DWORD>(copy.size()));
    } else {
      request->outData = const_cast<char*>(found->second.data());
      request->outDataSize = static_cast<DWORD>(found->second.size());
    }
    return LOAD_OK;
  }
  HtmlEngine* engine = nullptr;
  bool throughDataReady = true;
  std::map<std::string, std::string> files;
  std::vector<std::pair<std::string, UINT>> requests;
};

constexpr const char* kPage =
    "<html><head><style>@import url(HTM_CTRL_COMMON);\n@import url('missing.css');\nbody{margin:0}</style>"
    "<link rel=stylesheet href='extra.css'></head>"
    "<body><img src=IMG_LOGO.IMAGES><div #d .a style='color: red' checked>d</div></body></html>";

TEST(ResourcesTest, PageRequestsImportsLinksAndImagesAndKeepsStyles) {
  DomEngine engine;
  for (const bool dataReady : {true, false}) {
    Loader loader;
    loader.engine = &engine;
    loader.throughDataReady = dataReady;
    loader.files["HTM_CTRL_COMMON"] = "@import \"nested.css\";\n.common { color: blue }";
    loader.files["nested.css"] = ".nested { x: y }";
    loader.setup_callback(engine, window());
    ASSERT_TRUE(load(engine, window(), kPage));
    EXPECT_EQ(loader.requests, (std::vector<std::pair<std::string, UINT>>{{"HTM_CTRL_COMMON", HLRT_DATA_STYLE},
                                                                          {"nested.css", HLRT_DATA_STYLE},
                                                                          {"missing.css", HLRT_DATA_STYLE},
                                                                          {"extra.css", HLRT_DATA_STYLE},
                                                                          {"IMG_LOGO.IMAGES", HLRT_DATA_IMAGE}}));
    const std::string snapshot = engine.serializeForLayout(window());
    EXPECT_NE(snapshot.find("\">.nested { x: y }\n.common { color: blue }\n@import url('missing.css');"),
              std::string::npos)
        << snapshot;
  }
  // Outside a load request there is nothing to answer.
  std::string data = "x";
  EXPECT_FALSE(engine.DataReady(window(), L"HTM_CTRL_COMMON", reinterpret_cast<LPBYTE>(data.data()), 1));
}

TEST(ResourcesTest, RelativeRequestsAreResolvedAgainstTheBaseUrl) {
  DomEngine engine;
  Loader loader;
  loader.setup_callback(engine, window());
  const std::string page = "<img src=a.png><img src='res:B.IMAGES'>";
  engine.LoadHtmlEx(window(), reinterpret_cast<LPCBYTE>(page.data()), static_cast<UINT>(page.size()),
                    L"file:///pages/main.htm");
  EXPECT_EQ(loader.requests, (std::vector<std::pair<std::string, UINT>>{{"file:///pages/a.png", HLRT_DATA_IMAGE},
                                                                        {"res:B.IMAGES", HLRT_DATA_IMAGE}}));
}

TEST(LayoutSnapshotTest, ExpandedMarkupWithNodesStatesAndMergedStyles) {
  DomEngine engine;
  ASSERT_TRUE(load(engine, window(), "<body><menu.ctx #m>x</menu><p style='color: red; width: 1px'>p</p></body>"));
  HELEMENT root = rootOf(engine, window());
  HELEMENT p = selectFirst(engine, root, "p");
  engine.SetStyleAttribute(p, "color", L"blue");
  engine.SetStyleAttribute(p, "height", L"2px");
  engine.SetElementState(p, STATE_CHECKED | STATE_HOVER | STATE_DISABLED, 0, FALSE);
  engine.ShowPopupAt(selectFirst(engine, root, "#m"), POINT{0, 0}, 0);
  const std::string snapshot = engine.serializeForLayout(window());
  const auto node = [&](HELEMENT he) {
    return "kvt1-node=\"" + std::to_string(reinterpret_cast<std::uintptr_t>(he)) + "\"";
  };
  EXPECT_EQ(snapshot,
            "<html " + node(root) + "><body " + node(selectFirst(engine, root, "body")) + "><menu " +
                node(selectFirst(engine, root, "menu")) +
                " id=\"m\" class=\"ctx kvt1-popup\" style=\"position:absolute; left:0px; top:0px;\">x</menu><p " +
                node(p) +
                " class=\"kvt1-checked kvt1-disabled kvt1-hover\" style=\"color:blue; width:1px; "
                "height:2px;\">p</p></body></html>");
  EXPECT_EQ(html(engine, p, true), "<p style=\"color: red; width: 1px\">p</p>");  // the page itself is unchanged
}

// A provider with fixed boxes that counts its layouts.
class FixedLayout : public LayoutProvider {
 public:
  explicit FixedLayout(int& layouts) : layouts_(layouts) {}
  bool layout(const std::string& html, int width) override {
    ++layouts_;
    lastWidth = width;
    return true;
  }
  std::optional<LayoutBox> box(int node) const override {
    const auto found = boxes.find(node);
    return found != boxes.end() ? std::optional<LayoutBox>(found->second) : std::nullopt;
  }
  // The last box holding the point: later nodes lie deeper in the test pages.
  int hitTest(int x, int y) const override {
    int hit = -1;
    for (const auto& [node, b] : boxes)
      if (x >= b.x && y >= b.y && x < b.x + b.width && y < b.y + b.height) hit = node;
    return hit;
  }
  int minWidth() const override { return 120; }
  int maxWidth() const override { return 480; }
  int contentHeight() const override { return lastWidth / 2; }
  bool renderPng(const std::string&) const override { return false; }
  bool renderWindowPng(const WindowPicture&, const std::string&) const override { return false; }
  bool paint(std::uintptr_t, const LayoutBox&) const override { return false; }

  std::map<int, LayoutBox> boxes;
  int lastWidth = 0;

 private:
  int& layouts_;
};

TEST(GeometryTest, WithoutAProviderEverythingIsEmpty) {
  DomEngine engine;
  ASSERT_TRUE(load(engine, window(), "<body><p>x</p></body>"));
  HELEMENT p = selectFirst(engine, rootOf(engine, window()), "p");
  RECT rc{1, 2, 3, 4};
  EXPECT_EQ(engine.GetElementLocation(p, &rc, ROOT_RELATIVE | BORDER_BOX), HLDOM_OK);
  EXPECT_EQ(rc.left + rc.top + rc.right + rc.bottom, 0);
  HELEMENT found = p;
  EXPECT_EQ(engine.FindElement(window(), POINT{1, 1}, &found), HLDOM_OK);
  EXPECT_EQ(found, nullptr);
  EXPECT_EQ(engine.GetMinWidth(window()), 0u);
  EXPECT_FALSE(engine.renderPng(window(), "unused.png"));
}

TEST(GeometryTest, ProviderBoxesAreLaidOutOnlyAfterChanges) {
  DomEngine engine;
  int layouts = 0;
  auto provider = std::make_unique<FixedLayout>(layouts);
  FixedLayout& fixed = *provider;
  engine.setLayoutProvider(std::move(provider));
  ASSERT_TRUE(load(engine, window(), "<body><div #outer><p #inner>x</p></div></body>"));
  HELEMENT root = rootOf(engine, window());
  HELEMENT outer = selectFirst(engine, root, "#outer");
  HELEMENT inner = selectFirst(engine, root, "#inner");
  const int outerNode = static_cast<int>(reinterpret_cast<std::uintptr_t>(outer));
  const int innerNode = static_cast<int>(reinterpret_cast<std::uintptr_t>(inner));
  fixed.boxes[outerNode] = LayoutBox{10, 20, 200, 100};
  fixed.boxes[innerNode] = LayoutBox{15, 30, 50, 10};
  BOOL handled = FALSE;
  engine.ProcND(window(), 0x0005, 0, (300 << 16) | 640, &handled);  // WM_SIZE 640 x 300
  EXPECT_FALSE(handled);
  RECT rc{};
  engine.GetElementLocation(inner, &rc, ROOT_RELATIVE | BORDER_BOX);
  EXPECT_EQ((std::vector<LONG>{rc.left, rc.top, rc.right, rc.bottom}), (std::vector<LONG>{15, 30, 65, 40}));
  engine.GetElementLocation(inner, &rc, CONTAINER_RELATIVE | BORDER_BOX);
  EXPECT_EQ((std::vector<LONG>{rc.left, rc.top, rc.right, rc.bottom}), (std::vector<LONG>{5, 10, 55, 20}));
  engine.GetElementLocation(inner, &rc, SELF_RELATIVE | CONTENT_BOX);
  EXPECT_EQ((std::vector<LONG>{rc.left, rc.top, rc.right, rc.bottom}), (std::vector<LONG>{0, 0, 50, 10}));
  EXPECT_EQ(layouts, 1);
  EXPECT_EQ(fixed.lastWidth, 640);
  HELEMENT found = nullptr;
  engine.FindElement(window(), POINT{20, 35}, &found);
  EXPECT_EQ(found, inner);
  EXPECT_EQ(layouts, 1);
  engine.SetStyleAttribute(outer, "width", L"10px");
  engine.GetElementLocation(inner, &rc, ROOT_RELATIVE);
  EXPECT_EQ(layouts, 2);
  EXPECT_EQ(engine.GetMinWidth(window()), 120u);
  EXPECT_EQ(engine.GetMinHeight(window(), 400), 200u);
  INT minWidth = 0, maxWidth = 0;
  engine.GetElementIntrinsicWidths(root, &minWidth, &maxWidth);
  EXPECT_EQ(maxWidth, 480);
  const int before = layouts;
  engine.DeleteElement(inner);
  engine.FindElement(window(), POINT{20, 35}, &found);
  EXPECT_EQ(found, nullptr);  // a node the page no longer has is never handed out
  EXPECT_EQ(layouts, before + 1);
}

}  // namespace
}  // namespace kvt1::html
