#include "htmlui/engine/litehtml/PngImages.h"

#include <cairo.h>

#include <cstring>

namespace kvt1::html {
namespace {

struct ByteReader {
  const std::vector<unsigned char>& bytes;
  std::size_t offset = 0;
};

cairo_status_t readBytes(void* closure, unsigned char* data, unsigned int length) {
  auto* reader = static_cast<ByteReader*>(closure);
  if (reader->bytes.size() - reader->offset < length) return CAIRO_STATUS_READ_ERROR;
  std::memcpy(data, reader->bytes.data() + reader->offset, length);
  reader->offset += length;
  return CAIRO_STATUS_SUCCESS;
}

cairo_surface_t* decodePng(const std::vector<unsigned char>& bytes) {
  if (bytes.empty()) return nullptr;
  ByteReader reader{bytes};
  cairo_surface_t* surface = cairo_image_surface_create_from_png_stream(readBytes, &reader);
  if (cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS) return surface;
  cairo_surface_destroy(surface);
  return nullptr;
}

}  // namespace

PngImages::~PngImages() { clear(); }

void PngImages::setLoader(ImageLoader loader) {
  loader_ = std::move(loader);
  clear();
}

void PngImages::clear() {
  for (auto& [url, surface] : surfaces_) {
    if (surface) cairo_surface_destroy(surface);
  }
  surfaces_.clear();
}

void PngImages::load(const std::string& url) {
  if (url.empty() || surfaces_.count(url)) return;
  surfaces_[url] = loader_ ? decodePng(loader_(url)) : nullptr;
}

litehtml::size PngImages::size(const std::string& url) const {
  litehtml::size size;
  if (cairo_surface_t* image = surface(url)) {
    size.width = cairo_image_surface_get_width(image);
    size.height = cairo_image_surface_get_height(image);
  }
  return size;
}

cairo_surface_t* PngImages::surface(const std::string& url) const {
  auto found = surfaces_.find(url);
  return found == surfaces_.end() ? nullptr : found->second;
}

}  // namespace kvt1::html
