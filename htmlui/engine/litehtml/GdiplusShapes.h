#pragma once
// GDI+ paths for CSS boxes: rounded rectangles, and the colours of litehtml.
#include "htmlui/engine/litehtml/GdiplusApi.h"

#include <litehtml.h>

#include "htmlui/engine/litehtml/BorderSides.h"

namespace kvt1::html {

Gdiplus::Color colorOf(const litehtml::web_color& color);

// Adds a closed figure of the box with elliptic corners to the path.
void addRoundedRectangle(Gdiplus::GraphicsPath& path, const litehtml::position& box,
                         const litehtml::border_radiuses& radius);

// The same figure with each radius less shrink, for a box inset by shrink.
void addRoundedRectangle(Gdiplus::GraphicsPath& path, const Gdiplus::RectF& box,
                         const litehtml::border_radiuses& radius, float shrink);

}  // namespace kvt1::html
