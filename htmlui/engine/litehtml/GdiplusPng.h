#pragma once
// PNG files through GDI+'s own encoder.
#include "htmlui/engine/litehtml/GdiplusApi.h"

#include <optional>
#include <string>

namespace kvt1::html {

// The class id of GDI+'s PNG encoder, if it has one.
std::optional<CLSID> pngEncoder();

// Writes the picture to path (UTF-8) as a PNG file.
bool writePng(Gdiplus::Image& picture, const std::string& path);

}  // namespace kvt1::html
