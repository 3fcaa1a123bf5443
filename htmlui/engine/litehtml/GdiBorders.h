#pragma once
// CSS borders on the canvas: square solid sides as exact GDI rectangles,
// rounded, dotted, dashed and translucent ones with GDI+.
#include <litehtml.h>

namespace kvt1::html {

class GdiCanvas;

// Draws the four border sides of a border box; sides of one look follow the
// rounded corners, mixed sides meet in mitred corners.
void drawBorders(GdiCanvas& canvas, const litehtml::borders& borders, const litehtml::position& box);

}  // namespace kvt1::html
