#pragma once
// What both page containers ask of a box's border sides before drawing them.
#include <litehtml.h>

namespace kvt1::html {

inline bool isDrawn(const litehtml::border& side) {
  return side.width > 0 && side.style != litehtml::border_style_none && side.style != litehtml::border_style_hidden &&
         side.color.alpha > 0;
}

// Sides of one look can be drawn as one stroke.
inline bool sameLook(const litehtml::border& a, const litehtml::border& b) {
  return a.width == b.width && a.style == b.style && a.color == b.color;
}

inline bool isBroken(const litehtml::border& side) {
  return side.style == litehtml::border_style_dotted || side.style == litehtml::border_style_dashed;
}

inline bool hasRadius(const litehtml::border_radiuses& r) {
  return r.top_left_x || r.top_left_y || r.top_right_x || r.top_right_y || r.bottom_right_x || r.bottom_right_y ||
         r.bottom_left_x || r.bottom_left_y;
}

}  // namespace kvt1::html
