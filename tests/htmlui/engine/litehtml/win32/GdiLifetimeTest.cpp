#include "htmlui/engine/litehtml/LitehtmlLayout.h"
#include "tests/htmlui/engine/litehtml/win32/PngPicture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

namespace kvt1::html::test {
namespace {

constexpr std::uint32_t kGreen = 0x20A040;

// A layout whose page shows a 10 x 10 picture from its loader.
std::unique_ptr<LitehtmlLayout> pictureLayout() {
  auto layout = std::make_unique<LitehtmlLayout>();
  const std::vector<unsigned char> png = pngSquare(10, kGreen);
  layout->setImageLoader([png](const std::string&) { return png; });
  EXPECT_TRUE(
      layout->layout(R"(<html kvt1-node="0"><body kvt1-node="1"><img kvt1-node="2" src="a.png"></body></html>)", 60));
  return layout;
}

int greenPixels(const LitehtmlLayout& layout, const std::filesystem::path& path) {
  if (!layout.renderPng(path.string())) return -1;
  const PngPicture picture(path.string());
  return picture.count(0, 0, picture.width(), picture.height(), [](std::uint32_t rgb) { return rgb == kGreen; });
}

// GDI+ starts with the first container and stops after the last: one that
// outlives another keeps drawing, and a container made after all are gone
// starts it again, as when the host unloads and loads the module.
TEST(GdiLifetimeTest, DrawingWorksWhileAnyContainerLivesAndAfterAllWereGone) {
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / "kvt1-gdi-lifetime";
  std::filesystem::create_directories(folder);

  auto first = pictureLayout();
  auto second = pictureLayout();
  EXPECT_EQ(greenPixels(*first, folder / "first.png"), 100);
  first.reset();
  EXPECT_EQ(greenPixels(*second, folder / "second.png"), 100);
  second.reset();

  auto again = pictureLayout();
  EXPECT_EQ(greenPixels(*again, folder / "again.png"), 100);
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace kvt1::html::test
