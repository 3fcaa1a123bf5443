#include "htmlui/engine/litehtml/CairoContainer.h"

#include "htmlui/engine/litehtml/CairoShapes.h"
#include "platform/DynamicLibrary.h"

#include <cairo.h>
#include <glib.h>

#include <cmath>

namespace kvt1::html {
namespace {

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

// Pango starts fontconfig on a thread of its own and registers its types
// with GObject for the life of the process: once a module has used them, the
// font libraries stay loaded when that module is unloaded, or that thread
// would run in unmapped code and a later load would register the types twice.
std::unique_ptr<PageContainer> makePageContainer() {
  platform::DynamicLibrary::keepLoaded(L"libpangocairo-1.0.so.0");
  return std::make_unique<CairoContainer>();
}

bool CairoContainer::paint(litehtml::document& document, std::uintptr_t context, const litehtml::position& area) {
  cairo_t* cr = reinterpret_cast<cairo_t*>(context);
  if (!cr || cairo_status(cr) != CAIRO_STATUS_SUCCESS) return false;
  cairo_save(cr);
  cairo_rectangle(cr, area.x, area.y, area.width, area.height);
  cairo_clip(cr);
  setColor(cr, litehtml::web_color(kDialogGrey, kDialogGrey, kDialogGrey));
  cairo_paint(cr);
  clips_.clear();
  document.draw(reinterpret_cast<litehtml::uint_ptr>(cr), 0, 0, &area);
  cairo_restore(cr);
  return true;
}

namespace {

void setRgb(cairo_t* cr, std::uint32_t rgb) {
  cairo_set_source_rgb(cr, ((rgb >> 16) & 0xFF) / 255.0, ((rgb >> 8) & 0xFF) / 255.0, (rgb & 0xFF) / 255.0);
}

}  // namespace

bool CairoContainer::renderWindowPng(litehtml::document& document, const WindowPicture& picture,
                                     const std::string& path) {
  if (picture.clientWidth <= 0 || picture.clientHeight <= 0) return false;
  const int width = picture.clientWidth + 2 * picture.border;
  const int height = picture.clientHeight + 2 * picture.border + picture.captionHeight;
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
  cairo_t* cr = cairo_create(surface);
  setRgb(cr, kFrameColour);
  cairo_paint(cr);
  if (picture.captionHeight > 0) {
    setRgb(cr, kCaptionColour);
    cairo_rectangle(cr, picture.border, picture.border, picture.clientWidth, picture.captionHeight);
    cairo_fill(cr);
    setRgb(cr, kCaptionTextColour);
    cairo_select_font_face(cr, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_BOLD);
    cairo_set_font_size(cr, 12);
    cairo_font_extents_t extents;
    cairo_font_extents(cr, &extents);
    cairo_move_to(cr, picture.border + kCaptionTextIndent,
                  picture.border + (picture.captionHeight + extents.ascent - extents.descent) / 2);
    cairo_show_text(cr, picture.caption.c_str());
  }
  cairo_translate(cr, picture.border, picture.border + picture.captionHeight);
  const bool drawn = paint(document, reinterpret_cast<std::uintptr_t>(cr),
                           litehtml::position(0, 0, picture.clientWidth, picture.clientHeight));
  cairo_destroy(cr);
  const bool written = drawn && cairo_surface_write_to_png(surface, path.c_str()) == CAIRO_STATUS_SUCCESS;
  cairo_surface_destroy(surface);
  return written;
}

bool CairoContainer::renderPng(litehtml::document& document, int width, int height, const std::string& path) {
  if (width <= 0 || height <= 0) return false;
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
  cairo_t* cr = cairo_create(surface);
  const bool drawn = paint(document, reinterpret_cast<std::uintptr_t>(cr), litehtml::position(0, 0, width, height));
  cairo_destroy(cr);
  const bool written = drawn && cairo_surface_write_to_png(surface, path.c_str()) == CAIRO_STATUS_SUCCESS;
  cairo_surface_destroy(surface);
  return written;
}

litehtml::uint_ptr CairoContainer::create_font(const char* faceName, int size, int weight, litehtml::font_style italic,
                                               unsigned int decoration, litehtml::font_metrics* fm) {
  return fonts_.create(faceName ? faceName : kDefaultFontName, size, weight, italic == litehtml::font_style_italic,
                       decoration, fm);
}

// Fonts stay cached in fonts_ for the next layout of the page.
void CairoContainer::delete_font(litehtml::uint_ptr) {}

int CairoContainer::text_width(const char* text, litehtml::uint_ptr font) { return fonts_.textWidth(text, font); }

void CairoContainer::draw_text(litehtml::uint_ptr hdc, const char* text, litehtml::uint_ptr font,
                               litehtml::web_color color, const litehtml::position& pos) {
  cairo_t* cr = cairoOf(hdc);
  beginDrawing(cr);
  setColor(cr, color);
  fonts_.drawText(cr, text, font, pos);
  cairo_restore(cr);
}

void CairoContainer::draw_list_marker(litehtml::uint_ptr hdc, const litehtml::list_marker& marker) {
  cairo_t* cr = cairoOf(hdc);
  beginDrawing(cr);
  if (!marker.image.empty()) {
    drawImage(cr, marker.image, marker.pos);
    cairo_restore(cr);
    return;
  }
  const litehtml::position& box = marker.pos;
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

void CairoContainer::load_image(const char* src, const char*, bool) {
  if (src) images_.load(src);
}

void CairoContainer::get_image_size(const char* src, const char*, litehtml::size& sz) {
  sz = src ? images_.size(src) : litehtml::size();
}

// Layers come nearest first; the colour belongs to the farthest, drawn first.
void CairoContainer::draw_background(litehtml::uint_ptr hdc, const std::vector<litehtml::background_paint>& layers) {
  cairo_t* cr = cairoOf(hdc);
  for (auto layer = layers.rbegin(); layer != layers.rend(); ++layer) {
    drawLayer(cr, *layer, layer == layers.rbegin());
  }
}

void CairoContainer::drawLayer(cairo_t* cr, const litehtml::background_paint& layer, bool withColour) const {
  cairo_surface_t* image = layer.image.empty() ? nullptr : images_.surface(layer.image);
  const bool hasImage = image && layer.image_size.width > 0 && layer.image_size.height > 0;
  if (!hasImage && !(withColour && layer.color.alpha > 0)) return;
  beginDrawing(cr);
  addRoundedRectangle(cr, layer.border_box, layer.border_radius);
  cairo_clip(cr);
  const litehtml::position& clip = layer.clip_box;
  cairo_rectangle(cr, clip.x, clip.y, clip.width, clip.height);
  cairo_clip(cr);
  if (withColour && layer.color.alpha > 0) {
    setColor(cr, layer.color);
    cairo_paint(cr);
  }
  if (hasImage) {
    cairo_pattern_t* pattern = cairo_pattern_create_for_surface(image);
    cairo_matrix_t matrix;
    cairo_matrix_init_scale(&matrix, double(cairo_image_surface_get_width(image)) / layer.image_size.width,
                            double(cairo_image_surface_get_height(image)) / layer.image_size.height);
    cairo_matrix_translate(&matrix, -layer.position_x, -layer.position_y);
    cairo_pattern_set_matrix(pattern, &matrix);
    cairo_pattern_set_extend(
        pattern, layer.repeat == litehtml::background_repeat_no_repeat ? CAIRO_EXTEND_NONE : CAIRO_EXTEND_REPEAT);
    switch (layer.repeat) {
      case litehtml::background_repeat_repeat:
        cairo_rectangle(cr, clip.x, clip.y, clip.width, clip.height);
        break;
      case litehtml::background_repeat_repeat_x:
        cairo_rectangle(cr, clip.x, layer.position_y, clip.width, layer.image_size.height);
        break;
      case litehtml::background_repeat_repeat_y:
        cairo_rectangle(cr, layer.position_x, clip.y, layer.image_size.width, clip.height);
        break;
      case litehtml::background_repeat_no_repeat:
        cairo_rectangle(cr, layer.position_x, layer.position_y, layer.image_size.width, layer.image_size.height);
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

void CairoContainer::transform_text(litehtml::string& text, litehtml::text_transform tt) {
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

void CairoContainer::set_clip(const litehtml::position& pos, const litehtml::border_radiuses& radius) {
  clips_.push_back({pos, radius});
}

void CairoContainer::del_clip() {
  if (!clips_.empty()) clips_.pop_back();
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
