#pragma once
// The pictures of a page: PNG bytes from the image loader, decoded once into
// Cairo surfaces and kept by their URL.
#include "htmlui/engine/litehtml/PageContainer.h"

#include <map>
#include <string>
#include <vector>

typedef struct _cairo_surface cairo_surface_t;

namespace kvt1::html {

class PngImages {
 public:
  PngImages() = default;
  ~PngImages();
  PngImages(const PngImages&) = delete;
  PngImages& operator=(const PngImages&) = delete;

  void setLoader(ImageLoader loader);
  // Asks the loader once per URL; a URL without valid PNG data stays empty.
  void load(const std::string& url);
  litehtml::size size(const std::string& url) const;
  cairo_surface_t* surface(const std::string& url) const;  // null when not loaded

 private:
  void clear();

  ImageLoader loader_;
  std::map<std::string, cairo_surface_t*> surfaces_;
};

}  // namespace kvt1::html
