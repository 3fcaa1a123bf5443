#pragma once
// GDI+ paths and fills for CSS boxes: rounded rectangles and border sides.
#include "htmlui/engine/litehtml/GdiplusApi.h"

#include <litehtml.h>

namespace kvt1::html {

Gdiplus::Color colorOf(const litehtml::web_color& color);

// Adds a closed figure of the box with elliptic corners to the path.
void addRoundedRectangle(Gdiplus::GraphicsPath& path, const litehtml::position& box,
                         const litehtml::border_radiuses& radius);

// Fills the four border sides of a border box; sides of one colour and style
// follow the rounded corners, mixed sides are drawn as mitred trapezoids.
void drawBorders(Gdiplus::Graphics& graphics, const litehtml::borders& borders, const litehtml::position& box);

}  // namespace kvt1::html
