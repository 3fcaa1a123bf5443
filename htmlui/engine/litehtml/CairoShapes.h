#pragma once
// Cairo paths and fills for CSS boxes: rounded rectangles and border sides.
#include <litehtml.h>

typedef struct _cairo cairo_t;

namespace kvt1::html {

// Adds a closed path of the box with elliptic corners to the current path.
void addRoundedRectangle(cairo_t* cr, const litehtml::position& box, const litehtml::border_radiuses& radius);

void setColor(cairo_t* cr, const litehtml::web_color& color);

// Fills the four border sides of a border box; sides of one colour and style
// follow the rounded corners, mixed sides are drawn as mitred trapezoids.
void drawBorders(cairo_t* cr, const litehtml::borders& borders, const litehtml::position& box);

}  // namespace kvt1::html
