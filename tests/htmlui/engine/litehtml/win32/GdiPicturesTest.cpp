#include "tests/htmlui/engine/litehtml/win32/PageRender.h"

namespace kvt1::html::test {
namespace {

class GdiPicturesTest : public PageRender {};

constexpr std::uint32_t kBlue = 0x2050D0;

bool isBlue(std::uint32_t rgb) { return rgb == kBlue; }

TEST_F(GdiPicturesTest, PictureFromTheLoaderTakesItsSizeAndAppears) {
  files["res:logo.png"] = pngSquare(16, kBlue);
  const PngPicture picture = render(R"(<img kvt1-node="2" src="res:logo.png">)", 100, "img");
  const LayoutBox image = box(2);
  EXPECT_EQ(image.width, 16);
  EXPECT_EQ(image.height, 16);
  EXPECT_EQ(picture.count(image.x, image.y, 16, 16, isBlue), 16 * 16);
  EXPECT_EQ(picture.count(0, 0, picture.width(), picture.height(), isBlue), 16 * 16);
}

TEST_F(GdiPicturesTest, PictureScalesToTheSizeThePageGivesTheRightWayUp) {
  constexpr std::uint32_t orange = 0xE08020;
  files["res:logo.png"] = pngSquare(8, 0xFF000000 | kBlue, 0xFF000000 | orange);
  const PngPicture picture =
      render(R"(<img kvt1-node="2" src="res:logo.png" style="width:32px;height:24px">)", 100, "scaled");
  const LayoutBox image = box(2);
  ASSERT_EQ(image.width, 32);
  ASSERT_EQ(image.height, 24);
  // Where the halves meet, scaling blends a few rows; the rest, edges included, keeps the picture's colours.
  EXPECT_EQ(picture.count(image.x, image.y, 32, 10, isBlue), 32 * 10);
  EXPECT_EQ(picture.count(image.x, image.y + 14, 32, 10, [](std::uint32_t rgb) { return rgb == orange; }), 32 * 10);
  EXPECT_EQ(picture.at(image.x + 33, image.y + 12), kDialogGrey);
}

TEST_F(GdiPicturesTest, TranslucentPicturesBlendWithWhatLiesBelow) {
  // Half-transparent red above, transparent below.
  files["res:glass.png"] = pngSquare(16, 0x80CC0000, 0x00000000);
  for (const char* size : {"16px", "32px"}) {
    const PngPicture picture =
        render(std::string(R"(<div style="background-color:#ffffff;padding:4px">)") +
                   R"(<img kvt1-node="2" src="res:glass.png" style="width:)" + size + ";height:" + size + R"("></div>)",
               100, size);
    const LayoutBox image = box(2);
    const auto blended = [](std::uint32_t rgb) {
      return (rgb >> 16) >= 0xE3 && (rgb >> 16) <= 0xE7 && ((rgb >> 8) & 0xFF) >= 0x7D && ((rgb >> 8) & 0xFF) <= 0x81;
    };
    EXPECT_EQ(picture.count(image.x, image.y, image.width, image.height / 2 - 2, blended),
              image.width * (image.height / 2 - 2))
        << size;
    EXPECT_EQ(picture.count(image.x, image.y + image.height / 2 + 2, image.width, image.height / 2 - 2,
                            [](std::uint32_t rgb) { return rgb == 0xFFFFFF; }),
              image.width * (image.height / 2 - 2))
        << size;
  }
}

TEST_F(GdiPicturesTest, BackgroundPicturesRepeatAsTheStyleSays) {
  files["res:dot.png"] = pngSquare(8, kBlue);
  struct Case {
    const char* name;
    const char* style;
    int blue;  // pixels of the 40 x 24 box
    std::vector<std::pair<int, int>> bluePixels;
    std::vector<std::pair<int, int>> whitePixels;
  };
  const Case cases[] = {
      {"repeat", "", 40 * 24, {{0, 0}, {39, 23}}, {}},
      {"repeat-x", "background-repeat:repeat-x", 40 * 8, {{0, 0}, {39, 7}}, {{0, 8}, {39, 23}}},
      {"repeat-y", "background-repeat:repeat-y", 8 * 24, {{0, 0}, {7, 23}}, {{8, 0}, {39, 23}}},
      {"no-repeat at the right bottom",
       "background-repeat:no-repeat;background-position:right bottom",
       8 * 8,
       {{32, 16}, {39, 23}},
       {{0, 0}, {31, 15}}},
  };
  for (const Case& c : cases) {
    const PngPicture picture =
        render(std::string(R"(<div kvt1-node="2" style="width:40px;height:24px;background:#ffffff url(res:dot.png);)") +
                   c.style + R"("></div>)",
               100, c.name);
    const LayoutBox filled = box(2);
    EXPECT_EQ(picture.count(filled.x, filled.y, 40, 24, isBlue), c.blue) << c.name;
    for (auto [x, y] : c.bluePixels) EXPECT_EQ(picture.at(filled.x + x, filled.y + y), kBlue) << c.name;
    for (auto [x, y] : c.whitePixels) EXPECT_EQ(picture.at(filled.x + x, filled.y + y), 0xFFFFFFu) << c.name;
  }
}

TEST_F(GdiPicturesTest, MissingOrBrokenPicturesLeaveTheirBoxBlank) {
  const std::vector<unsigned char> png = pngSquare(16, kBlue);
  ASSERT_GT(png.size(), 16u);
  struct Case {
    const char* name;
    std::vector<unsigned char> bytes;
  };
  const Case cases[] = {
      {"missing", {}},
      {"not-a-picture", {'<', 'h', 't', 'm', 'l', '>'}},
      {"truncated", std::vector<unsigned char>(png.begin(), png.begin() + png.size() / 2)},
      {"signature-only", std::vector<unsigned char>(png.begin(), png.begin() + 8)},
  };
  for (const Case& c : cases) {
    // One URL per case: pictures are asked for once per URL.
    const std::string url = std::string("res:") + c.name;
    if (!c.bytes.empty()) files[url] = c.bytes;
    const PngPicture picture =
        render(R"(<p>Before</p><img kvt1-node="2" src=")" + url + R"(" style="width:20px;height:20px">)" +
                   R"(<div kvt1-node="3" style="width:20px;height:20px;background-image:url()" + url +
                   R"x()"></div>)x" + R"(<p kvt1-node="4">After</p>)",
               100, c.name);
    ASSERT_TRUE(picture.valid()) << c.name;
    for (int node : {2, 3}) {
      const LayoutBox blank = box(node);
      EXPECT_EQ(picture.count(blank.x, blank.y, 20, 20, [](std::uint32_t rgb) { return rgb == kDialogGrey; }), 20 * 20)
          << c.name << ", node " << node;
    }
    // The rest of the page is drawn as usual.
    const LayoutBox after = box(4);
    EXPECT_GT(picture.count(after.x, after.y, after.width, after.height, isDark), 10) << c.name;
  }
}

}  // namespace
}  // namespace kvt1::html::test
