#include "htmlui/engine/litehtml/GdiplusShapes.h"

#include <algorithm>

namespace kvt1::html {
namespace {

bool isDrawn(const litehtml::border& side) {
  return side.width > 0 && side.style != litehtml::border_style_none && side.style != litehtml::border_style_hidden &&
         side.color.alpha > 0;
}

bool sameLook(const litehtml::border& a, const litehtml::border& b) {
  return a.width == b.width && a.style == b.style && a.color == b.color;
}

bool hasRadius(const litehtml::border_radiuses& r) {
  return r.top_left_x || r.top_left_y || r.top_right_x || r.top_right_y || r.bottom_right_x || r.bottom_right_y ||
         r.bottom_left_x || r.bottom_left_y;
}

bool isBroken(const litehtml::border& side) {
  return side.style == litehtml::border_style_dotted || side.style == litehtml::border_style_dashed;
}

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

// Dotted and dashed sides: a stroke along the middle of the side.
void strokeBroken(Gdiplus::Graphics& graphics, const litehtml::border& side, float x1, float y1, float x2, float y2) {
  Gdiplus::Pen pen(colorOf(side.color), float(side.width));
  pen.SetDashStyle(side.style == litehtml::border_style_dotted ? Gdiplus::DashStyleDot : Gdiplus::DashStyleDash);
  graphics.DrawLine(&pen, x1, y1, x2, y2);
}

void fillSide(Gdiplus::Graphics& graphics, const litehtml::border& side, const Gdiplus::PointF (&corners)[4],
              float x1, float y1, float x2, float y2) {
  if (!isDrawn(side)) return;
  if (isBroken(side)) {
    strokeBroken(graphics, side, x1, y1, x2, y2);
    return;
  }
  Gdiplus::SolidBrush brush(colorOf(side.color));
  graphics.FillPolygon(&brush, corners, 4);
}

// The box from (x, y) to (right, bottom) with each radius less shrink,
// radii being no larger than half the box, so that corners cannot overlap.
void addRoundedBox(Gdiplus::GraphicsPath& path, float x, float y, float right, float bottom,
                   const litehtml::border_radiuses& radius, float shrink) {
  const auto rx = [&](int r) { return std::clamp(r - shrink, 0.0f, (right - x) / 2); };
  const auto ry = [&](int r) { return std::clamp(r - shrink, 0.0f, (bottom - y) / 2); };
  path.StartFigure();
  addCorner(path, x, y, rx(radius.top_left_x), ry(radius.top_left_y), 180, x, y);
  addCorner(path, right - 2 * rx(radius.top_right_x), y, rx(radius.top_right_x), ry(radius.top_right_y), 270, right,
            y);
  addCorner(path, right - 2 * rx(radius.bottom_right_x), bottom - 2 * ry(radius.bottom_right_y),
            rx(radius.bottom_right_x), ry(radius.bottom_right_y), 0, right, bottom);
  addCorner(path, x, bottom - 2 * ry(radius.bottom_left_y), rx(radius.bottom_left_x), ry(radius.bottom_left_y), 90, x,
            bottom);
  path.CloseFigure();
}

// Four sides of one look around rounded corners: one stroke along their middle.
void strokeRoundedRing(Gdiplus::Graphics& graphics, const litehtml::borders& borders, const litehtml::position& box) {
  const float half = borders.top.width / 2.0f;
  Gdiplus::GraphicsPath middle;
  addRoundedBox(middle, box.x + half, box.y + half, box.right() - half, box.bottom() - half, borders.radius, half);
  Gdiplus::Pen pen(colorOf(borders.top.color), float(borders.top.width));
  graphics.DrawPath(&pen, &middle);
}

}  // namespace

Gdiplus::Color colorOf(const litehtml::web_color& color) {
  return Gdiplus::Color(color.alpha, color.red, color.green, color.blue);
}

void addRoundedRectangle(Gdiplus::GraphicsPath& path, const litehtml::position& box,
                         const litehtml::border_radiuses& radius) {
  if (hasRadius(radius)) {
    addRoundedBox(path, float(box.x), float(box.y), float(box.right()), float(box.bottom()), radius, 0);
    return;
  }
  path.StartFigure();
  path.AddRectangle(Gdiplus::RectF(float(box.x), float(box.y), float(box.width), float(box.height)));
}

void drawBorders(Gdiplus::Graphics& graphics, const litehtml::borders& borders, const litehtml::position& box) {
  const litehtml::border &left = borders.left, &top = borders.top, &right = borders.right, &bottom = borders.bottom;
  if (hasRadius(borders.radius) && isDrawn(top) && sameLook(top, left) && sameLook(top, right) &&
      sameLook(top, bottom) && !isBroken(top)) {
    strokeRoundedRing(graphics, borders, box);
    return;
  }
  const float x = float(box.x), y = float(box.y), r = float(box.right()), b = float(box.bottom());
  const float l = float(left.width), t = float(top.width), rw = float(right.width), bw = float(bottom.width);
  fillSide(graphics, top, {{x, y}, {r, y}, {r - rw, y + t}, {x + l, y + t}}, x, y + t / 2, r, y + t / 2);
  fillSide(graphics, bottom, {{x, b}, {r, b}, {r - rw, b - bw}, {x + l, b - bw}}, x, b - bw / 2, r, b - bw / 2);
  fillSide(graphics, left, {{x, y}, {x + l, y + t}, {x + l, b - bw}, {x, b}}, x + l / 2, y, x + l / 2, b);
  fillSide(graphics, right, {{r, y}, {r - rw, y + t}, {r - rw, b - bw}, {r, b}}, r - rw / 2, y, r - rw / 2, b);
}

}  // namespace kvt1::html
