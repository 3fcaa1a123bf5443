#pragma once
// The pictures of a page on Windows: the bytes from the image loader decoded
// by GDI+ (PNG, and whatever else GDI+ reads) once per URL, kept as
// premultiplied 32-bit bitmaps.
#include "htmlui/engine/litehtml/PageContainer.h"

#include <litehtml.h>

#include <map>
#include <memory>
#include <string>

namespace Gdiplus {
class Bitmap;
}

namespace kvt1::html {

class GdiplusPictures {
 public:
  GdiplusPictures();
  ~GdiplusPictures();
  GdiplusPictures(const GdiplusPictures&) = delete;
  GdiplusPictures& operator=(const GdiplusPictures&) = delete;

  void setLoader(ImageLoader loader);
  // Asks the loader once per URL; a URL whose bytes do not decode stays empty.
  void load(const std::string& url);
  litehtml::size size(const std::string& url) const;
  Gdiplus::Bitmap* picture(const std::string& url) const;  // null when not loaded

 private:
  ImageLoader loader_;
  std::map<std::string, std::unique_ptr<Gdiplus::Bitmap>> pictures_;
};

}  // namespace kvt1::html
