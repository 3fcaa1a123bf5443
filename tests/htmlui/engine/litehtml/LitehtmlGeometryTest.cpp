#include "htmlui/engine/litehtml/LitehtmlLayout.h"

#include <gtest/gtest.h>

#include <string>

namespace kvt1::html {
namespace {

bool inside(const LayoutBox& inner, const LayoutBox& outer) {
  return inner.x >= outer.x && inner.y >= outer.y && inner.x + inner.width <= outer.x + outer.width &&
         inner.y + inner.height <= outer.y + outer.height;
}

std::string page(const std::string& body) {
  return "<html kvt1-node=\"0\"><head></head><body kvt1-node=\"1\">" + body + "</body></html>";
}

const std::string kDialog = page(
    "<div kvt1-node=\"2\" id=\"panel\">"
    "<p kvt1-node=\"3\">Check the settings <span kvt1-node=\"4\">below</span> and confirm.</p>"
    "<table kvt1-node=\"5\"><tr kvt1-node=\"6\"><td kvt1-node=\"7\">Name</td><td "
    "kvt1-node=\"8\">Value</td></tr></table>"
    "</div>"
    "<div kvt1-node=\"9\" style=\"display:none\"><button kvt1-node=\"10\">Hidden</button></div>"
    "<div kvt1-node=\"11\"><button kvt1-node=\"12\" name=\"OK\">OK</button>"
    "<button kvt1-node=\"13\" name=\"CANCEL\">Cancel</button></div>");

class LitehtmlGeometryTest : public ::testing::Test {
 protected:
  LayoutBox boxOf(int node) {
    auto found = layout.box(node);
    EXPECT_TRUE(found.has_value()) << "node " << node;
    return found.value_or(LayoutBox{});
  }
  LitehtmlLayout layout;
};

TEST_F(LitehtmlGeometryTest, NestedElementsHaveNestedNonEmptyBoxes) {
  ASSERT_TRUE(layout.layout(kDialog, 320));
  const int chain[][2] = {{1, 0}, {2, 1}, {3, 2}, {4, 3}, {5, 2}, {6, 5}, {7, 6}, {8, 6}, {11, 1}, {12, 11}};
  for (const auto& [child, parent] : chain) {
    const LayoutBox inner = boxOf(child), outer = boxOf(parent);
    EXPECT_GT(inner.width, 0) << "node " << child;
    EXPECT_GT(inner.height, 0) << "node " << child;
    EXPECT_TRUE(inside(inner, outer)) << "node " << child << " outside node " << parent;
  }
  EXPECT_EQ(boxOf(0).width, 320);
  // Siblings in the flow follow one another.
  EXPECT_LT(boxOf(7).x + boxOf(7).width, boxOf(8).x + 1);
  EXPECT_LE(boxOf(2).y + boxOf(2).height, boxOf(11).y);
}

TEST_F(LitehtmlGeometryTest, ElementsUnderDisplayNoneHaveNoBox) {
  ASSERT_TRUE(layout.layout(kDialog, 320));
  EXPECT_FALSE(layout.box(9).has_value());
  EXPECT_FALSE(layout.box(10).has_value());
  EXPECT_FALSE(layout.box(99).has_value());
}

TEST_F(LitehtmlGeometryTest, HitTestFindsTheDeepestElement) {
  ASSERT_TRUE(layout.layout(kDialog, 320));
  const LayoutBox ok = boxOf(12);
  EXPECT_EQ(layout.hitTest(ok.x + ok.width / 2, ok.y + ok.height / 2), 12);
  const LayoutBox cancel = boxOf(13);
  EXPECT_EQ(layout.hitTest(cancel.x + 1, cancel.y + 1), 13);
  const LayoutBox span = boxOf(4);
  EXPECT_EQ(layout.hitTest(span.x + 1, span.y + span.height / 2), 4);
  // The body's padding belongs to the body; outside the page there is nothing.
  EXPECT_EQ(layout.hitTest(2, 2), 1);
  EXPECT_EQ(layout.hitTest(-5, 10), -1);
  EXPECT_EQ(layout.hitTest(10, layout.contentHeight() + 50), -1);
}

TEST_F(LitehtmlGeometryTest, ShownPopupLiesAboveTheFlow) {
  const std::string html = page(
      "<div kvt1-node=\"2\"><button kvt1-node=\"3\">Under the popup</button></div>"
      "<menu kvt1-node=\"4\" class=\"context kvt1-popup\" style=\"left:4px;top:4px;width:200px\">"
      "<li kvt1-node=\"5\">Copy</li></menu>"
      "<menu kvt1-node=\"6\" class=\"context\"><li kvt1-node=\"7\">Not shown</li></menu>");
  ASSERT_TRUE(layout.layout(html, 300));
  EXPECT_FALSE(layout.box(6).has_value());
  const LayoutBox item = boxOf(5), button = boxOf(3);
  ASSERT_TRUE(inside(item, boxOf(4)));
  // A point on both the button and the item hits the item.
  const int x = std::max(item.x, button.x) + 2, y = std::max(item.y, button.y) + 2;
  ASSERT_TRUE(x < button.x + button.width && y < button.y + button.height);
  EXPECT_EQ(layout.hitTest(x, y), 5);
}

// Positioned boxes are drawn in document order: a later one covers an
// earlier one and everything in it, however deep (a click area over a
// picture's lines of text).
TEST_F(LitehtmlGeometryTest, ALaterPositionedBoxCoversTheTextOfAnEarlierOne) {
  const std::string html = page(
      "<div kvt1-node=\"2\" style=\"position:absolute;left:0;top:0\"><span kvt1-node=\"3\">Version 1.1</span></div>"
      "<div kvt1-node=\"4\" style=\"position:absolute;left:0;top:0;width:200px;height:50px\"></div>");
  ASSERT_TRUE(layout.layout(html, 300));
  const LayoutBox text = boxOf(3);
  ASSERT_TRUE(inside(text, boxOf(4)));
  EXPECT_EQ(layout.hitTest(text.x + 2, text.y + 2), 4);
}

// The master sheet reaches a page in parts, chosen by the elements the page
// holds; tags and classes are found whatever their case.
TEST_F(LitehtmlGeometryTest, TheDialogLookReachesEveryKindOfElement) {
  struct Case {
    const char* body;
    int width, height;  // of node 2's border box
  };
  const Case cases[] = {
      {"<BUTTON kvt1-node=\"2\">OK</BUTTON>", 75, 23},  // min-width, padding, border
      {"<Input kvt1-node=\"2\" type=\"text\"/>", 148, 21},
      {"<input kvt1-node=\"2\" type=\"checkbox\"/>", 15, 15},
      {"<TEXTAREA kvt1-node=\"2\"></TEXTAREA>", 208, 66},
      {"<Table><TR><TD kvt1-node=\"2\"><div style=\"width:10px;height:10px\"></div></TD></TR></Table>", 18, 14},
      {"<div class=\"Tabs\"><div class=\"panels\" kvt1-node=\"2\"></div></div>", 284, 13},
      {"<MENU kvt1-node=\"2\" class=\"context kvt1-popup\" style=\"left:0;top:0\"></MENU>", 106, 6},
  };
  for (const Case& c : cases) {
    ASSERT_TRUE(layout.layout(page(c.body), 300)) << c.body;
    const LayoutBox box = boxOf(2);
    EXPECT_EQ(box.width, c.width) << c.body;
    EXPECT_EQ(box.height, c.height) << c.body;
  }
  ASSERT_TRUE(layout.layout(page("<UL><LI kvt1-node=\"2\">Item</LI></UL>"), 300));
  EXPECT_EQ(boxOf(2).x, 8 + 20);  // the body's padding and the list's indent
}

TEST_F(LitehtmlGeometryTest, AMenuShownFromTheMenuBarFitsItsItemsAndKeepsTheBarInOneLine) {
  const std::string items = "<li kvt1-node=\"6\">Open a model from a file...</li>";
  ASSERT_TRUE(layout.layout(
      page("<menu kvt1-node=\"2\" class=\"context kvt1-popup\" style=\"left:0;top:0\">" + items + "</menu>"), 400));
  const int alone = boxOf(2).width;
  ASSERT_TRUE(layout.layout(page("<widget class=\"menu-bar\"><menu><li kvt1-node=\"4\">File"
                                 "<menu kvt1-node=\"5\" class=\"kvt1-popup\" style=\"left:8px;top:30px\">" +
                                 items + "</menu></li><li kvt1-node=\"7\">View</li></menu></widget>"),
                            400));
  EXPECT_EQ(boxOf(5).width, alone);
  EXPECT_TRUE(inside(boxOf(6), boxOf(5)));
  EXPECT_EQ(boxOf(7).y, boxOf(4).y);
  EXPECT_EQ(boxOf(7).x, boxOf(4).x + boxOf(4).width);
}

TEST_F(LitehtmlGeometryTest, ButtonsOfARightAlignedRowStayInsideIt) {
  ASSERT_TRUE(layout.layout(page("<div kvt1-node=\"2\" class=\"buttons\" style=\"text-align:right;padding:0 10px\">"
                                 "<button kvt1-node=\"3\">OK</button><button kvt1-node=\"4\">Cancel</button></div>"),
                            300));
  const LayoutBox row = boxOf(2), last = boxOf(4);
  EXPECT_EQ(last.x + last.width + 2, row.x + row.width - 10);  // the button's margin, the row's padding
  EXPECT_LT(boxOf(3).x + boxOf(3).width, last.x);
}

TEST_F(LitehtmlGeometryTest, AnInlineElementCoversItsTextWithItsPaddingAndBorder) {
  const auto span = [](const char* style) {
    return page(std::string("<p kvt1-node=\"2\">Check <span kvt1-node=\"3\" style=\"") + style +
                "\">the settings</span> now</p>");
  };
  ASSERT_TRUE(layout.layout(span(""), 300));
  const LayoutBox plain = boxOf(3);
  ASSERT_TRUE(layout.layout(span("padding:0 4px;border:1px solid #000000"), 300));
  const LayoutBox framed = boxOf(3);
  EXPECT_EQ(framed.width, plain.width + 10);
  EXPECT_EQ(framed.height, plain.height + 2);
  EXPECT_EQ(layout.hitTest(framed.x + 1, framed.y + framed.height / 2), 3);
}

TEST_F(LitehtmlGeometryTest, IntrinsicWidthsFollowTheContent) {
  const std::string shortText = page("<p kvt1-node=\"2\">Short words only</p>");
  const std::string longText = page("<p kvt1-node=\"2\">Short words only, and then many more of them on one line</p>");
  ASSERT_TRUE(layout.layout(shortText, 400));
  const int shortMin = layout.minWidth(), shortMax = layout.maxWidth();
  EXPECT_GT(shortMin, 0);
  EXPECT_LT(shortMin, shortMax);

  ASSERT_TRUE(layout.layout(longText, 400));
  EXPECT_EQ(layout.minWidth(), shortMin);  // the longest word is the same
  EXPECT_GT(layout.maxWidth(), shortMax);

  ASSERT_TRUE(layout.layout(page("<p kvt1-node=\"2\">Incomprehensibilities</p>"), 400));
  EXPECT_GT(layout.minWidth(), shortMin);
  EXPECT_EQ(layout.minWidth(), layout.maxWidth());
}

TEST_F(LitehtmlGeometryTest, MeasuringWidthsKeepsTheLayout) {
  ASSERT_TRUE(layout.layout(kDialog, 150));
  const LayoutBox before = boxOf(3);
  const int height = layout.contentHeight();
  ASSERT_LE(layout.minWidth(), layout.maxWidth());
  EXPECT_EQ(layout.contentHeight(), height);
  EXPECT_EQ(boxOf(3).width, before.width);
  EXPECT_EQ(layout.hitTest(before.x + 1, before.y + 1), 3);
}

TEST_F(LitehtmlGeometryTest, NarrowerLayoutsWrapIntoTallerPages) {
  ASSERT_TRUE(layout.layout(kDialog, 600));
  const int wide = layout.contentHeight();
  ASSERT_TRUE(layout.layout(kDialog, 120));
  EXPECT_GT(layout.contentHeight(), wide);
  EXPECT_EQ(boxOf(0).width, 120);
}

TEST_F(LitehtmlGeometryTest, EachLayoutReplacesThePreviousOne) {
  ASSERT_TRUE(layout.layout(kDialog, 320));
  ASSERT_TRUE(layout.box(12).has_value());
  ASSERT_TRUE(layout.layout(page("<div kvt1-node=\"40\">Other page</div>"), 320));
  EXPECT_FALSE(layout.box(12).has_value());
  EXPECT_TRUE(layout.box(40).has_value());

  EXPECT_FALSE(layout.layout(kDialog, 0));
  EXPECT_FALSE(layout.box(40).has_value());
  EXPECT_EQ(layout.hitTest(5, 5), -1);
  EXPECT_EQ(layout.contentHeight(), 0);
}

TEST_F(LitehtmlGeometryTest, FragmentsAreWrappedAndStillMapped) {
  ASSERT_TRUE(layout.layout("<div kvt1-node=\"7\"><label kvt1-node=\"8\">Name</label></div>", 200));
  EXPECT_TRUE(inside(boxOf(8), boxOf(7)));
  EXPECT_EQ(layout.hitTest(boxOf(8).x + 1, boxOf(8).y + 1), 8);
}

TEST_F(LitehtmlGeometryTest, HiddenElementsKeepTheirPlaceButTakeNoHits) {
  ASSERT_TRUE(layout.layout(page("<div kvt1-node=\"2\"><span kvt1-node=\"3\" style=\"visibility:hidden\">Ghost"
                                 "</span></div>"),
                            200));
  const LayoutBox ghost = boxOf(3);
  EXPECT_GT(ghost.width, 0);
  EXPECT_EQ(layout.hitTest(ghost.x + 1, ghost.y + 1), 2);
}

}  // namespace
}  // namespace kvt1::html
