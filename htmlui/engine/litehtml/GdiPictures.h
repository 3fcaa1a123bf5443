#pragma once
// The pictures of a page on Windows: the bytes from the image loader decoded
// by GDI+ (PNG, and whatever else GDI+ reads) once per URL, kept as
// premultiplied 32-bit pixels that GDI and GDI+ share.
#include "htmlui/engine/litehtml/GdiplusApi.h"
#include "htmlui/engine/litehtml/PageContainer.h"

#include <litehtml.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace kvt1::html {

// A 32-bit DIB section, top row first as GDI+ lays out its scan lines;
// null when it cannot be made.
HBITMAP createPixelSection(int width, int height, void** pixels);

class GdiPicture {
 public:
  // Null when the bytes are not a picture GDI+ can decode.
  static std::unique_ptr<GdiPicture> decode(const std::vector<unsigned char>& bytes);
  ~GdiPicture();
  GdiPicture(const GdiPicture&) = delete;
  GdiPicture& operator=(const GdiPicture&) = delete;

  int width() const { return width_; }
  int height() const { return height_; }
  // For GDI+ scaling and tiling.
  Gdiplus::Bitmap& bitmap() { return *bitmap_; }
  // Draws the picture at its own size with its left top at (x, y), blended
  // over what is there by GDI (far faster than GDI+ under Wine).
  void blend(HDC dc, int x, int y) const;

 private:
  GdiPicture(HBITMAP section, void* pixels, int width, int height);

  HBITMAP section_;
  int width_;
  int height_;
  // Shares the section's pixels: released before the section.
  std::unique_ptr<Gdiplus::Bitmap> bitmap_;
};

class GdiPictures {
 public:
  GdiPictures();
  ~GdiPictures();
  GdiPictures(const GdiPictures&) = delete;
  GdiPictures& operator=(const GdiPictures&) = delete;

  void setLoader(ImageLoader loader);
  // Asks the loader once per URL; a URL whose bytes do not decode stays empty.
  void load(const std::string& url);
  litehtml::size size(const std::string& url) const;
  GdiPicture* picture(const std::string& url) const;  // null when not loaded

 private:
  ImageLoader loader_;
  std::map<std::string, std::unique_ptr<GdiPicture>> pictures_;
};

}  // namespace kvt1::html
