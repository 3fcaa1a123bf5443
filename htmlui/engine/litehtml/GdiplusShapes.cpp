#include "htmlui/engine/litehtml/GdiplusShapes.h"

#include <algorithm>

namespace kvt1::html {
namespace {

// A quarter ellipse in the corner box whose left top is (x, y), from the
// angle `from` (degrees, clockwise from the x axis) on; a square corner
// without radius.
void addCorner(Gdiplus::GraphicsPath& path, float x, float y, float rx, float ry, float from, float cornerX,
               float cornerY) {
  if (rx <= 0 || ry <= 0) {
    path.AddLine(cornerX, cornerY, cornerX, cornerY);
    return;
  }
  path.AddArc(x, y, 2 * rx, 2 * ry, from, 90);
}

}  // namespace

Gdiplus::Color colorOf(const litehtml::web_color& color) {
  return Gdiplus::Color(color.alpha, color.red, color.green, color.blue);
}

void addRoundedRectangle(Gdiplus::GraphicsPath& path, const litehtml::position& box,
                         const litehtml::border_radiuses& radius) {
  const Gdiplus::RectF whole(float(box.x), float(box.y), float(box.width), float(box.height));
  if (hasRadius(radius)) {
    addRoundedRectangle(path, whole, radius, 0);
    return;
  }
  path.StartFigure();
  path.AddRectangle(whole);
}

void addRoundedRectangle(Gdiplus::GraphicsPath& path, const Gdiplus::RectF& box,
                         const litehtml::border_radiuses& radius, float shrink) {
  const float x = box.X, y = box.Y, right = box.X + box.Width, bottom = box.Y + box.Height;
  // Radii never exceed half the box, so opposite corners cannot overlap.
  const auto rx = [&](int r) { return std::clamp(r - shrink, 0.0f, box.Width / 2); };
  const auto ry = [&](int r) { return std::clamp(r - shrink, 0.0f, box.Height / 2); };
  path.StartFigure();
  addCorner(path, x, y, rx(radius.top_left_x), ry(radius.top_left_y), 180, x, y);
  addCorner(path, right - 2 * rx(radius.top_right_x), y, rx(radius.top_right_x), ry(radius.top_right_y), 270, right, y);
  addCorner(path, right - 2 * rx(radius.bottom_right_x), bottom - 2 * ry(radius.bottom_right_y),
            rx(radius.bottom_right_x), ry(radius.bottom_right_y), 0, right, bottom);
  addCorner(path, x, bottom - 2 * ry(radius.bottom_left_y), rx(radius.bottom_left_x), ry(radius.bottom_left_y), 90, x,
            bottom);
  path.CloseFigure();
}

}  // namespace kvt1::html
