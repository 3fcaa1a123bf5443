#include "htmlui/engine/litehtml/GdiplusPictures.h"

#include "htmlui/engine/litehtml/GdiplusApi.h"

#include <shlwapi.h>

#include <climits>
#include <cstring>

namespace kvt1::html {
namespace {

// A copy in memory of its own: the decoded bitmap may read its stream lazily.
std::unique_ptr<Gdiplus::Bitmap> premultipliedCopy(Gdiplus::Bitmap& decoded) {
  const UINT width = decoded.GetWidth();
  const UINT height = decoded.GetHeight();
  if (width == 0 || height == 0 || width > INT_MAX / 4 || height > INT_MAX) return nullptr;
  Gdiplus::Rect whole(0, 0, INT(width), INT(height));
  Gdiplus::BitmapData source{};
  if (decoded.LockBits(&whole, Gdiplus::ImageLockModeRead, PixelFormat32bppPARGB, &source) != Gdiplus::Ok)
    return nullptr;
  auto copy = std::make_unique<Gdiplus::Bitmap>(INT(width), INT(height), PixelFormat32bppPARGB);
  Gdiplus::BitmapData target{};
  const bool copied = copy->GetLastStatus() == Gdiplus::Ok &&
                      copy->LockBits(&whole, Gdiplus::ImageLockModeWrite, PixelFormat32bppPARGB, &target) ==
                          Gdiplus::Ok;
  if (copied) {
    for (UINT row = 0; row < height; ++row) {
      std::memcpy(static_cast<BYTE*>(target.Scan0) + INT_PTR(row) * target.Stride,
                  static_cast<const BYTE*>(source.Scan0) + INT_PTR(row) * source.Stride, std::size_t(width) * 4);
    }
    copy->UnlockBits(&target);
  }
  decoded.UnlockBits(&source);
  return copied ? std::move(copy) : nullptr;
}

std::unique_ptr<Gdiplus::Bitmap> decode(const std::vector<unsigned char>& bytes) {
  if (bytes.empty() || bytes.size() > UINT_MAX) return nullptr;
  IStream* stream = SHCreateMemStream(bytes.data(), UINT(bytes.size()));
  if (!stream) return nullptr;
  std::unique_ptr<Gdiplus::Bitmap> picture;
  {
    Gdiplus::Bitmap decoded(stream);
    if (decoded.GetLastStatus() == Gdiplus::Ok) picture = premultipliedCopy(decoded);
  }
  stream->Release();
  return picture;
}

}  // namespace

GdiplusPictures::GdiplusPictures() = default;

GdiplusPictures::~GdiplusPictures() = default;

void GdiplusPictures::setLoader(ImageLoader loader) {
  loader_ = std::move(loader);
  pictures_.clear();
}

void GdiplusPictures::load(const std::string& url) {
  if (url.empty() || pictures_.count(url)) return;
  pictures_[url] = loader_ ? decode(loader_(url)) : nullptr;
}

litehtml::size GdiplusPictures::size(const std::string& url) const {
  litehtml::size size;
  if (Gdiplus::Bitmap* image = picture(url)) {
    size.width = int(image->GetWidth());
    size.height = int(image->GetHeight());
  }
  return size;
}

Gdiplus::Bitmap* GdiplusPictures::picture(const std::string& url) const {
  auto found = pictures_.find(url);
  return found == pictures_.end() ? nullptr : found->second.get();
}

}  // namespace kvt1::html
