#include "htmlui/HTMCtrlText.h"

#include <gtest/gtest.h>

namespace kvt1 {
namespace {

TEST(HTMCtrlText, ColoursBecomeCssWithRedInTheLowByte) {
  EXPECT_EQ(ColorToCss(-1), L"transparent");
  EXPECT_EQ(ColorToCss(-1, 30), L"transparent");
  EXPECT_EQ(ColorToCss(0x0000FF), L"rgb(255,0,0)");
  EXPECT_EQ(ColorToCss(0x102030), L"rgb(48,32,16)");
  EXPECT_EQ(ColorToCss(0x0000FF, 30), L"rgba(255,0,0,0.7)");
  EXPECT_EQ(ColorToCss(0xFF0000, 0), L"rgba(0,0,255,1.0)");
  EXPECT_EQ(ColorToCss(0xFF0000, 100), L"rgba(0,0,255,0.0)");
}

TEST(HTMCtrlText, TextAndHtmlConversionsAreDeliberatelyAsymmetric) {
  EXPECT_EQ(TextToHtml(L"a b\r\nc"), L"a&nbsp;b<br>c");
  EXPECT_EQ(HtmlToText(L"a&nbsp;b<br>c"), L"a b<br>c");
  EXPECT_EQ(TextToHtml(L"x\ny\rz"), L"x<br>yz");
  EXPECT_EQ(TextToHtml(L"<b>1 & 2</b>"), L"<b>1&nbsp;&&nbsp;2</b>");
  EXPECT_EQ(HtmlToText(L"&lt;b&gt; &amp;"), L"<b> &amp;");
}

}  // namespace
}  // namespace kvt1
