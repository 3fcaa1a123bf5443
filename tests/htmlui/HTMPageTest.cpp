#include "htmlui/HTMPage.h"

#include <gtest/gtest.h>

#include <string>

namespace kvt1 {
namespace {

using namespace std::string_literals;

std::wstring resolveKnown(const std::wstring& tag) {
  if (tag == L"name") return L"KVT";
  if (tag == L"nested") return L"<b><[name]></b>";
  if (tag == L"self") return L"again <[self]>";
  return L"";
}

TEST(HTMPage, CutsAfterTheFirstHtmlEndTag) {
  EXPECT_EQ(cutAfterHtmlEnd(L"<html><body/></html>\0garbage</html>"s), L"<html><body/></html>");
  EXPECT_EQ(cutAfterHtmlEnd(L"<html><body/></html>trailing"), L"<html><body/></html>");
  EXPECT_EQ(cutAfterHtmlEnd(L"<html><body>no end"), L"<html><body>no end");
}

TEST(HTMPage, ReplacesEveryOccurrenceOfATagAndResolvesNestedTags) {
  std::wstring page = L"<p><[name]> and <[name]>: <[nested]></p>";
  substitutePageTags(page, resolveKnown);
  EXPECT_EQ(page, L"<p>KVT and KVT: <b>KVT</b></p>");
}

TEST(HTMPage, UnknownTagsAreNamedInThePage) {
  std::wstring page = L"<p><[*missing]></p><p><[*missing]></p>";
  substitutePageTags(page, resolveKnown);
  EXPECT_EQ(page, L"<p>UNKNOWN TAG USED (*missing)</p><p>UNKNOWN TAG USED (*missing)</p>");
}

TEST(HTMPage, AnOpenTagWithoutCloseEndsTheSubstitution) {
  std::wstring page = L"<[name]> <[never closed <[name]>";
  substitutePageTags(page, resolveKnown);
  // Every "<[name]>" went in the first round, the one inside the open tag too.
  EXPECT_EQ(page, L"KVT <[never closed KVT");

  std::wstring open = L"text <[ without end";
  substitutePageTags(open, resolveKnown);
  EXPECT_EQ(open, L"text <[ without end");
}

TEST(HTMPage, AReplacementThatBringsItsOwnTagBackStillEnds) {
  std::wstring page = L"<[self]>";
  substitutePageTags(page, resolveKnown);
  EXPECT_NE(page.find(L"again"), std::wstring::npos);
  EXPECT_LT(page.size(), 20u * kMaxPageTagRounds);
}

TEST(HTMPage, MarkersAreFoundAnywhereInTheText) {
  PageMarkers none = findPageMarkers(L"<html><body>plain</body></html>");
  EXPECT_FALSE(none.resizeable || none.dontMonitor || none.splash || none.child || none.noCloseButton);
  PageMarkers all = findPageMarkers(L"<!-- fpresizeable hvdontmonitor --><p>fpsplash fpchild noclosebutton</p>");
  EXPECT_TRUE(all.resizeable && all.dontMonitor && all.splash && all.child && all.noCloseButton);
}

TEST(HTMPage, WindowStylesFollowTheMarkersInTheirOrder) {
  auto styles = [](PageMarkers markers, std::uint32_t base = 0) { return dialogWindowStyles(markers, base); };
  PageMarkers plain;
  EXPECT_EQ(styles(plain).style, 0x80C80000u);
  EXPECT_EQ(styles(plain).exStyle, 0x101u);
  EXPECT_EQ(styles(plain, 0x10000000).style, 0x90C80000u);

  PageMarkers splash;
  splash.splash = true;
  EXPECT_EQ(styles(splash).style, 0x80000000u);
  EXPECT_EQ(styles(splash).exStyle, 8u);

  PageMarkers resizeableSplash = splash;
  resizeableSplash.resizeable = true;
  EXPECT_EQ(styles(resizeableSplash).style, 0x80CC0000u);
  EXPECT_EQ(styles(resizeableSplash).exStyle, 8u);

  PageMarkers noClose;
  noClose.noCloseButton = true;
  EXPECT_EQ(styles(noClose).style, 0x80C00000u);

  PageMarkers child;
  child.child = true;
  child.resizeable = true;
  EXPECT_EQ(styles(child, 0x10000000).style, 0x40000000u);
  EXPECT_EQ(styles(child).exStyle, 0u);
}

TEST(HTMPage, StandardButtonsKeepTheirBlanks) {
  EXPECT_EQ(standardButtonResult(L"OK"), 1);
  EXPECT_EQ(standardButtonResult(L"CANCEL"), 2);
  EXPECT_EQ(standardButtonResult(L"ABORT "), 3);
  EXPECT_EQ(standardButtonResult(L"RETRY "), 4);
  EXPECT_EQ(standardButtonResult(L"IGNORE"), 5);
  EXPECT_EQ(standardButtonResult(L"YES"), 6);
  EXPECT_EQ(standardButtonResult(L"NO"), 7);
  EXPECT_EQ(standardButtonResult(L"CLOSE"), 8);
  EXPECT_EQ(standardButtonResult(L"HELP"), 9);
  EXPECT_FALSE(standardButtonResult(L"RETRY"));
  EXPECT_FALSE(standardButtonResult(L"ABORT"));
  EXPECT_FALSE(standardButtonResult(L"ok"));
  EXPECT_FALSE(standardButtonResult(L""));
  EXPECT_FALSE(standardButtonResult(kMainClickElement));
}

TEST(HTMPage, UrlsNameResourcesByTheirExtension) {
  PageResourceName image = resourceForUrl(L"IMG_VRMSPLASH.IMAGES");
  EXPECT_EQ(image.name, L"IMG_VRMSPLASH");
  EXPECT_FALSE(image.type.isNumber());
  EXPECT_EQ(image.type.name(), L"IMAGES");

  PageResourceName sheet = resourceForUrl(L"HTM_CTRL_COMMON");
  EXPECT_EQ(sheet.name, L"HTM_CTRL_COMMON");
  EXPECT_EQ(sheet.type.number(), platform::kResourceTypeHtml);

  PageResourceName page = resourceForUrl(L"HTM_DLG_X.html");
  EXPECT_EQ(page.name, L"HTM_DLG_X");
  EXPECT_TRUE(page.type.isNumber());

  PageResourceName png = resourceForUrl(L"IDB_LOGO.PNG.png");
  EXPECT_EQ(png.name, L"IDB_LOGO.PNG");
  EXPECT_EQ(png.type.name(), L"png");

  // Only the first 260 characters of a request are read.
  PageResourceName longUrl = resourceForUrl(std::wstring(300, L'A') + L".IMAGES");
  EXPECT_EQ(longUrl.name.size(), 260u);
  EXPECT_TRUE(longUrl.type.isNumber());
}

}  // namespace
}  // namespace kvt1
