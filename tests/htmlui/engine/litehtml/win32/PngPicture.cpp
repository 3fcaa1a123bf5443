#include "tests/htmlui/engine/litehtml/win32/PngPicture.h"

#include "htmlui/engine/litehtml/GdiplusApi.h"
#include "htmlui/engine/litehtml/GdiplusPng.h"
#include "htmlui/engine/litehtml/GdiplusSession.h"
#include "platform/Unicode.h"

#include <algorithm>
#include <optional>

namespace kvt1::html::test {

PngPicture::PngPicture(const std::string& path) {
  GdiplusSession session;
  Gdiplus::Bitmap picture(platform::fromUtf8(path).c_str());
  if (picture.GetLastStatus() != Gdiplus::Ok) return;
  const int width = int(picture.GetWidth());
  const int height = int(picture.GetHeight());
  Gdiplus::Rect whole(0, 0, width, height);
  Gdiplus::BitmapData data{};
  if (picture.LockBits(&whole, Gdiplus::ImageLockModeRead, PixelFormat32bppARGB, &data) != Gdiplus::Ok) return;
  pixels_.resize(std::size_t(width) * height);
  for (int y = 0; y < height; ++y) {
    const auto* row = reinterpret_cast<const std::uint32_t*>(static_cast<const BYTE*>(data.Scan0) + y * data.Stride);
    for (int x = 0; x < width; ++x) pixels_[std::size_t(y) * width + x] = row[x] & 0xFFFFFF;
  }
  picture.UnlockBits(&data);
  width_ = width;
  height_ = height;
}

std::uint32_t PngPicture::at(int x, int y) const { return pixels_[std::size_t(y) * width_ + x]; }

int PngPicture::count(int x, int y, int width, int height, const std::function<bool(std::uint32_t)>& test) const {
  int passing = 0;
  for (int row = std::max(y, 0); row < std::min(y + height, height_); ++row) {
    for (int column = std::max(x, 0); column < std::min(x + width, width_); ++column) {
      if (test(at(column, row))) ++passing;
    }
  }
  return passing;
}

bool isDark(std::uint32_t rgb) {
  return ((rgb >> 16) & 0xFF) < 0x80 && ((rgb >> 8) & 0xFF) < 0x80 && (rgb & 0xFF) < 0x80;
}

std::vector<unsigned char> pngSquare(int size, std::uint32_t top, std::uint32_t bottom) {
  GdiplusSession session;
  std::vector<unsigned char> bytes;
  const std::optional<CLSID> encoder = pngEncoder();
  IStream* stream = nullptr;
  if (!encoder || CreateStreamOnHGlobal(nullptr, TRUE, &stream) != S_OK) return bytes;
  {
    Gdiplus::Bitmap square(size, size, PixelFormat32bppARGB);
    Gdiplus::Graphics graphics(&square);
    graphics.Clear(Gdiplus::Color(top));
    Gdiplus::SolidBrush lower{Gdiplus::Color(bottom)};
    graphics.SetCompositingMode(Gdiplus::CompositingModeSourceCopy);
    graphics.FillRectangle(&lower, 0, size / 2, size, size - size / 2);
    if (square.Save(stream, &*encoder, nullptr) == Gdiplus::Ok) {
      STATSTG status{};
      stream->Stat(&status, STATFLAG_NONAME);
      bytes.resize(std::size_t(status.cbSize.QuadPart));
      const LARGE_INTEGER start{};
      stream->Seek(start, STREAM_SEEK_SET, nullptr);
      ULONG read = 0;
      stream->Read(bytes.data(), ULONG(bytes.size()), &read);
      bytes.resize(read);
    }
  }
  stream->Release();
  return bytes;
}

}  // namespace kvt1::html::test
