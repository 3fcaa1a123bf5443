#include "htmlui/engine/litehtml/GdiCanvas.h"

#include "htmlui/engine/litehtml/GdiPictures.h"
#include "htmlui/engine/litehtml/GdiplusShapes.h"

namespace kvt1::html {
namespace {

// How the tiles of a picture meet: along a repeated axis a tile's edge
// blends with the next tile when scaled, along the others with itself
// (a mirrored neighbour), as at the edge of a single picture.
Gdiplus::WrapMode tiling(litehtml::background_repeat repeat) {
  switch (repeat) {
    case litehtml::background_repeat_repeat_x:
      return Gdiplus::WrapModeTileFlipY;
    case litehtml::background_repeat_repeat_y:
      return Gdiplus::WrapModeTileFlipX;
    case litehtml::background_repeat_no_repeat:
      return Gdiplus::WrapModeTileFlipXY;
    case litehtml::background_repeat_repeat:
      break;
  }
  return Gdiplus::WrapModeTile;
}

}  // namespace

GdiCanvas::GdiCanvas(HDC dc, const litehtml::position& area)
    : graphics_(dc), ready_(graphics_.GetLastStatus() == Gdiplus::Ok), area_(area) {
  graphics_.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
  // Pixel centres at half coordinates: boxes on whole pixels fill them exactly.
  graphics_.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
  graphics_.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
  applyClips();
}

GdiCanvas::~GdiCanvas() {
  if (gdiClip_) DeleteObject(gdiClip_);
}

void GdiCanvas::pushClip(const litehtml::position& box, const litehtml::border_radiuses& radius) {
  clips_.push_back({box, radius});
  applyClips();
}

void GdiCanvas::popClip() {
  if (clips_.empty()) return;
  clips_.pop_back();
  applyClips();
}

void GdiCanvas::drawWithGdi(const std::function<void(HDC)>& draw) {
  const HDC dc = graphics_.GetHDC();
  if (!dc) return;
  const int saved = SaveDC(dc);
  if (gdiClip_) ExtSelectClipRgn(dc, gdiClip_, RGN_AND);
  draw(dc);
  RestoreDC(dc, saved);
  graphics_.ReleaseHDC(dc);
}

void GdiCanvas::fillRect(const litehtml::position& box, const litehtml::web_color& color) {
  if (box.width <= 0 || box.height <= 0 || color.alpha == 0) return;
  if (color.alpha < 255) {
    Gdiplus::SolidBrush brush(colorOf(color));
    graphics_.FillRectangle(&brush, box.x, box.y, box.width, box.height);
    return;
  }
  drawWithGdi([&](HDC dc) {
    const RECT rect{box.left(), box.top(), box.right(), box.bottom()};
    const HBRUSH brush = CreateSolidBrush(RGB(color.red, color.green, color.blue));
    FillRect(dc, &rect, brush);
    DeleteObject(brush);
  });
}

void GdiCanvas::fillWithPicture(GdiPicture& picture, const litehtml::position& tile, const litehtml::position& area,
                                litehtml::background_repeat repeat) {
  if (tile.width <= 0 || tile.height <= 0 || area.width <= 0 || area.height <= 0) return;
  if (repeat == litehtml::background_repeat_no_repeat && tile.width == picture.width() &&
      tile.height == picture.height()) {
    drawWithGdi([&](HDC dc) {
      IntersectClipRect(dc, area.left(), area.top(), area.right(), area.bottom());
      picture.blend(dc, tile.x, tile.y);
    });
    return;
  }
  Gdiplus::TextureBrush brush(&picture.bitmap(), tiling(repeat));
  brush.TranslateTransform(float(tile.x), float(tile.y));
  brush.ScaleTransform(float(tile.width) / picture.width(), float(tile.height) / picture.height());
  graphics_.FillRectangle(&brush, area.x, area.y, area.width, area.height);
}

void GdiCanvas::applyClips() {
  Gdiplus::Region region(Gdiplus::Rect(area_.x, area_.y, area_.width, area_.height));
  for (const Clip& clip : clips_) {
    Gdiplus::GraphicsPath path;
    addRoundedRectangle(path, clip.box, clip.radius);
    region.Intersect(&path);
  }
  graphics_.SetClip(&region);

  if (gdiClip_) DeleteObject(gdiClip_);
  gdiClip_ = nullptr;
  if (clips_.empty()) return;
  // Page coordinates without any transform; GDI clips in device coordinates.
  gdiClip_ = region.GetHRGN(nullptr);
  const HDC dc = graphics_.GetHDC();
  if (gdiClip_ && dc) {
    POINT origin{0, 0};
    LPtoDP(dc, &origin, 1);
    OffsetRgn(gdiClip_, origin.x, origin.y);
  }
  if (dc) graphics_.ReleaseHDC(dc);
}

}  // namespace kvt1::html
