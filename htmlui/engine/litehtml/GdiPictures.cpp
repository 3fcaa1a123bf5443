#include "htmlui/engine/litehtml/GdiPictures.h"

#include <shlwapi.h>

#include <climits>
#include <cstring>

namespace kvt1::html {

HBITMAP createPixelSection(int width, int height, void** pixels) {
  BITMAPINFO format{};
  format.bmiHeader.biSize = sizeof(format.bmiHeader);
  format.bmiHeader.biWidth = width;
  format.bmiHeader.biHeight = -height;
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  format.bmiHeader.biCompression = BI_RGB;
  return CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, pixels, nullptr, 0);
}

std::unique_ptr<GdiPicture> GdiPicture::decode(const std::vector<unsigned char>& bytes) {
  if (bytes.empty() || bytes.size() > UINT_MAX) return nullptr;
  IStream* stream = SHCreateMemStream(bytes.data(), UINT(bytes.size()));
  if (!stream) return nullptr;
  std::unique_ptr<GdiPicture> picture;
  {
    Gdiplus::Bitmap decoded(stream);
    const UINT width = decoded.GetWidth();
    const UINT height = decoded.GetHeight();
    Gdiplus::Rect whole(0, 0, INT(width), INT(height));
    Gdiplus::BitmapData source{};
    void* pixels = nullptr;
    if (decoded.GetLastStatus() == Gdiplus::Ok && width > 0 && height > 0 && width <= INT_MAX / 4 &&
        height <= INT_MAX / (width * 4) &&
        decoded.LockBits(&whole, Gdiplus::ImageLockModeRead, PixelFormat32bppPARGB, &source) == Gdiplus::Ok) {
      if (const HBITMAP section = createPixelSection(int(width), int(height), &pixels)) {
        for (UINT row = 0; row < height; ++row) {
          std::memcpy(static_cast<BYTE*>(pixels) + std::size_t(row) * width * 4,
                      static_cast<const BYTE*>(source.Scan0) + INT_PTR(row) * source.Stride, std::size_t(width) * 4);
        }
        picture.reset(new GdiPicture(section, pixels, int(width), int(height)));
      }
      decoded.UnlockBits(&source);
    }
  }
  stream->Release();
  return picture && picture->bitmap_->GetLastStatus() == Gdiplus::Ok ? std::move(picture) : nullptr;
}

GdiPicture::GdiPicture(HBITMAP section, void* pixels, int width, int height)
    : section_(section),
      width_(width),
      height_(height),
      bitmap_(std::make_unique<Gdiplus::Bitmap>(width, height, width * 4, PixelFormat32bppPARGB,
                                                static_cast<BYTE*>(pixels))) {}

GdiPicture::~GdiPicture() {
  bitmap_.reset();
  DeleteObject(section_);
}

void GdiPicture::blend(HDC dc, int x, int y) const {
  const HDC source = CreateCompatibleDC(dc);
  const HGDIOBJ previous = SelectObject(source, section_);
  const BLENDFUNCTION over{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
  GdiAlphaBlend(dc, x, y, width_, height_, source, 0, 0, width_, height_, over);
  SelectObject(source, previous);
  DeleteDC(source);
}

GdiPictures::GdiPictures() = default;

GdiPictures::~GdiPictures() = default;

void GdiPictures::setLoader(ImageLoader loader) {
  loader_ = std::move(loader);
  pictures_.clear();
}

void GdiPictures::load(const std::string& url) {
  if (url.empty() || pictures_.count(url)) return;
  pictures_[url] = loader_ ? GdiPicture::decode(loader_(url)) : nullptr;
}

litehtml::size GdiPictures::size(const std::string& url) const {
  litehtml::size size;
  if (const GdiPicture* found = picture(url)) {
    size.width = found->width();
    size.height = found->height();
  }
  return size;
}

GdiPicture* GdiPictures::picture(const std::string& url) const {
  auto found = pictures_.find(url);
  return found == pictures_.end() ? nullptr : found->second.get();
}

}  // namespace kvt1::html
