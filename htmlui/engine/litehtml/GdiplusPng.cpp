#include "htmlui/engine/litehtml/GdiplusPng.h"

#include "platform/Unicode.h"

#include <cwchar>
#include <vector>

namespace kvt1::html {

std::optional<CLSID> pngEncoder() {
  UINT count = 0;
  UINT bytes = 0;
  if (Gdiplus::GetImageEncodersSize(&count, &bytes) != Gdiplus::Ok || bytes == 0) return std::nullopt;
  // The codec records are followed by the strings they point to.
  std::vector<unsigned char> buffer(bytes);
  auto* codecs = reinterpret_cast<Gdiplus::ImageCodecInfo*>(buffer.data());
  if (Gdiplus::GetImageEncoders(count, bytes, codecs) != Gdiplus::Ok) return std::nullopt;
  for (UINT i = 0; i < count; ++i) {
    if (codecs[i].MimeType && std::wcscmp(codecs[i].MimeType, L"image/png") == 0) return codecs[i].Clsid;
  }
  return std::nullopt;
}

bool writePng(Gdiplus::Image& picture, const std::string& path) {
  const std::optional<CLSID> encoder = pngEncoder();
  return encoder && picture.Save(platform::fromUtf8(path).c_str(), &*encoder, nullptr) == Gdiplus::Ok;
}

}  // namespace kvt1::html
