#include "htmlui/engine/litehtml/CairoShapes.h"

#include "htmlui/engine/litehtml/BorderSides.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>

namespace kvt1::html {
namespace {

// Quarter ellipse from the angle `from` to `from + 90` degrees around (cx, cy).
void addCorner(cairo_t* cr, double cx, double cy, double rx, double ry, double from) {
  if (rx <= 0 || ry <= 0) {
    cairo_line_to(cr, cx, cy);
    return;
  }
  cairo_save(cr);
  cairo_translate(cr, cx, cy);
  cairo_scale(cr, rx, ry);
  cairo_arc(cr, 0, 0, 1, from * M_PI / 180, (from + 90) * M_PI / 180);
  cairo_restore(cr);
}

// Dotted and dashed sides: a stroke along the middle of the side.
void strokeDashed(cairo_t* cr, const litehtml::border& side, double x1, double y1, double x2, double y2) {
  const double dash = side.style == litehtml::border_style_dotted ? side.width : side.width * 3.0;
  cairo_save(cr);
  cairo_set_dash(cr, &dash, 1, 0);
  cairo_set_line_width(cr, side.width);
  setColor(cr, side.color);
  cairo_move_to(cr, x1, y1);
  cairo_line_to(cr, x2, y2);
  cairo_stroke(cr);
  cairo_restore(cr);
}

void fillSide(cairo_t* cr, const litehtml::border& side, const double (&corners)[4][2], double x1, double y1, double x2,
              double y2) {
  if (!isDrawn(side)) return;
  if (side.style == litehtml::border_style_dotted || side.style == litehtml::border_style_dashed) {
    strokeDashed(cr, side, x1, y1, x2, y2);
    return;
  }
  setColor(cr, side.color);
  cairo_move_to(cr, corners[0][0], corners[0][1]);
  for (int i = 1; i < 4; ++i) cairo_line_to(cr, corners[i][0], corners[i][1]);
  cairo_close_path(cr);
  cairo_fill(cr);
}

void drawRoundedRing(cairo_t* cr, const litehtml::borders& borders, const litehtml::position& box) {
  litehtml::margins widths;
  widths.left = borders.left.width;
  widths.right = borders.right.width;
  widths.top = borders.top.width;
  widths.bottom = borders.bottom.width;
  litehtml::position inner = box;
  inner -= widths;
  litehtml::border_radiuses innerRadius = borders.radius;
  innerRadius -= widths;

  cairo_save(cr);
  cairo_set_fill_rule(cr, CAIRO_FILL_RULE_EVEN_ODD);
  addRoundedRectangle(cr, box, borders.radius);
  if (inner.width > 0 && inner.height > 0) addRoundedRectangle(cr, inner, innerRadius);
  setColor(cr, borders.top.color);
  cairo_fill(cr);
  cairo_restore(cr);
}

}  // namespace

void setColor(cairo_t* cr, const litehtml::web_color& color) {
  cairo_set_source_rgba(cr, color.red / 255.0, color.green / 255.0, color.blue / 255.0, color.alpha / 255.0);
}

void addRoundedRectangle(cairo_t* cr, const litehtml::position& box, const litehtml::border_radiuses& radius) {
  const double x = box.x, y = box.y, right = box.right(), bottom = box.bottom();
  cairo_new_sub_path(cr);
  if (!hasRadius(radius)) {
    cairo_rectangle(cr, x, y, box.width, box.height);
    return;
  }
  // Radii never exceed half the box, so opposite corners cannot overlap.
  const auto rx = [&](int r) { return std::min<double>(r, box.width / 2.0); };
  const auto ry = [&](int r) { return std::min<double>(r, box.height / 2.0); };
  addCorner(cr, right - rx(radius.top_right_x), y + ry(radius.top_right_y), rx(radius.top_right_x),
            ry(radius.top_right_y), 270);
  addCorner(cr, right - rx(radius.bottom_right_x), bottom - ry(radius.bottom_right_y), rx(radius.bottom_right_x),
            ry(radius.bottom_right_y), 0);
  addCorner(cr, x + rx(radius.bottom_left_x), bottom - ry(radius.bottom_left_y), rx(radius.bottom_left_x),
            ry(radius.bottom_left_y), 90);
  addCorner(cr, x + rx(radius.top_left_x), y + ry(radius.top_left_y), rx(radius.top_left_x), ry(radius.top_left_y),
            180);
  cairo_close_path(cr);
}

void drawBorders(cairo_t* cr, const litehtml::borders& borders, const litehtml::position& box) {
  const litehtml::border &left = borders.left, &top = borders.top, &right = borders.right, &bottom = borders.bottom;
  if (hasRadius(borders.radius) && isDrawn(top) && sameLook(top, left) && sameLook(top, right) &&
      sameLook(top, bottom) && top.style != litehtml::border_style_dotted &&
      top.style != litehtml::border_style_dashed) {
    drawRoundedRing(cr, borders, box);
    return;
  }
  const double x = box.x, y = box.y, r = box.right(), b = box.bottom();
  const double l = left.width, t = top.width, rw = right.width, bw = bottom.width;
  fillSide(cr, top, {{x, y}, {r, y}, {r - rw, y + t}, {x + l, y + t}}, x, y + t / 2, r, y + t / 2);
  fillSide(cr, bottom, {{x, b}, {r, b}, {r - rw, b - bw}, {x + l, b - bw}}, x, b - bw / 2, r, b - bw / 2);
  fillSide(cr, left, {{x, y}, {x + l, y + t}, {x + l, b - bw}, {x, b}}, x + l / 2, y, x + l / 2, b);
  fillSide(cr, right, {{r, y}, {r - rw, y + t}, {r - rw, b - bw}, {r, b}}, r - rw / 2, y, r - rw / 2, b);
}

}  // namespace kvt1::html
