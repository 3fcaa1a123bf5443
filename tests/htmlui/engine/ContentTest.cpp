// Content, attributes and styles: HTML out and back in, the places
// SetElementHtml puts markup, inner text, runtime and inline styles.
#include <gtest/gtest.h>

#include "tests/htmlui/engine/EngineTestSupport.h"

namespace kvt1::html {
namespace {

using namespace test;

class ContentTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(load(engine, window(), "<body><div id=box><p id=p>one</p></div></body>"));
    root = rootOf(engine, window());
  }
  HELEMENT byId(const char* id) { return selectFirst(engine, root, (std::string("#") + id).c_str()); }
  HLDOM_RESULT setHtml(HELEMENT he, const std::string& markup, UINT where) {
    return engine.SetElementHtml(he, reinterpret_cast<LPCBYTE>(markup.data()), static_cast<DWORD>(markup.size()),
                                 where);
  }
  std::string style(HELEMENT he, const char* name) {
    LPCWSTR value = nullptr;
    engine.GetStyleAttribute(he, name, &value);
    return value != nullptr ? platform::toUtf8(value) : "(null)";
  }

  DomEngine engine;
  HELEMENT root = nullptr;
};

TEST_F(ContentTest, HtmlRoundTripsThroughTheEngine) {
  const std::string page =
      "<html><head><style>p > b { color: red }</style></head><body title=\"a&amp;b &quot;q&quot;\">"
      "<p class=\"x y\">1 &lt; 2 &amp;&amp; \xC3\xA4<br><img src=\"i.png\"></p><textarea>&lt;b&gt;</textarea>"
      "<widget>u</widget></body></html>";
  ASSERT_TRUE(load(engine, window(2), page));
  const std::string out = html(engine, rootOf(engine, window(2)), true);
  EXPECT_EQ(out, page);
  ASSERT_TRUE(load(engine, window(3), out));
  EXPECT_EQ(html(engine, rootOf(engine, window(3)), true), out);
}

TEST_F(ContentTest, SetElementHtmlInEveryPlace) {
  HELEMENT box = byId("box");
  HELEMENT p = byId("p");
  EXPECT_EQ(setHtml(box, "<b>s</b>", SIH_INSERT_AT_START), HLDOM_OK);
  EXPECT_EQ(setHtml(box, "<i>e</i>", SIH_APPEND_AFTER_LAST), HLDOM_OK);
  EXPECT_EQ(setHtml(p, "<hr>", SOH_INSERT_BEFORE), HLDOM_OK);
  EXPECT_EQ(setHtml(p, "t<br>", SOH_INSERT_AFTER), HLDOM_OK);
  EXPECT_EQ(html(engine, box, false), "<b>s</b><hr><p id=\"p\">one</p>t<br><i>e</i>");
  EXPECT_EQ(setHtml(p, "<p id=q>two</p>", SOH_REPLACE), HLDOM_OK);
  EXPECT_EQ(tagOf(engine, p), "(invalid)");
  EXPECT_EQ(html(engine, box, false), "<b>s</b><hr><p id=\"q\">two</p>t<br><i>e</i>");
  EXPECT_EQ(setHtml(box, "<ul><li>a<li>b</ul>", SIH_REPLACE_CONTENT), HLDOM_OK);
  EXPECT_EQ(html(engine, box, false), "<ul><li>a</li><li>b</li></ul>");
  EXPECT_EQ(engine.SetElementHtml(box, nullptr, 0, SIH_REPLACE_CONTENT), HLDOM_OK);
  EXPECT_EQ(html(engine, box, false), "");
  EXPECT_EQ(setHtml(root, "<p>", SOH_REPLACE), HLDOM_OPERATION_FAILED);  // the root has no parent
  EXPECT_EQ(setHtml(box, "<p>", 6), HLDOM_INVALID_PARAMETER);
}

TEST_F(ContentTest, SetHtmlAppliesMarkupStates) {
  setHtml(byId("box"), "<input|checkbox #c checked><input #d disabled>", SIH_REPLACE_CONTENT);
  EXPECT_EQ(stateOf(engine, byId("c")), static_cast<UINT>(STATE_CHECKED));
  EXPECT_EQ(stateOf(engine, byId("d")), static_cast<UINT>(STATE_DISABLED));
}

TEST_F(ContentTest, InnerTextReadAndReplaced) {
  HELEMENT box = byId("box");
  setHtml(box, "<p>a <b>b</b></p><style>x{}</style>c&amp;", SIH_REPLACE_CONTENT);
  EXPECT_EQ(text(engine, box), "a bc&");
  const std::wstring replacement = L"<not markup> & \u00FC";
  ASSERT_EQ(engine.SetElementInnerText16(box, replacement.c_str(), static_cast<UINT>(replacement.size())), HLDOM_OK);
  EXPECT_EQ(text(engine, box), "<not markup> & \xC3\xBC");
  EXPECT_EQ(html(engine, box, false), "&lt;not markup&gt; &amp; \xC3\xBC");
  UINT count = 9;
  engine.GetChildrenCount(box, &count);
  EXPECT_EQ(count, 0u);
}

TEST_F(ContentTest, AttributesSetReadAndRemoved) {
  HELEMENT p = byId("p");
  EXPECT_EQ(engine.SetAttributeByName(p, "Data-Value", L"1"), HLDOM_OK);
  EXPECT_EQ(attribute(engine, p, "data-value"), "1");
  engine.SetAttributeByName(p, "DATA-VALUE", L"2");
  EXPECT_EQ(html(engine, p, true), "<p id=\"p\" Data-Value=\"2\">one</p>");
  engine.SetAttributeByName(p, "data-value", nullptr);
  EXPECT_EQ(attribute(engine, p, "data-value"), "(none)");
  EXPECT_EQ(engine.SetAttributeByName(p, nullptr, L"x"), HLDOM_INVALID_PARAMETER);
  LPCWSTR value = nullptr;
  EXPECT_EQ(engine.GetAttributeByName(p, nullptr, &value), HLDOM_INVALID_PARAMETER);
}

TEST_F(ContentTest, RuntimeStylesOverInlineStylesAndApart) {
  setHtml(byId("box"), "<div id=s style='color: blue; Width:10px; color: green'>s</div>", SIH_REPLACE_CONTENT);
  HELEMENT s = byId("s");
  EXPECT_EQ(style(s, "color"), "green");
  EXPECT_EQ(style(s, "WIDTH"), "10px");
  EXPECT_EQ(style(s, "height"), "");
  engine.SetStyleAttribute(s, "Color", L"red");
  EXPECT_EQ(style(s, "color"), "red");
  EXPECT_EQ(attribute(engine, s, "style"), "color: blue; Width:10px; color: green");  // markup unchanged
  engine.SetStyleAttribute(s, "color", nullptr);
  EXPECT_EQ(style(s, "color"), "green");
  engine.SetStyleAttribute(s, "display", L"none");
  BOOL visible = TRUE;
  engine.IsElementVisible(s, &visible);
  EXPECT_FALSE(visible);
  engine.SetStyleAttribute(s, "display", L"");
  engine.IsElementVisible(s, &visible);
  EXPECT_TRUE(visible);
  engine.SetAttributeByName(byId("box"), "style", L"visibility: hidden");
  engine.IsElementVisible(s, &visible);
  EXPECT_FALSE(visible);
}

}  // namespace
}  // namespace kvt1::html
