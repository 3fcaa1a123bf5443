#pragma once
// Test helpers for pictures: a PNG file read back through Cairo, and PNG bytes
// of a plain coloured square for the image loader.
#include <cstdint>
#include <string>
#include <vector>

namespace kvt1::html::test {

class PngPixels {
 public:
  explicit PngPixels(const std::string& path);  // empty when the file does not decode
  bool valid() const { return width_ > 0 && height_ > 0; }
  int width() const { return width_; }
  int height() const { return height_; }
  std::uint32_t at(int x, int y) const { return pixels_[std::size_t(y) * width_ + x]; }  // 0xAARRGGBB
  // The share of pixels in the rectangle that differ from the other picture's.
  double differenceIn(const PngPixels& other, int x, int y, int width, int height) const;
  bool singleColour() const;

 private:
  int width_ = 0;
  int height_ = 0;
  std::vector<std::uint32_t> pixels_;
};

std::vector<unsigned char> pngSquare(int size, std::uint32_t rgb);

}  // namespace kvt1::html::test
