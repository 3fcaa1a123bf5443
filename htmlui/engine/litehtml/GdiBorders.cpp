#include "htmlui/engine/litehtml/GdiBorders.h"

#include "htmlui/engine/litehtml/BorderSides.h"
#include "htmlui/engine/litehtml/GdiCanvas.h"
#include "htmlui/engine/litehtml/GdiplusShapes.h"

namespace kvt1::html {
namespace {

// A side that is a plain rectangle of colour: not broken, not translucent.
bool isPlain(const litehtml::border& side) { return !isDrawn(side) || (!isBroken(side) && side.color.alpha == 255); }

// Four sides of one look around rounded corners: one stroke along their middle.
void strokeRoundedRing(Gdiplus::Graphics& graphics, const litehtml::borders& borders, const litehtml::position& box) {
  const float half = borders.top.width / 2.0f;
  Gdiplus::GraphicsPath middle;
  addRoundedRectangle(middle, Gdiplus::RectF(box.x + half, box.y + half, box.width - 2 * half, box.height - 2 * half),
                      borders.radius, half);
  Gdiplus::Pen pen(colorOf(borders.top.color), float(borders.top.width));
  graphics.DrawPath(&pen, &middle);
}

// Dotted and dashed sides: a stroke along the middle of the side.
void strokeBroken(Gdiplus::Graphics& graphics, const litehtml::border& side, float x1, float y1, float x2, float y2) {
  Gdiplus::Pen pen(colorOf(side.color), float(side.width));
  pen.SetDashStyle(side.style == litehtml::border_style_dotted ? Gdiplus::DashStyleDot : Gdiplus::DashStyleDash);
  graphics.DrawLine(&pen, x1, y1, x2, y2);
}

void fillSide(Gdiplus::Graphics& graphics, const litehtml::border& side, const Gdiplus::PointF (&corners)[4], float x1,
              float y1, float x2, float y2) {
  if (!isDrawn(side)) return;
  if (isBroken(side)) {
    strokeBroken(graphics, side, x1, y1, x2, y2);
    return;
  }
  Gdiplus::SolidBrush brush(colorOf(side.color));
  graphics.FillPolygon(&brush, corners, 4);
}

void drawMitredSides(Gdiplus::Graphics& graphics, const litehtml::borders& borders, const litehtml::position& box) {
  const litehtml::border &left = borders.left, &top = borders.top, &right = borders.right, &bottom = borders.bottom;
  const float x = float(box.x), y = float(box.y), r = float(box.right()), b = float(box.bottom());
  const float l = float(left.width), t = float(top.width), rw = float(right.width), bw = float(bottom.width);
  fillSide(graphics, top, {{x, y}, {r, y}, {r - rw, y + t}, {x + l, y + t}}, x, y + t / 2, r, y + t / 2);
  fillSide(graphics, bottom, {{x, b}, {r, b}, {r - rw, b - bw}, {x + l, b - bw}}, x, b - bw / 2, r, b - bw / 2);
  fillSide(graphics, left, {{x, y}, {x + l, y + t}, {x + l, b - bw}, {x, b}}, x + l / 2, y, x + l / 2, b);
  fillSide(graphics, right, {{r, y}, {r - rw, y + t}, {r - rw, b - bw}, {r, b}}, r - rw / 2, y, r - rw / 2, b);
}

// Plain square sides whose corners need no mitre (one colour, or one pixel
// wide): top and bottom run the full width, left and right between them.
bool fillSquareSides(GdiCanvas& canvas, const litehtml::borders& borders, const litehtml::position& box) {
  const litehtml::border* sides[] = {&borders.left, &borders.top, &borders.right, &borders.bottom};
  const litehtml::border* coloured = nullptr;
  bool oneColour = true;
  for (const litehtml::border* side : sides) {
    if (!isPlain(*side)) return false;
    if (!isDrawn(*side)) continue;
    if (coloured && side->color != coloured->color) oneColour = false;
    coloured = side;
  }
  if (!oneColour) {
    for (const litehtml::border* side : sides) {
      if (isDrawn(*side) && side->width > 1) return false;
    }
  }
  const auto width = [](const litehtml::border& side) { return isDrawn(side) ? side.width : 0; };
  const int top = width(borders.top), bottom = width(borders.bottom);
  const int middle = box.height - top - bottom;
  canvas.fillRect(litehtml::position(box.x, box.y, box.width, top), borders.top.color);
  canvas.fillRect(litehtml::position(box.x, box.bottom() - bottom, box.width, bottom), borders.bottom.color);
  canvas.fillRect(litehtml::position(box.x, box.y + top, width(borders.left), middle), borders.left.color);
  canvas.fillRect(litehtml::position(box.right() - width(borders.right), box.y + top, width(borders.right), middle),
                  borders.right.color);
  return true;
}

}  // namespace

void drawBorders(GdiCanvas& canvas, const litehtml::borders& borders, const litehtml::position& box) {
  const litehtml::border& top = borders.top;
  if (hasRadius(borders.radius)) {
    if (isDrawn(top) && sameLook(top, borders.left) && sameLook(top, borders.right) && sameLook(top, borders.bottom) &&
        !isBroken(top)) {
      strokeRoundedRing(canvas.graphics(), borders, box);
      return;
    }
  } else if (fillSquareSides(canvas, borders, box)) {
    return;
  }
  drawMitredSides(canvas.graphics(), borders, box);
}

}  // namespace kvt1::html
