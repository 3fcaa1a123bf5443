#pragma once
// Test helpers for pictures on Windows: a PNG file read back through GDI+,
// and PNG bytes of a coloured square for the image loader.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace kvt1::html::test {

constexpr std::uint32_t kDialogGrey = 0xF0F0F0;

class PngPicture {
 public:
  explicit PngPicture(const std::string& path);  // empty when the file does not decode
  bool valid() const { return width_ > 0 && height_ > 0; }
  int width() const { return width_; }
  int height() const { return height_; }
  std::uint32_t at(int x, int y) const;  // 0xRRGGBB
  // The pixels of the rectangle (within the picture) whose colour passes the test.
  int count(int x, int y, int width, int height, const std::function<bool(std::uint32_t)>& test) const;

 private:
  int width_ = 0;
  int height_ = 0;
  std::vector<std::uint32_t> pixels_;
};

// Text ink: every channel well below the dialog grey.
bool isDark(std::uint32_t rgb);

// A square of two colours (0xAARRGGBB): the top half, then the bottom half.
std::vector<unsigned char> pngSquare(int size, std::uint32_t top, std::uint32_t bottom);
// An opaque square of one colour (0xRRGGBB).
inline std::vector<unsigned char> pngSquare(int size, std::uint32_t rgb) {
  return pngSquare(size, 0xFF000000 | rgb, 0xFF000000 | rgb);
}

}  // namespace kvt1::html::test
