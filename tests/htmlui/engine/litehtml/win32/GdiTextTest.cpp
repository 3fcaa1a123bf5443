#include "tests/htmlui/engine/litehtml/win32/PageRender.h"

#include "htmlui/engine/litehtml/GdiplusApi.h"

#include <string>

namespace kvt1::html::test {
namespace {

class GdiTextTest : public PageRender {
 protected:
  // The width of each numbered span, laid out one per line.
  std::vector<int> spanWidths(const std::vector<std::string>& spans) {
    std::string body;
    for (std::size_t i = 0; i < spans.size(); ++i) {
      body += "<div><span kvt1-node=\"" + std::to_string(i + 2) + "\"" + spans[i] + "</span></div>";
    }
    EXPECT_TRUE(layout.layout("<html kvt1-node=\"0\"><body kvt1-node=\"1\">" + body + "</body></html>", 600));
    std::vector<int> widths;
    for (std::size_t i = 0; i < spans.size(); ++i) widths.push_back(box(int(i) + 2).width);
    return widths;
  }
};

// Any mark of ink on the dialog grey or white.
bool isInked(std::uint32_t rgb) {
  return ((rgb >> 16) & 0xFF) < 0xB0 || ((rgb >> 8) & 0xFF) < 0xB0 || (rgb & 0xFF) < 0xB0;
}

int CALLBACK faceFound(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM installed) {
  *reinterpret_cast<bool*>(installed) = true;
  return 0;
}

// An installed face that is none of the default's look, for the family list cases.
std::string installedMonospace() {
  const HDC dc = CreateCompatibleDC(nullptr);
  std::string found;
  for (const char* face : {"Courier New", "DejaVu Sans Mono", "Liberation Mono"}) {
    LOGFONTW wanted{};
    wanted.lfCharSet = DEFAULT_CHARSET;
    const std::wstring wide(face, face + std::char_traits<char>::length(face));
    wide.copy(wanted.lfFaceName, LF_FACESIZE - 1);
    bool installed = false;
    EnumFontFamiliesExW(dc, &wanted, faceFound, reinterpret_cast<LPARAM>(&installed), 0);
    if (installed) {
      found = face;
      break;
    }
  }
  DeleteDC(dc);
  return found;
}

TEST_F(GdiTextTest, TextIsDrawnInItsBoxAndNowhereElse) {
  struct Case {
    const char* name;
    const char* body;
  };
  const Case cases[] = {
      {"paragraph", R"(<p kvt1-node="2">A new version is available.</p>)"},
      {"heading", R"(<h1 kvt1-node="2">Update</h1>)"},
      {"italic", R"(<i kvt1-node="2">Settings</i>)"},
      {"small", R"(<small kvt1-node="2">Version 1.0</small>)"},
      {"link", R"(<a kvt1-node="2">Support page</a>)"},
      {"non-latin", R"(<p kvt1-node="2">Überprüfung Ωμέγα</p>)"},
  };
  for (const Case& c : cases) {
    const PngPicture picture = render(c.body, 300, c.name);
    ASSERT_TRUE(picture.valid()) << c.name;
    const LayoutBox text = box(2);
    const int inside = picture.count(text.x, text.y, text.width, text.height, isInked);
    EXPECT_GT(inside, text.height * 2) << c.name;
    EXPECT_LT(inside, text.width * text.height / 2) << c.name;
    EXPECT_EQ(picture.count(0, 0, picture.width(), picture.height(), isInked), inside)
        << c.name << ": ink outside the text's box";
  }
}

TEST_F(GdiTextTest, TextIsDrawnInItsColour) {
  const PngPicture picture = render(R"(<p kvt1-node="2" style="color:#0000ff">Blue words</p>)", 300, "blue");
  const LayoutBox text = box(2);
  const auto isBlue = [](std::uint32_t rgb) { return (rgb & 0xFF) > 0xC0 && ((rgb >> 16) & 0xFF) < 0x60; };
  EXPECT_GT(picture.count(text.x, text.y, text.width, text.height, isBlue), 20);
  EXPECT_EQ(picture.count(text.x, text.y, text.width, text.height, isDark), 0);
}

TEST_F(GdiTextTest, DecorationsDrawTheirLine) {
  struct Case {
    const char* decoration;
    double from;  // the part of the box's height where the line lies
    double to;
  };
  const Case cases[] = {
      {"underline", 0.6, 1.0},
      {"line-through", 0.3, 0.8},
      {"overline", 0.0, 0.35},
  };
  for (const Case& c : cases) {
    const PngPicture picture = render(
        std::string(R"(<span kvt1-node="2" style="text-decoration:)") + c.decoration + R"(">Read the terms</span>)",
        300, c.decoration);
    const LayoutBox text = box(2);
    int lines = 0;
    for (int y = text.y + int(text.height * c.from); y < text.y + int(text.height * c.to); ++y) {
      if (picture.count(text.x, y, text.width, 1, isDark) >= text.width * 9 / 10) ++lines;
    }
    EXPECT_GE(lines, 1) << c.decoration;
  }
  const PngPicture plain = render(R"(<span kvt1-node="2">Read the terms</span>)", 300, "plain");
  const LayoutBox text = box(2);
  for (int y = text.y; y < text.y + text.height; ++y) {
    EXPECT_LT(plain.count(text.x, y, text.width, 1, isDark), text.width * 9 / 10) << "row " << y - text.y;
  }
}

TEST_F(GdiTextTest, InkEndsWhereTheMeasuredWidthEnds) {
  for (const char* words : {"WWWWWWWWWW", "mmmm iiii llll", "Update available"}) {
    const PngPicture picture =
        render(std::string(R"(<span kvt1-node="2" style="white-space:nowrap">)") + words + "</span>", 400, words);
    const LayoutBox text = box(2);
    int right = -1;
    for (int x = 0; x < picture.width(); ++x) {
      if (picture.count(x, text.y, 1, text.height, isInked) > 0) right = x;
    }
    EXPECT_LE(right, text.x + text.width) << words;
    EXPECT_GE(right, text.x + text.width - 3) << words;
  }
}

TEST_F(GdiTextTest, FamilyListsAreTriedInOrderAndUnknownFontsMeasureLikeTheDefault) {
  const std::string monospace = installedMonospace();
  if (monospace.empty()) GTEST_SKIP() << "no monospaced face is installed to tell families apart";
  const std::string text = R"(>Measured iiiii WWWWW)";
  const std::vector<int> widths = spanWidths({
      R"( style="font-family:Tahoma")" + text,
      R"( style="font-family:'No Such Font'")" + text,
      R"( style="font-family:'No Such Font', 'Another Missing'")" + text,
      R"( style="font-family:')" + monospace + "'\"" + text,
      R"( style="font-family:'No Such Font', ')" + monospace + "', Tahoma\"" + text,
  });
  ASSERT_EQ(widths.size(), 5u);
  EXPECT_EQ(widths[1], widths[0]);
  EXPECT_EQ(widths[2], widths[0]);
  EXPECT_NE(widths[3], widths[0]);
  EXPECT_EQ(widths[4], widths[3]);
}

TEST_F(GdiTextTest, MeasuringIsStable) {
  const std::string page =
      R"(<html kvt1-node="0"><body kvt1-node="1"><p kvt1-node="2">The same words, measured again and again.</p>)"
      R"(<b kvt1-node="3">Bold</b> <i kvt1-node="4">italic</i></body></html>)";
  ASSERT_TRUE(layout.layout(page, 180));
  const LayoutBox first[] = {box(2), box(3), box(4)};
  for (int round = 0; round < 3; ++round) {
    LitehtmlLayout other;
    ASSERT_TRUE(other.layout(page, 180));
    for (int node = 2; node <= 4; ++node) {
      const LayoutBox again = *other.box(node);
      EXPECT_EQ(again.x, first[node - 2].x);
      EXPECT_EQ(again.y, first[node - 2].y);
      EXPECT_EQ(again.width, first[node - 2].width);
      EXPECT_EQ(again.height, first[node - 2].height);
    }
  }
}

TEST_F(GdiTextTest, TextTransformsMeasureLikeTheTransformedText) {
  struct Case {
    const char* transform;
    const char* source;
    const char* transformed;
  };
  const Case cases[] = {
      {"uppercase", "update now", "UPDATE NOW"},
      {"lowercase", "UPDATE NOW", "update now"},
      {"capitalize", "update now", "Update Now"},
      {"uppercase", "äöü éè", "ÄÖÜ ÉÈ"},
  };
  for (const Case& c : cases) {
    const std::vector<int> widths = spanWidths({
        std::string(R"( style="text-transform:)") + c.transform + "\">" + c.source,
        std::string(">") + c.transformed,
        std::string(">") + c.source,
    });
    EXPECT_EQ(widths[0], widths[1]) << c.transform << " " << c.source;
    EXPECT_NE(widths[0], widths[2]) << c.transform << " " << c.source;
  }
}

}  // namespace
}  // namespace kvt1::html::test
