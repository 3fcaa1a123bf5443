#pragma once
// The fixture of the Windows page container's tests: real pages laid out by
// the layout provider, drawn into PNG files and read back. Pictures are kept
// in KVT1_TEST_PICTURES when it names a folder, to look at; otherwise in a
// temporary folder that the test removes unless it failed.
#include "htmlui/engine/litehtml/LitehtmlLayout.h"
#include "tests/htmlui/engine/litehtml/win32/PngPicture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace kvt1::html::test {

class PageRender : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // Lays out <html><body>body</body></html> (nodes 0 and 1) at width and draws it into name.png.
  PngPicture render(const std::string& body, int width, const std::string& name);
  LayoutBox box(int node) const;

  // What the image loader gives for a URL; unknown URLs give no bytes.
  std::map<std::string, std::vector<unsigned char>> files;
  LitehtmlLayout layout;

 private:
  std::filesystem::path folder_;
  bool keep_ = false;
};

}  // namespace kvt1::html::test
