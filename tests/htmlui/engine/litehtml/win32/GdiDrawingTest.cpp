#include "tests/htmlui/engine/litehtml/win32/PageRender.h"

#include "htmlui/engine/litehtml/GdiplusApi.h"

#include <cstdlib>

namespace kvt1::html::test {
namespace {

class GdiDrawingTest : public PageRender {};

bool sameColour(std::uint32_t actual, std::uint32_t expected, int tolerance) {
  for (int shift : {0, 8, 16}) {
    if (std::abs(int((actual >> shift) & 0xFF) - int((expected >> shift) & 0xFF)) > tolerance) return false;
  }
  return true;
}

// A pixel of a box: x and y from its left top, or from its right bottom when negative.
struct Probe {
  int x;
  int y;
  std::uint32_t colour;
};

void expectProbes(const PngPicture& picture, const LayoutBox& box, const std::vector<Probe>& probes,
                  const std::string& name) {
  for (const Probe& probe : probes) {
    const int x = probe.x >= 0 ? box.x + probe.x : box.x + box.width + probe.x;
    const int y = probe.y >= 0 ? box.y + probe.y : box.y + box.height + probe.y;
    EXPECT_TRUE(sameColour(picture.at(x, y), probe.colour, 2))
        << name << ": pixel " << probe.x << "," << probe.y << " of the box is " << std::hex << picture.at(x, y)
        << ", not " << probe.colour;
  }
}

TEST_F(GdiDrawingTest, BackgroundColoursFillTheirBoxes) {
  struct Case {
    const char* name;
    std::string body;
    std::uint32_t colour;
    int from;   // the first checked column, from the box's left
    int width;  // the checked columns; 0: all but the box's edges
  };
  const Case cases[] = {
      {"block", R"(<div kvt1-node="2" style="width:60px;height:30px;background-color:#3366cc"></div>)", 0x3366CC, 2, 0},
      {"half transparent over white",
       R"html(<div style="width:68px;background-color:#ffffff;padding:4px"><div kvt1-node="2" )html"
       R"html(style="width:60px;height:30px;background-color:rgba(204,0,0,0.5)"></div></div>)html",
       0xE58080, 2, 0},
      // The left padding of an inline box, beside its word (node 2).
      {"inline", R"(<span style="background-color:#00aa00;padding:0 8px"><b kvt1-node="2">Word</b></span>)", 0x00AA00,
       -7, 6},
      {"button", R"(<button kvt1-node="2" style="width:60px;height:24px"></button>)", 0xE1E1E1, 2, 0},
  };
  for (const Case& c : cases) {
    const PngPicture picture = render(c.body, 200, c.name);
    ASSERT_TRUE(picture.valid()) << c.name;
    const LayoutBox filled = box(2);
    ASSERT_GT(filled.width, 4) << c.name;
    ASSERT_GT(filled.height, 4) << c.name;
    // Every checked pixel has the colour; the page beside the box keeps the dialog grey.
    const int width = c.width ? c.width : filled.width - 4;
    EXPECT_EQ(picture.count(filled.x + c.from, filled.y + 2, width, filled.height - 4,
                            [&](std::uint32_t rgb) { return sameColour(rgb, c.colour, 2); }),
              width * (filled.height - 4))
        << c.name;
    EXPECT_EQ(picture.at(filled.x + filled.width + 20, filled.y + filled.height / 2), kDialogGrey) << c.name;
  }
}

TEST_F(GdiDrawingTest, BordersFollowTheirStyleAndRadius) {
  constexpr std::uint32_t red = 0xCC0000, blue = 0x0000CC, white = 0xFFFFFF;
  struct Case {
    const char* name;
    const char* style;
    std::vector<Probe> probes;
  };
  const Case cases[] = {
      {"square",
       "border:4px solid #cc0000",
       {{0, 0, red}, {-1, -1, red}, {40, 1, red}, {1, 25, red}, {5, 5, white}, {40, 25, white}}},
      // The outer corner lies outside the radius, the ring runs on along the curve.
      {"rounded",
       "border:4px solid #cc0000;border-radius:10px",
       {{0, 0, kDialogGrey},
        {-1, -1, kDialogGrey},
        {0, -1, kDialogGrey},
        {4, 4, red},
        {40, 1, red},
        {1, 25, red},
        {40, 25, white}}},
      {"rounded sides of two colours",
       "border:4px solid #0000cc;border-top-color:#cc0000;border-radius:10px",
       {{40, 1, red}, {1, 25, blue}, {-2, 25, blue}, {40, -2, blue}, {40, 25, white}}},
      // Mitred corners: the top side's trapezoid ends on the diagonal.
      {"square sides of two colours",
       "border:4px solid #0000cc;border-top-color:#cc0000",
       {{40, 0, red}, {3, 1, red}, {1, 3, blue}, {0, 25, blue}, {-1, 25, blue}, {40, -1, blue}, {40, 25, white}}},
      {"thin sides of two colours",
       "border:1px solid #0000cc;border-top-color:#cc0000",
       {{40, 0, red}, {0, 25, blue}, {-1, 25, blue}, {40, -1, blue}, {40, 1, white}, {1, 25, white}}},
      {"translucent", "border:4px solid rgba(204,0,0,0.5)", {{40, 1, 0xE58080}, {1, 25, 0xE58080}, {40, 25, white}}},
  };
  for (const Case& c : cases) {
    const PngPicture picture = render(std::string(R"(<div kvt1-node="2" style="width:80px;height:50px;)") +
                                          "background-color:#ffffff;" + c.style + R"("></div>)",
                                      200, c.name);
    ASSERT_TRUE(picture.valid()) << c.name;
    expectProbes(picture, box(2), c.probes, c.name);
  }
}

TEST_F(GdiDrawingTest, BrokenBordersLeaveGaps) {
  for (const char* style : {"dashed", "dotted"}) {
    const PngPicture picture = render(
        std::string(R"(<div kvt1-node="2" style="width:120px;height:30px;border:2px )") + style + R"( #000000"></div>)",
        200, style);
    const LayoutBox bordered = box(2);
    const int inked = picture.count(bordered.x, bordered.y, bordered.width, 1, isDark);
    EXPECT_GT(inked, bordered.width / 4) << style;
    EXPECT_LT(inked, bordered.width * 9 / 10) << style;
  }
}

TEST_F(GdiDrawingTest, OverflowHiddenClipsWhatItHolds) {
  constexpr std::uint32_t red = 0xCC0000;
  struct Case {
    const char* name;
    const char* style;
    std::vector<Probe> probes;
  };
  const Case cases[] = {
      {"square", "", {{0, 0, red}, {-1, -1, red}, {20, 10, red}}},
      {"rounded", "border-radius:10px", {{0, 0, kDialogGrey}, {-1, -1, kDialogGrey}, {20, 10, red}, {5, 5, red}}},
  };
  for (const Case& c : cases) {
    const PngPicture picture =
        render(std::string(R"(<div kvt1-node="2" style="width:60px;height:40px;overflow:hidden;)") + c.style +
                   R"("><div style="width:300px;height:200px;background-color:#cc0000"></div></div>)",
               200, c.name);
    const LayoutBox clip = box(2);
    expectProbes(picture, clip, c.probes, c.name);
    // Nothing of the large child shows right of or below the box.
    EXPECT_EQ(picture.count(clip.x + clip.width, clip.y, 100, clip.height,
                            [](std::uint32_t rgb) { return rgb != kDialogGrey; }),
              0)
        << c.name;
    EXPECT_EQ(picture.count(clip.x, clip.y + clip.height, clip.width, 100,
                            [](std::uint32_t rgb) { return rgb != kDialogGrey; }),
              0)
        << c.name;
  }
}

TEST_F(GdiDrawingTest, OverflowHiddenClipsText) {
  const PngPicture picture =
      render(R"(<div kvt1-node="2" style="width:40px;overflow:hidden;white-space:nowrap">WWWWWWWWWWWWWWWWWWWW</div>)",
             300, "text");
  const LayoutBox clip = box(2);
  EXPECT_GT(picture.count(clip.x, clip.y, clip.width, clip.height, isDark), 20);
  EXPECT_EQ(picture.count(clip.x + clip.width, clip.y, 200, clip.height, isDark), 0);
}

TEST_F(GdiDrawingTest, ListMarkersAreDrawnBesideTheirItems) {
  struct Case {
    const char* type;
    bool drawn;
  };
  for (const Case& c :
       {Case{"disc", true}, Case{"circle", true}, Case{"square", true}, Case{"decimal", true}, Case{"none", false}}) {
    const PngPicture picture = render(std::string(R"(<ul style="list-style-type:)") + c.type +
                                          R"(;padding-left:30px"><li kvt1-node="2">First</li></ul>)",
                                      200, c.type);
    const LayoutBox item = box(2);
    const int marker = picture.count(item.x - 30, item.y, 30, item.height, isDark);
    if (c.drawn) {
      EXPECT_GT(marker, 2) << c.type;
    } else {
      EXPECT_EQ(marker, 0) << c.type;
    }
  }
}

TEST_F(GdiDrawingTest, PaintDrawsOnlyItsAreaOfTheHdc) {
  constexpr int width = 200, height = 80;
  ASSERT_TRUE(layout.layout(R"(<html kvt1-node="0"><body kvt1-node="1" style="padding:0">)"
                            R"(<div style="height:80px;background-color:#cc0000"></div></body></html>)",
                            width));
  BITMAPINFO format{};
  format.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
  ASSERT_NE(bitmap, nullptr);
  const HDC dc = CreateCompatibleDC(nullptr);
  const HGDIOBJ previous = SelectObject(dc, bitmap);
  const RECT all{0, 0, width, height};
  FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));

  EXPECT_TRUE(layout.paint(reinterpret_cast<std::uintptr_t>(dc), LayoutBox{20, 10, 50, 30}));
  GdiFlush();
  const auto pixel = [&](int x, int y) { return static_cast<const std::uint32_t*>(bits)[y * width + x] & 0xFFFFFF; };
  EXPECT_EQ(pixel(20, 10), 0xCC0000u);
  EXPECT_EQ(pixel(69, 39), 0xCC0000u);
  EXPECT_EQ(pixel(19, 10), 0xFFFFFFu);
  EXPECT_EQ(pixel(70, 39), 0xFFFFFFu);
  EXPECT_EQ(pixel(20, 40), 0xFFFFFFu);
  EXPECT_EQ(pixel(150, 60), 0xFFFFFFu);

  SelectObject(dc, previous);
  DeleteDC(dc);
  DeleteObject(bitmap);
}

}  // namespace
}  // namespace kvt1::html::test
