#include "tests/htmlui/engine/litehtml/win32/PageRender.h"

#include <cstdlib>
#include <iostream>

namespace kvt1::html::test {

void PageRender::SetUp() {
  const ::testing::TestInfo* test = ::testing::UnitTest::GetInstance()->current_test_info();
  std::string name = std::string(test->test_suite_name()) + "-" + test->name();
  for (char& c : name) {
    if (c == '/') c = '-';
  }
  const char* kept = std::getenv("KVT1_TEST_PICTURES");
  keep_ = kept && *kept;
  folder_ = keep_ ? std::filesystem::path(kept) / name
                  : std::filesystem::temp_directory_path() /
                        ("kvt1-gdi-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) + "-" + name);
  std::filesystem::create_directories(folder_);
  layout.setImageLoader([this](const std::string& url) {
    auto found = files.find(url);
    return found == files.end() ? std::vector<unsigned char>() : found->second;
  });
}

void PageRender::TearDown() {
  if (HasFailure()) {
    std::cout << "The pictures of this test are kept in " << folder_.string() << "\n";
    return;
  }
  if (!keep_) std::filesystem::remove_all(folder_);
}

PngPicture PageRender::render(const std::string& body, int width, const std::string& name) {
  const std::string path = (folder_ / (name + ".png")).string();
  EXPECT_TRUE(layout.layout("<html kvt1-node=\"0\"><body kvt1-node=\"1\">" + body + "</body></html>", width));
  EXPECT_TRUE(layout.renderPng(path));
  return PngPicture(path);
}

LayoutBox PageRender::box(int node) const {
  const std::optional<LayoutBox> found = layout.box(node);
  EXPECT_TRUE(found.has_value()) << "node " << node << " has no box";
  return found.value_or(LayoutBox{});
}

}  // namespace kvt1::html::test
