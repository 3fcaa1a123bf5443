#include "htmlui/engine/litehtml/CairoContainer.h"

#include "htmlui/engine/litehtml/CairoShapes.h"

#include <cairo.h>
#include <glib.h>

#include <cmath>

namespace kvt1::html {
namespace {

// Extent that stands for "unclipped" along an axis.
constexpr int kUnbounded = 1 << 24;

cairo_t* cairoOf(litehtml::uint_ptr hdc) { return reinterpret_cast<cairo_t*>(hdc); }

std::string takeGlibString(gchar* text) {
  std::string result(text);
  g_free(text);
  return result;
}

std::string capitalized(const std::string& text) {
  if (text.empty() || !g_utf8_validate(text.c_str(), -1, nullptr)) return text;
  const gunichar first = g_unichar_totitle(g_utf8_get_char(text.c_str()));
  char encoded[6];
  const int length = g_unichar_to_utf8(first, encoded);
  return std::string(encoded, length) + g_utf8_next_char(text.c_str());
}

}  // namespace

litehtml::uint_ptr CairoContainer::create_font(const litehtml::tchar_t* faceName, int size, int weight,
                                               litehtml::font_style italic, unsigned int decoration,
                                               litehtml::font_metrics* fm) {
  return fonts_.create(faceName ? faceName : kDefaultFontName, size, weight, italic == litehtml::fontStyleItalic,
                       decoration, fm);
}

// Fonts stay cached in fonts_ for the next layout of the page.
void CairoContainer::delete_font(litehtml::uint_ptr) {}

int CairoContainer::text_width(const litehtml::tchar_t* text, litehtml::uint_ptr font) {
  return fonts_.textWidth(text, font);
}

void CairoContainer::draw_text(litehtml::uint_ptr hdc, const litehtml::tchar_t* text, litehtml::uint_ptr font,
                               litehtml::web_color color, const litehtml::position& pos) {
  cairo_t* cr = cairoOf(hdc);
  beginDrawing(cr);
  setColor(cr, color);
  fonts_.drawText(cr, text, font, pos);
  cairo_restore(cr);
}

int CairoContainer::pt_to_px(int pt) const { return static_cast<int>(std::lround(pt * 96.0 / 72.0)); }

int CairoContainer::get_default_font_size() const { return kDefaultFontSize; }

const litehtml::tchar_t* CairoContainer::get_default_font_name() const { return kDefaultFontName; }

void CairoContainer::draw_list_marker(litehtml::uint_ptr hdc, const litehtml::list_marker& marker) {
  cairo_t* cr = cairoOf(hdc);
  if (!marker.image.empty()) {
    beginDrawing(cr);
    drawImage(cr, marker.image, marker.pos);
    cairo_restore(cr);
    return;
  }
  const litehtml::position& box = marker.pos;
  beginDrawing(cr);
  setColor(cr, marker.color);
  switch (marker.marker_type) {
    case litehtml::list_style_type_circle:
      cairo_set_line_width(cr, 1);
      cairo_arc(cr, box.x + box.width / 2.0, box.y + box.height / 2.0, (std::min(box.width, box.height) - 1) / 2.0, 0,
                2 * M_PI);
      cairo_stroke(cr);
      break;
    case litehtml::list_style_type_disc:
      cairo_arc(cr, box.x + box.width / 2.0, box.y + box.height / 2.0, std::min(box.width, box.height) / 2.0, 0,
                2 * M_PI);
      cairo_fill(cr);
      break;
    case litehtml::list_style_type_square:
      cairo_rectangle(cr, box.x, box.y, box.width, box.height);
      cairo_fill(cr);
      break;
    default:
      break;
  }
  cairo_restore(cr);
}

void CairoContainer::load_image(const litehtml::tchar_t* src, const litehtml::tchar_t*, bool) {
  if (src) images_.load(src);
}

void CairoContainer::get_image_size(const litehtml::tchar_t* src, const litehtml::tchar_t*, litehtml::size& sz) {
  sz = src ? images_.size(src) : litehtml::size();
}

void CairoContainer::draw_background(litehtml::uint_ptr hdc, const litehtml::background_paint& bg) {
  cairo_t* cr = cairoOf(hdc);
  beginDrawing(cr);
  addRoundedRectangle(cr, bg.border_box, bg.border_radius);
  cairo_clip(cr);
  cairo_rectangle(cr, bg.clip_box.x, bg.clip_box.y, bg.clip_box.width, bg.clip_box.height);
  cairo_clip(cr);
  if (bg.color.alpha > 0) {
    setColor(cr, bg.color);
    cairo_paint(cr);
  }
  cairo_surface_t* image = bg.image.empty() ? nullptr : images_.surface(bg.image);
  if (image && bg.image_size.width > 0 && bg.image_size.height > 0) {
    cairo_pattern_t* pattern = cairo_pattern_create_for_surface(image);
    cairo_matrix_t matrix;
    cairo_matrix_init_scale(&matrix, double(cairo_image_surface_get_width(image)) / bg.image_size.width,
                            double(cairo_image_surface_get_height(image)) / bg.image_size.height);
    cairo_matrix_translate(&matrix, -bg.position_x, -bg.position_y);
    cairo_pattern_set_matrix(pattern, &matrix);
    cairo_pattern_set_extend(pattern, bg.repeat == litehtml::background_repeat_no_repeat ? CAIRO_EXTEND_NONE
                                                                                         : CAIRO_EXTEND_REPEAT);
    const litehtml::position& clip = bg.clip_box;
    switch (bg.repeat) {
      case litehtml::background_repeat_repeat:
        cairo_rectangle(cr, clip.x, clip.y, clip.width, clip.height);
        break;
      case litehtml::background_repeat_repeat_x:
        cairo_rectangle(cr, clip.x, bg.position_y, clip.width, bg.image_size.height);
        break;
      case litehtml::background_repeat_repeat_y:
        cairo_rectangle(cr, bg.position_x, clip.y, bg.image_size.width, clip.height);
        break;
      case litehtml::background_repeat_no_repeat:
        cairo_rectangle(cr, bg.position_x, bg.position_y, bg.image_size.width, bg.image_size.height);
        break;
    }
    cairo_set_source(cr, pattern);
    cairo_fill(cr);
    cairo_pattern_destroy(pattern);
  }
  cairo_restore(cr);
}

void CairoContainer::draw_borders(litehtml::uint_ptr hdc, const litehtml::borders& borders,
                                  const litehtml::position& drawPos, bool) {
  cairo_t* cr = cairoOf(hdc);
  beginDrawing(cr);
  drawBorders(cr, borders, drawPos);
  cairo_restore(cr);
}

// A dialog page has no caption, base URL, links or cursor of its own: the
// DOM engine handles those on its side of the snapshot.
void CairoContainer::set_caption(const litehtml::tchar_t*) {}
void CairoContainer::set_base_url(const litehtml::tchar_t*) {}
void CairoContainer::link(const std::shared_ptr<litehtml::document>&, const litehtml::element::ptr&) {}
void CairoContainer::on_anchor_click(const litehtml::tchar_t*, const litehtml::element::ptr&) {}
void CairoContainer::set_cursor(const litehtml::tchar_t*) {}

void CairoContainer::transform_text(litehtml::tstring& text, litehtml::text_transform tt) {
  if (!g_utf8_validate(text.c_str(), -1, nullptr)) return;
  switch (tt) {
    case litehtml::text_transform_uppercase:
      text = takeGlibString(g_utf8_strup(text.c_str(), -1));
      break;
    case litehtml::text_transform_lowercase:
      text = takeGlibString(g_utf8_strdown(text.c_str(), -1));
      break;
    case litehtml::text_transform_capitalize:
      text = capitalized(text);
      break;
    case litehtml::text_transform_none:
      break;
  }
}

// The engine inlines imported style sheets into the snapshot.
void CairoContainer::import_css(litehtml::tstring&, const litehtml::tstring&, litehtml::tstring&) {}

void CairoContainer::set_clip(const litehtml::position& pos, const litehtml::border_radiuses& radius, bool validX,
                              bool validY) {
  Clip clip{pos, radius};
  if (!validX) {
    clip.box.x = -kUnbounded;
    clip.box.width = 2 * kUnbounded;
  }
  if (!validY) {
    clip.box.y = -kUnbounded;
    clip.box.height = 2 * kUnbounded;
  }
  clips_.push_back(clip);
}

void CairoContainer::del_clip() {
  if (!clips_.empty()) clips_.pop_back();
}

void CairoContainer::get_client_rect(litehtml::position& client) const { client = viewport_; }

std::shared_ptr<litehtml::element> CairoContainer::create_element(const litehtml::tchar_t*,
                                                                  const litehtml::string_map&,
                                                                  const std::shared_ptr<litehtml::document>&) {
  return nullptr;
}

void CairoContainer::get_media_features(litehtml::media_features& media) const {
  media.type = litehtml::media_type_screen;
  media.width = media.device_width = viewport_.width;
  media.height = media.device_height = viewport_.height;
  media.color = 8;
  media.monochrome = 0;
  media.color_index = 256;
  media.resolution = 96;
}

void CairoContainer::get_language(litehtml::tstring& language, litehtml::tstring& culture) const {
  language = "en";
  culture.clear();
}

void CairoContainer::beginDrawing(cairo_t* cr) const {
  cairo_save(cr);
  for (const Clip& clip : clips_) {
    addRoundedRectangle(cr, clip.box, clip.radius);
    cairo_clip(cr);
  }
}

void CairoContainer::drawImage(cairo_t* cr, const std::string& url, const litehtml::position& box) const {
  cairo_surface_t* image = images_.surface(url);
  if (!image || box.width <= 0 || box.height <= 0) return;
  cairo_translate(cr, box.x, box.y);
  cairo_scale(cr, double(box.width) / cairo_image_surface_get_width(image),
              double(box.height) / cairo_image_surface_get_height(image));
  cairo_set_source_surface(cr, image, 0, 0);
  cairo_paint(cr);
}

}  // namespace kvt1::html
