// Reading pages: the markup dialect, entities, void and raw elements, tags
// left open, unknown tags, encodings and bad input.
#include <gtest/gtest.h>

#include <string>

#include "tests/htmlui/engine/EngineTestSupport.h"

namespace kvt1::html {
namespace {

using namespace test;

class MarkupTest : public ::testing::Test {
 protected:
  HELEMENT page(const std::string& markup) {
    EXPECT_TRUE(load(engine, window(), markup));
    return rootOf(engine, window());
  }
  std::string body(const std::string& markup) { return html(engine, selectFirst(engine, page(markup), "body"), false); }

  DomEngine engine;
};

TEST_F(MarkupTest, ShorthandGivesClassIdTypeAndName) {
  EXPECT_EQ(body("<body><menu.context id=m1><li>a</li></menu></body>"),
            "<menu class=\"context\" id=\"m1\"><li>a</li></menu>");
  EXPECT_EQ(body("<body><div .details #main>x</div></body>"), "<div class=\"details\" id=\"main\">x</div>");
  EXPECT_EQ(body("<body><div.a.b class=c>x</div></body>"), "<div class=\"a b c\">x</div>");
  EXPECT_EQ(body("<body><input|checkbox(agree)></body>"), "<input type=\"checkbox\" name=\"agree\">");
  HELEMENT root = rootOf(engine, window());
  EXPECT_EQ(selectAll(engine, root, "input[type=checkbox][name=agree]").size(), 1u);
}

TEST_F(MarkupTest, AttributeValuesInAllQuotingsWithEntities) {
  HELEMENT root = page(
      "<body><p id=bare title='single \"q\"' lang=\"double 'q'\" data-x=a&amp;b hidden "
      "alt=\"&lt;&#65;&#x42;&nbsp;&unknown;\">t</p></body>");
  HELEMENT p = selectFirst(engine, root, "p");
  EXPECT_EQ(attribute(engine, p, "id"), "bare");
  EXPECT_EQ(attribute(engine, p, "title"), "single \"q\"");
  EXPECT_EQ(attribute(engine, p, "lang"), "double 'q'");
  EXPECT_EQ(attribute(engine, p, "data-x"), "a&b");
  EXPECT_EQ(attribute(engine, p, "hidden"), "");
  EXPECT_EQ(attribute(engine, p, "alt"), "<AB\xC2\xA0&unknown;");
  EXPECT_EQ(attribute(engine, p, "TITLE"), "single \"q\"");  // names compare without case
}

TEST_F(MarkupTest, AttributeNamesKeepTheirCaseAndOrder) {
  HELEMENT root = page("<body><li FPID=\"7\" zeta=1 Alpha=2 FPID=9>x</li></body>");
  EXPECT_EQ(html(engine, selectFirst(engine, root, "li"), true), "<li FPID=\"7\" zeta=\"1\" Alpha=\"2\">x</li>");
}

TEST_F(MarkupTest, VoidElementsTakeNoChildren) {
  EXPECT_EQ(body("<body><p>a<br>b<img src=x.png><input value=1>c<hr></p></body>"),
            "<p>a<br>b<img src=\"x.png\"><input value=\"1\">c<hr></p>");
}

TEST_F(MarkupTest, StyleAndScriptStayRawAndCommentsGo) {
  HELEMENT root = page(
      "<html><head><style>a > b { content: \"<i>&amp;\" }</style></head>"
      "<body><!-- gone <p> --><script>if (a < b && c) x();</script>t</body></html>");
  EXPECT_EQ(html(engine, selectFirst(engine, root, "style"), false), "a > b { content: \"<i>&amp;\" }");
  EXPECT_EQ(html(engine, selectFirst(engine, root, "body"), false), "<script>if (a < b && c) x();</script>t");
}

TEST_F(MarkupTest, TagsLeftOpenAreClosedWhereTheNextImpliesIt) {
  EXPECT_EQ(body("<body><ul><li>one<li>two<li>three</ul><p>after</body>"),
            "<ul><li>one</li><li>two</li><li>three</li></ul><p>after</p>");
  EXPECT_EQ(body("<body><select><option>a<option selected>b</select></body>"),
            "<select><option>a</option><option selected=\"\">b</option></select>");
  EXPECT_EQ(body("<body><table><tr><td>1<td>2<tr><td>3</table></body>"),
            "<table><tr><td>1</td><td>2</td></tr><tr><td>3</td></tr></table>");
  EXPECT_EQ(body("<body><p>one<p>two<div>three</div></body>"), "<p>one</p><p>two</p><div>three</div>");
  // Nested lists keep their own items.
  EXPECT_EQ(body("<body><ul><li>a<ul><li>b</ul><li>c</ul></body>"), "<ul><li>a<ul><li>b</li></ul></li><li>c</li></ul>");
  // A stray end tag is ignored; an end tag closes what is open inside it.
  EXPECT_EQ(body("<body></span><div><b>bold</div>x</body>"), "<div><b>bold</b></div>x");
}

TEST_F(MarkupTest, UnknownTagsAreKeptAndFound) {
  HELEMENT root = page("<body><widget kind=x><Frob>in</Frob></widget></body>");
  HELEMENT frob = selectFirst(engine, root, "widget > frob");
  ASSERT_NE(frob, nullptr);
  EXPECT_EQ(tagOf(engine, frob), "frob");
  EXPECT_EQ(text(engine, frob), "in");
}

TEST_F(MarkupTest, FragmentsGetHtmlAndBody) {
  HELEMENT root = page("  <div id=a>x</div>text");
  EXPECT_EQ(tagOf(engine, root), "html");
  EXPECT_EQ(html(engine, root, true), "<html><body><div id=\"a\">x</div>text</body></html>");
  HELEMENT parent = nullptr;
  engine.GetParentElement(root, &parent);
  EXPECT_EQ(parent, nullptr);
}

TEST_F(MarkupTest, Utf16PageWithByteOrderMarkAndUtf8WithIt) {
  const std::u16string page16 = u"\uFEFF<body><p id=x>\u00C4\u20AC\U0001F600</p></body>";
  std::string bytes;
  for (const char16_t unit : page16) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  ASSERT_TRUE(load(engine, window(), bytes));
  EXPECT_EQ(text(engine, selectFirst(engine, rootOf(engine, window()), "#x")), "\xC3\x84\xE2\x82\xAC\xF0\x9F\x98\x80");
  ASSERT_TRUE(load(engine, window(), "\xEF\xBB\xBF<p id=y>\xC3\xA9</p>"));
  EXPECT_EQ(text(engine, selectFirst(engine, rootOf(engine, window()), "#y")), "\xC3\xA9");
}

TEST_F(MarkupTest, BadInputGivesSomeTreeAndNeverFails) {
  const char* inputs[] = {"",       "<",          "<<<>>>",     "</",       "<div",        "<div id='x",
                          "<a =b>", "<!--",       "<!doctype",  "<style>x", "&&&;&#;&#x;", "<p/><br/></br>",
                          "<1a>",   "<a b=\"c>d", "<div(((((>", "<x .>",    "<x #>",       "<x |>"};
  for (const char* input : inputs) {
    SCOPED_TRACE(input);
    HELEMENT root = page(input);
    ASSERT_NE(root, nullptr);
    EXPECT_EQ(tagOf(engine, root), "html");
    html(engine, root, true);
  }
  EXPECT_EQ(body("a < b & c"), "a &lt; b &amp; c");
}

TEST_F(MarkupTest, DeepNestingStaysShallowEnough) {
  std::string deep;
  for (int i = 0; i < 100000; ++i) deep += "<div>";
  HELEMENT root = page(deep);
  EXPECT_EQ(selectAll(engine, root, "div").size(), 100000u);
  HELEMENT last = selectAll(engine, root, "div").back();
  UINT depth = 0;
  for (HELEMENT he = last; he != nullptr; ++depth) engine.GetParentElement(he, &he);
  EXPECT_LE(depth, 260u);
}

TEST_F(MarkupTest, MegabytePageParsesWhole) {
  std::string big = "<html><body>";
  for (int i = 0; big.size() < 1024 * 1024; ++i)
    big += "<div class=row id=r" + std::to_string(i) + "><span .cell title='t&amp;'>cell " + std::to_string(i) +
           "</span><input|text value=v></div>\n";
  big += "</body></html>";
  HELEMENT root = page(big);
  const std::vector<HELEMENT> cells = selectAll(engine, root, "div.row > span.cell");
  ASSERT_GT(cells.size(), 10000u);
  EXPECT_EQ(text(engine, cells.back()), "cell " + std::to_string(cells.size() - 1));
  EXPECT_EQ(attribute(engine, cells.back(), "title"), "t&");
}

}  // namespace
}  // namespace kvt1::html
