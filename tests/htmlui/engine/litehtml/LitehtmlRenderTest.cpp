#include "htmlui/engine/litehtml/LitehtmlLayout.h"
#include "tests/htmlui/engine/litehtml/PngPixels.h"

#include <cairo.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace kvt1::html {
namespace {

using test::PngPixels;

class LitehtmlRenderTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder = std::filesystem::temp_directory_path() /
             ("kvt1-render-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) + "-" +
              ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::create_directories(folder);
  }
  void TearDown() override { std::filesystem::remove_all(folder); }

  std::string file(const std::string& name) const { return (folder / name).string(); }

  PngPixels render(const std::string& html, int width, const std::string& name) {
    EXPECT_TRUE(layout.layout(html, width));
    EXPECT_TRUE(layout.renderPng(file(name)));
    return PngPixels(file(name));
  }

  std::filesystem::path folder;
  LitehtmlLayout layout;
};

std::string page(const std::string& body) {
  return "<html kvt1-node=\"0\"><body kvt1-node=\"1\">" + body + "</body></html>";
}

TEST_F(LitehtmlRenderTest, PictureHasTheLayoutSizeAndShowsThePage) {
  const PngPixels picture =
      render(page("<h1 kvt1-node=\"2\">Update</h1><p kvt1-node=\"3\">A new version is available.</p>"
                  "<button kvt1-node=\"4\">OK</button>"),
             240, "dialog.png");
  ASSERT_TRUE(picture.valid());
  EXPECT_EQ(picture.width(), 240);
  EXPECT_EQ(picture.height(), layout.contentHeight());
  EXPECT_FALSE(picture.singleColour());
  // The dialog background is light grey, not white.
  const std::uint32_t corner = picture.at(1, 1) & 0xFFFFFF;
  EXPECT_NE(corner, 0xFFFFFFu);
  EXPECT_GT(corner & 0xFF, 0xC0u);
}

TEST_F(LitehtmlRenderTest, CheckedCheckBoxLooksDifferent) {
  const auto checkBox = [](const std::string& state) {
    return page("<div kvt1-node=\"2\"><input kvt1-node=\"3\" type=\"checkbox\" class=\"" + state +
                "\"/><label kvt1-node=\"4\">Send usage reports</label></div>");
  };
  const PngPixels unchecked = render(checkBox(""), 200, "unchecked.png");
  const auto box = layout.box(3);
  ASSERT_TRUE(box.has_value());
  ASSERT_GT(box->width, 4);
  const PngPixels checked = render(checkBox("kvt1-checked"), 200, "checked.png");
  ASSERT_EQ(layout.box(3)->x, box->x);
  // The mark sits inside the border; the label stays as it is.
  EXPECT_GT(checked.differenceIn(unchecked, box->x + 2, box->y + 2, box->width - 4, box->height - 4), 0.1);
  const auto label = layout.box(4);
  EXPECT_EQ(checked.differenceIn(unchecked, label->x, label->y, label->width, label->height), 0.0);
}

TEST_F(LitehtmlRenderTest, UncheckedBoxesShowNoValue) {
  for (const char* type : {"checkbox", "radio"}) {
    const auto box = [&](const char* value) {
      return page(std::string("<input kvt1-node=\"2\" type=\"") + type + "\"" + value + "/>");
    };
    const PngPixels plain = render(box(""), 100, "plain.png");
    const PngPixels valued = render(box(" value=\"0\""), 100, "valued.png");
    const LayoutBox input = *layout.box(2);
    EXPECT_EQ(valued.differenceIn(plain, input.x, input.y, input.width, input.height), 0.0) << type;
  }
}

TEST_F(LitehtmlRenderTest, OnlyTheFocusedTextFieldShowsACaret) {
  const struct {
    const char* type;
    bool caret;
  } cases[] = {{"text", true}, {"checkbox", false}, {"radio", false}, {"button", false}};
  for (const auto& c : cases) {
    const auto field = [&](const char* state) {
      return page(std::string("<input kvt1-node=\"2\" type=\"") + c.type + "\" value=\"ab\" class=\"" + state + "\"/>");
    };
    const PngPixels plain = render(field(""), 200, "plain.png");
    const PngPixels focused = render(field("kvt1-focus"), 200, "focused.png");
    const LayoutBox input = *layout.box(2);
    // Inside the border: the focus colours the border only, the caret stands in the field.
    const double changed = focused.differenceIn(plain, input.x + 2, input.y + 2, input.width - 4, input.height - 4);
    EXPECT_EQ(changed > 0.0, c.caret) << c.type;
  }
}

TEST_F(LitehtmlRenderTest, AMenuItemsCheckMarkStandsBeforeItsText) {
  const auto menu = [](const char* state) {
    return page(std::string("<menu kvt1-node=\"2\" class=\"context kvt1-popup\" style=\"left:0;top:0\">"
                            "<li kvt1-node=\"3\" class=\"") +
                state + "\">Show surfaces</li></menu>");
  };
  const PngPixels plain = render(menu(""), 200, "plain.png");
  const LayoutBox item = *layout.box(3);
  const PngPixels checked = render(menu("kvt1-checked"), 200, "checked.png");
  ASSERT_EQ(layout.box(3)->width, item.width);
  constexpr int kTextIndent = 24;  // the item's left padding
  EXPECT_GT(checked.differenceIn(plain, item.x, item.y, kTextIndent, item.height), 0.05);
  EXPECT_EQ(checked.differenceIn(plain, item.x + kTextIndent, item.y, item.width - kTextIndent, item.height), 0.0);
}

TEST_F(LitehtmlRenderTest, StateClassesChangeButtons) {
  const PngPixels normal = render(page("<button kvt1-node=\"2\">Apply</button>"), 150, "normal.png");
  const LayoutBox button = *layout.box(2);
  for (const char* state : {"kvt1-hover", "kvt1-disabled"}) {
    const PngPixels changed =
        render(page(std::string("<button kvt1-node=\"2\" class=\"") + state + "\">Apply</button>"), 150,
               std::string(state) + ".png");
    EXPECT_GT(changed.differenceIn(normal, button.x, button.y, button.width, button.height), 0.5) << state;
  }
}

TEST_F(LitehtmlRenderTest, ImagesComeFromTheLoader) {
  std::string asked;
  layout.setImageLoader([&](const std::string& url) {
    asked = url;
    return url == "IMG_LOGO.IMAGES" ? test::pngSquare(16, 0xFF0000) : std::vector<unsigned char>{};
  });
  const PngPixels picture = render(page("<img kvt1-node=\"2\" src=\"IMG_LOGO.IMAGES\"/>"), 100, "logo.png");
  EXPECT_EQ(asked, "IMG_LOGO.IMAGES");
  const auto image = layout.box(2);
  ASSERT_TRUE(image.has_value());
  EXPECT_EQ(image->width, 16);
  EXPECT_EQ(image->height, 16);
  EXPECT_EQ(picture.at(image->x + 8, image->y + 8), 0xFFFF0000u);
}

// A window paints the part that needs it onto its own Cairo context.
TEST_F(LitehtmlRenderTest, PaintDrawsTheAskedPartOntoTheContext) {
  layout.setImageLoader([](const std::string&) { return test::pngSquare(16, 0xFF0000); });
  const PngPixels whole =
      render(page("<p kvt1-node=\"2\">Text above</p><img kvt1-node=\"3\" src=\"IMG_LOGO.IMAGES\"/>"), 120, "whole.png");
  const LayoutBox image = *layout.box(3);
  const LayoutBox area{0, image.y, 120, image.height};
  ASSERT_GT(area.y, 2);

  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, whole.width(), whole.height());
  cairo_t* cr = cairo_create(surface);
  cairo_set_source_rgb(cr, 0, 0, 1);
  cairo_paint(cr);
  EXPECT_TRUE(layout.paint(reinterpret_cast<std::uintptr_t>(cr), area));
  EXPECT_FALSE(LitehtmlLayout().paint(reinterpret_cast<std::uintptr_t>(cr), area));  // nothing laid out
  cairo_destroy(cr);
  ASSERT_EQ(cairo_surface_write_to_png(surface, file("painted.png").c_str()), CAIRO_STATUS_SUCCESS);
  cairo_surface_destroy(surface);

  const PngPixels painted(file("painted.png"));
  EXPECT_EQ(painted.differenceIn(whole, area.x, area.y, area.width, area.height), 0.0);
  EXPECT_EQ(painted.at(image.x + 8, image.y + 8), 0xFFFF0000u);
  EXPECT_EQ(painted.at(1, 1), 0xFF0000FFu);  // outside the part: as it was
  EXPECT_EQ(painted.at(1, area.y + area.height), 0xFF0000FFu);
}

TEST_F(LitehtmlRenderTest, BrokenImageDataLeavesAnEmptyPlace) {
  layout.setImageLoader([](const std::string&) { return std::vector<unsigned char>{'n', 'o', 't', 'p', 'n', 'g'}; });
  const PngPixels picture = render(page("<img kvt1-node=\"2\" src=\"missing.png\"/>text"), 100, "broken.png");
  ASSERT_TRUE(picture.valid());
  const auto image = layout.box(2);
  ASSERT_TRUE(image.has_value());
  EXPECT_EQ(image->width, 0);
}

TEST_F(LitehtmlRenderTest, NothingToDrawOrNowhereToWrite) {
  EXPECT_FALSE(layout.renderPng(file("none.png")));
  EXPECT_FALSE(std::filesystem::exists(file("none.png")));
  ASSERT_TRUE(layout.layout(page("<p>Text</p>"), 100));
  EXPECT_FALSE(layout.renderPng(file("no-such-folder/page.png")));
}

TEST_F(LitehtmlRenderTest, EmptyPageStillGivesAPicture) {
  const PngPixels picture = render(page(""), 50, "empty.png");
  ASSERT_TRUE(picture.valid());
  EXPECT_EQ(picture.width(), 50);
  EXPECT_GE(picture.height(), 1);
}

}  // namespace
}  // namespace kvt1::html
