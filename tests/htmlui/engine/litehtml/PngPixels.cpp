#include "tests/htmlui/engine/litehtml/PngPixels.h"

#include <cairo.h>

#include <algorithm>

namespace kvt1::html::test {

PngPixels::PngPixels(const std::string& path) {
  cairo_surface_t* surface = cairo_image_surface_create_from_png(path.c_str());
  if (cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS) {
    cairo_surface_flush(surface);
    width_ = cairo_image_surface_get_width(surface);
    height_ = cairo_image_surface_get_height(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    const unsigned char* data = cairo_image_surface_get_data(surface);
    pixels_.reserve(std::size_t(width_) * height_);
    for (int y = 0; y < height_; ++y) {
      const auto* row = reinterpret_cast<const std::uint32_t*>(data + std::size_t(y) * stride);
      pixels_.insert(pixels_.end(), row, row + width_);
    }
  }
  cairo_surface_destroy(surface);
}

double PngPixels::differenceIn(const PngPixels& other, int x, int y, int width, int height) const {
  int differing = 0, total = 0;
  for (int row = y; row < y + height; ++row) {
    for (int column = x; column < x + width; ++column) {
      ++total;
      if (at(column, row) != other.at(column, row)) ++differing;
    }
  }
  return total ? double(differing) / total : 0.0;
}

bool PngPixels::singleColour() const {
  return std::all_of(pixels_.begin(), pixels_.end(), [&](std::uint32_t pixel) { return pixel == pixels_.front(); });
}

std::vector<unsigned char> pngSquare(int size, std::uint32_t rgb) {
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, size, size);
  cairo_t* cr = cairo_create(surface);
  cairo_set_source_rgb(cr, ((rgb >> 16) & 0xFF) / 255.0, ((rgb >> 8) & 0xFF) / 255.0, (rgb & 0xFF) / 255.0);
  cairo_paint(cr);
  cairo_destroy(cr);
  std::vector<unsigned char> bytes;
  cairo_surface_write_to_png_stream(
      surface,
      [](void* closure, const unsigned char* data, unsigned int length) {
        auto* out = static_cast<std::vector<unsigned char>*>(closure);
        out->insert(out->end(), data, data + length);
        return CAIRO_STATUS_SUCCESS;
      },
      &bytes);
  cairo_surface_destroy(surface);
  return bytes;
}

}  // namespace kvt1::html::test
