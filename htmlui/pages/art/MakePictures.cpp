// Draws the pictures of the product's dialogs with Cairo: the splash (an
// aerodrome's obstacle limitation surfaces in an oblique view, with the
// product's name) and the maker's mark. Run by make-pictures.sh; the PNG
// files it writes are kept in htmlui/pages as resources.
#include <cairo.h>

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

namespace {

struct Point3 {
  double x, y, z;  // metres: x along the runway, y across it, z up
};

struct Colour {
  double r, g, b, a;
};

constexpr double kPi = 3.14159265358979323846;

// The aerodrome: a 3000 m runway of code 4 with a precision approach at each end.
constexpr double kRunwayHalfLength = 1500;
constexpr double kRunwayHalfWidth = 22.5;
constexpr double kStripEnd = kRunwayHalfLength + 60;
constexpr double kStripHalfWidth = 150;
constexpr double kInnerHorizontalHeight = 45;
constexpr double kInnerHorizontalRadius = 4000;
constexpr double kConicalSlope = 0.05;
constexpr double kConicalHeight = 100;
constexpr double kTransitionalSlope = 0.143;
constexpr double kApproachDivergence = 0.15;

// An oblique view of the ground plane, the runway turned against the picture
// and heights drawn larger than life so that the surfaces read as surfaces.
struct View {
  double centreX, centreY, scale, heading, tilt, exaggeration;

  void project(const Point3& p, double& sx, double& sy) const {
    const double c = std::cos(heading);
    const double s = std::sin(heading);
    sx = centreX + scale * (p.x * c - p.y * s);
    sy = centreY + scale * tilt * (p.x * s + p.y * c) - scale * exaggeration * p.z;
  }
};

void setColour(cairo_t* cr, const Colour& c) { cairo_set_source_rgba(cr, c.r, c.g, c.b, c.a); }

void path(cairo_t* cr, const View& view, const std::vector<Point3>& points, bool closed) {
  cairo_new_path(cr);
  for (std::size_t i = 0; i < points.size(); ++i) {
    double x = 0;
    double y = 0;
    view.project(points[i], x, y);
    if (i == 0) {
      cairo_move_to(cr, x, y);
    } else {
      cairo_line_to(cr, x, y);
    }
  }
  if (closed) cairo_close_path(cr);
}

void surface(cairo_t* cr, const View& view, const std::vector<Point3>& points, const Colour& fill, const Colour& line,
             double width) {
  path(cr, view, points, true);
  setColour(cr, fill);
  cairo_fill_preserve(cr);
  setColour(cr, line);
  cairo_set_line_width(cr, width);
  cairo_stroke(cr);
}

// Two half circles of the radius about the strip's ends, joined by tangents.
std::vector<Point3> stadium(double radius, double height) {
  std::vector<Point3> points;
  constexpr int kSteps = 48;
  for (int i = 0; i <= kSteps; ++i) {
    const double a = -kPi / 2 + kPi * i / kSteps;
    points.push_back({kStripEnd + radius * std::cos(a), radius * std::sin(a), height});
  }
  for (int i = 0; i <= kSteps; ++i) {
    const double a = kPi / 2 + kPi * i / kSteps;
    points.push_back({-kStripEnd + radius * std::cos(a), radius * std::sin(a), height});
  }
  return points;
}

// The height of the approach surface at a distance from its inner edge:
// 2 % for 3000 m, 2.5 % for 3600 m, then level.
double approachHeight(double distance) {
  if (distance <= 3000) return 0.02 * distance;
  if (distance <= 6600) return 60 + 0.025 * (distance - 3000);
  return 150;
}

// One approach surface, direction +1 or -1, as its sections' outlines.
std::vector<std::vector<Point3>> approach(int direction, double length) {
  const double breaks[] = {0, 3000, 6600, length};
  std::vector<std::vector<Point3>> sections;
  for (int i = 0; i + 1 < 4; ++i) {
    const double from = breaks[i];
    const double to = breaks[i + 1];
    const double halfFrom = kStripHalfWidth + kApproachDivergence * from;
    const double halfTo = kStripHalfWidth + kApproachDivergence * to;
    const double xFrom = direction * (kStripEnd + from);
    const double xTo = direction * (kStripEnd + to);
    sections.push_back({{xFrom, -halfFrom, approachHeight(from)},
                        {xTo, -halfTo, approachHeight(to)},
                        {xTo, halfTo, approachHeight(to)},
                        {xFrom, halfFrom, approachHeight(from)}});
  }
  return sections;
}

void background(cairo_t* cr, int width, int height) {
  cairo_pattern_t* sky = cairo_pattern_create_linear(0, 0, width * 0.35, height);
  cairo_pattern_add_color_stop_rgb(sky, 0, 0.035, 0.118, 0.216);
  cairo_pattern_add_color_stop_rgb(sky, 1, 0.067, 0.220, 0.373);
  cairo_set_source(cr, sky);
  cairo_paint(cr);
  cairo_pattern_destroy(sky);
  // A soft light behind the aerodrome.
  cairo_pattern_t* glow =
      cairo_pattern_create_radial(width * 0.66, height * 0.52, 10, width * 0.66, height * 0.52, width * 0.55);
  cairo_pattern_add_color_stop_rgba(glow, 0, 0.40, 0.70, 1.0, 0.22);
  cairo_pattern_add_color_stop_rgba(glow, 1, 0.40, 0.70, 1.0, 0.0);
  cairo_set_source(cr, glow);
  cairo_paint(cr);
  cairo_pattern_destroy(glow);
}

void groundGrid(cairo_t* cr, const View& view) {
  cairo_set_source_rgba(cr, 1, 1, 1, 0.06);
  cairo_set_line_width(cr, 0.6);
  for (double v = -9000; v <= 9000; v += 1500) {
    path(cr, view, {{v, -9000, 0}, {v, 9000, 0}}, false);
    cairo_stroke(cr);
    path(cr, view, {{-12000, v, 0}, {12000, v, 0}}, false);
    cairo_stroke(cr);
  }
}

void aerodrome(cairo_t* cr, const View& view) {
  const double conicalRadius = kInnerHorizontalRadius + kConicalHeight / kConicalSlope;
  const Colour blueLine{0.55, 0.80, 1.0, 0.85};

  // Conical surface: from the inner horizontal surface's edge up to its own outer edge.
  surface(cr, view, stadium(conicalRadius, kInnerHorizontalHeight + kConicalHeight), {0.30, 0.58, 0.90, 0.10},
          {0.55, 0.80, 1.0, 0.55}, 1.0);
  for (int i = 0; i < 16; ++i) {
    // Generators of the cone, so that its slope shows.
    const double a = 2 * kPi * i / 16;
    const double cx = std::cos(a) >= 0 ? kStripEnd : -kStripEnd;
    path(cr, view,
         {{cx + kInnerHorizontalRadius * std::cos(a), kInnerHorizontalRadius * std::sin(a), kInnerHorizontalHeight},
          {cx + conicalRadius * std::cos(a), conicalRadius * std::sin(a), kInnerHorizontalHeight + kConicalHeight}},
         false);
    cairo_set_source_rgba(cr, 0.55, 0.80, 1.0, 0.25);
    cairo_set_line_width(cr, 0.8);
    cairo_stroke(cr);
  }

  // Inner horizontal surface.
  surface(cr, view, stadium(kInnerHorizontalRadius, kInnerHorizontalHeight), {0.36, 0.68, 1.0, 0.16}, blueLine, 1.3);

  // Transitional surfaces along the strip, up to the inner horizontal surface.
  const double reach = kStripHalfWidth + kInnerHorizontalHeight / kTransitionalSlope;
  for (int side = -1; side <= 1; side += 2) {
    surface(cr, view,
            {{-kStripEnd, side * kStripHalfWidth, 0},
             {kStripEnd, side * kStripHalfWidth, 0},
             {kStripEnd, side * reach, kInnerHorizontalHeight},
             {-kStripEnd, side * reach, kInnerHorizontalHeight}},
            {0.44, 0.90, 0.80, 0.30}, {0.50, 0.95, 0.85, 0.80}, 1.0);
  }

  // Approach surfaces, section by section.
  for (int direction = -1; direction <= 1; direction += 2) {
    for (const auto& section : approach(direction, 7000)) {
      surface(cr, view, section, {1.0, 0.71, 0.28, 0.20}, {1.0, 0.76, 0.36, 0.90}, 1.2);
    }
  }

  // Runway strip, runway and its markings.
  surface(cr, view,
          {{-kStripEnd, -kStripHalfWidth, 0},
           {kStripEnd, -kStripHalfWidth, 0},
           {kStripEnd, kStripHalfWidth, 0},
           {-kStripEnd, kStripHalfWidth, 0}},
          {0.40, 0.62, 0.45, 0.35}, {0.70, 0.90, 0.72, 0.6}, 0.8);
  surface(cr, view,
          {{-kRunwayHalfLength, -kRunwayHalfWidth * 2.2, 0},
           {kRunwayHalfLength, -kRunwayHalfWidth * 2.2, 0},
           {kRunwayHalfLength, kRunwayHalfWidth * 2.2, 0},
           {-kRunwayHalfLength, kRunwayHalfWidth * 2.2, 0}},
          {0.16, 0.18, 0.21, 1.0}, {0.85, 0.88, 0.92, 0.9}, 0.8);
  cairo_set_source_rgba(cr, 1, 1, 1, 0.95);
  cairo_set_line_width(cr, 0.9);
  for (double x = -kRunwayHalfLength + 150; x < kRunwayHalfLength - 150; x += 240) {
    path(cr, view, {{x, 0, 0}, {x + 120, 0, 0}}, false);
    cairo_stroke(cr);
  }
  for (int end = -1; end <= 1; end += 2) {
    // Threshold bars.
    const double x = end * (kRunwayHalfLength - 20);
    path(cr, view, {{x, -kRunwayHalfWidth * 1.8, 0}, {x, kRunwayHalfWidth * 1.8, 0}}, false);
    cairo_set_line_width(cr, 1.6);
    cairo_stroke(cr);
  }
}

void text(cairo_t* cr, double x, double y, const char* face, cairo_font_weight_t weight, double size,
          const Colour& colour, const char* words) {
  cairo_select_font_face(cr, face, CAIRO_FONT_SLANT_NORMAL, weight);
  cairo_set_font_size(cr, size);
  setColour(cr, colour);
  cairo_move_to(cr, x, y);
  cairo_show_text(cr, words);
}

bool splash(const std::string& file) {
  constexpr int kWidth = 560;
  constexpr int kHeight = 320;
  cairo_surface_t* image = cairo_image_surface_create(CAIRO_FORMAT_RGB24, kWidth, kHeight);
  cairo_t* cr = cairo_create(image);
  cairo_set_antialias(cr, CAIRO_ANTIALIAS_BEST);
  background(cr, kWidth, kHeight);

  const View view{414, 180, 0.0166, -0.28, 0.40, 13.0};
  groundGrid(cr, view);
  aerodrome(cr, view);

  // A panel behind the name, fading into the picture.
  cairo_pattern_t* panel = cairo_pattern_create_linear(0, 0, 260, 0);
  cairo_pattern_add_color_stop_rgba(panel, 0, 0.027, 0.094, 0.180, 0.92);
  cairo_pattern_add_color_stop_rgba(panel, 0.7, 0.027, 0.094, 0.180, 0.55);
  cairo_pattern_add_color_stop_rgba(panel, 1, 0.027, 0.094, 0.180, 0.0);
  cairo_set_source(cr, panel);
  cairo_rectangle(cr, 0, 0, 260, kHeight);
  cairo_fill(cr);

  const Colour white{1, 1, 1, 1};
  const Colour pale{0.74, 0.85, 0.95, 1};
  const Colour amber{1.0, 0.71, 0.28, 1};
  text(cr, 32, 92, "DejaVu Sans", CAIRO_FONT_WEIGHT_BOLD, 54, white, "KVT");
  cairo_set_source_rgba(cr, amber.r, amber.g, amber.b, 1);
  cairo_rectangle(cr, 34, 108, 56, 3);
  cairo_fill(cr);
  text(cr, 32, 138, "DejaVu Sans", CAIRO_FONT_WEIGHT_NORMAL, 15, white, "Obstacle Limitation Surfaces");
  text(cr, 32, 158, "DejaVu Sans", CAIRO_FONT_WEIGHT_NORMAL, 12, pale, "for aerodromes: ICAO, FAA, German and");
  text(cr, 32, 174, "DejaVu Sans", CAIRO_FONT_WEIGHT_NORMAL, 12, pale, "Canadian regulations in your CAD");

  // A hairline frame, as the window has no border of its own.
  cairo_set_source_rgba(cr, 0.55, 0.75, 0.95, 0.6);
  cairo_set_line_width(cr, 1);
  cairo_rectangle(cr, 0.5, 0.5, kWidth - 1, kHeight - 1);
  cairo_stroke(cr);

  cairo_destroy(cr);
  const bool written = cairo_surface_write_to_png(image, file.c_str()) == CAIRO_STATUS_SUCCESS;
  cairo_surface_destroy(image);
  return written;
}

void roundedRectangle(cairo_t* cr, double x, double y, double w, double h, double r) {
  cairo_new_path(cr);
  cairo_arc(cr, x + w - r, y + r, r, -kPi / 2, 0);
  cairo_arc(cr, x + w - r, y + h - r, r, 0, kPi / 2);
  cairo_arc(cr, x + r, y + h - r, r, kPi / 2, kPi);
  cairo_arc(cr, x + r, y + r, r, kPi, 3 * kPi / 2);
  cairo_close_path(cr);
}

// The maker's mark: an approach surface rising from a runway, on a light tile.
bool mark(const std::string& file) {
  constexpr int kSize = 40;
  cairo_surface_t* image = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kSize, kSize);
  cairo_t* cr = cairo_create(image);
  roundedRectangle(cr, 1, 1, kSize - 2, kSize - 2, 7);
  cairo_set_source_rgb(cr, 0.97, 0.98, 1.0);
  cairo_fill_preserve(cr);
  cairo_set_source_rgb(cr, 0.55, 0.72, 0.90);
  cairo_set_line_width(cr, 1);
  cairo_stroke(cr);

  cairo_new_path(cr);
  cairo_move_to(cr, 16, 30);
  cairo_line_to(cr, 24, 30);
  cairo_line_to(cr, 33, 8);
  cairo_line_to(cr, 7, 8);
  cairo_close_path(cr);
  cairo_set_source_rgb(cr, 0.043, 0.165, 0.290);
  cairo_fill(cr);

  cairo_rectangle(cr, 8, 31.5, 24, 3);
  cairo_set_source_rgb(cr, 1.0, 0.71, 0.28);
  cairo_fill(cr);

  cairo_destroy(cr);
  const bool written = cairo_surface_write_to_png(image, file.c_str()) == CAIRO_STATUS_SUCCESS;
  cairo_surface_destroy(image);
  return written;
}

// The usage question's logo: a white plus on a blue disc, on a transparent
// ground so that the page's gradient shows around the disc.
bool usageLogo(const std::string& file) {
  constexpr int kSize = 64;
  cairo_surface_t* image = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kSize, kSize);
  cairo_t* cr = cairo_create(image);
  cairo_arc(cr, kSize / 2.0, kSize / 2.0, kSize / 2.0 - 2, 0, 2 * kPi);
  cairo_set_source_rgb(cr, 0.16, 0.45, 0.78);
  cairo_fill_preserve(cr);
  cairo_set_source_rgb(cr, 0.55, 0.74, 0.93);
  cairo_set_line_width(cr, 2);
  cairo_stroke(cr);
  cairo_rectangle(cr, kSize / 2.0 - 3.5, 14, 7, kSize - 28);
  cairo_rectangle(cr, 14, kSize / 2.0 - 3.5, kSize - 28, 7);
  cairo_set_source_rgb(cr, 1.0, 1.0, 1.0);
  cairo_fill(cr);

  cairo_destroy(cr);
  const bool written = cairo_surface_write_to_png(image, file.c_str()) == CAIRO_STATUS_SUCCESS;
  cairo_surface_destroy(image);
  return written;
}

// The swatch of a colour item in a menu: a square that the library recolours
// to the item's colour ("color-schema"), framed in a darker line.
bool menuColor(const std::string& file) {
  constexpr int kSize = 16;
  cairo_surface_t* image = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kSize, kSize);
  cairo_t* cr = cairo_create(image);
  roundedRectangle(cr, 2.5, 2.5, kSize - 5, kSize - 5, 2);
  cairo_set_source_rgb(cr, 0.5, 0.5, 0.5);
  cairo_fill_preserve(cr);
  cairo_set_source_rgb(cr, 0.2, 0.2, 0.2);
  cairo_set_line_width(cr, 1);
  cairo_stroke(cr);

  cairo_destroy(cr);
  const bool written = cairo_surface_write_to_png(image, file.c_str()) == CAIRO_STATUS_SUCCESS;
  cairo_surface_destroy(image);
  return written;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: MakePictures FOLDER\n");
    return 1;
  }
  const std::string folder = argv[1];
  return splash(folder + "/IMG_VRMSPLASH.png") && mark(folder + "/IMG_HALVORNMARK.png") &&
                 menuColor(folder + "/ICON_MENUCOLOR.png") && usageLogo(folder + "/IDB_USERREPORTLOGO.png")
             ? 0
             : 1;
}
