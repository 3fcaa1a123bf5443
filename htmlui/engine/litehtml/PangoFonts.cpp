#include "htmlui/engine/litehtml/PangoFonts.h"

#include <pango/pangocairo.h>

#include <cmath>
#include <unordered_map>

namespace kvt1::html {
namespace {

// Words measured per font before the cache starts afresh.
constexpr std::size_t kWidthCacheLimit = 8192;

int toPixels(int pangoUnits) { return static_cast<int>(std::lround(double(pangoUnits) / PANGO_SCALE)); }

// CSS family lists may quote names; Pango takes a plain comma-separated list.
std::string familyList(const std::string& faceName) {
  std::string families;
  for (char c : faceName) {
    if (c != '"' && c != '\'') families += c;
  }
  return families;
}

}  // namespace

class PangoFonts::Font {
 public:
  Font(PangoContext* context, const Key& key) : layout_(pango_layout_new(context)) {
    const auto& [face, size, weight, italic, decoration] = key;
    PangoFontDescription* description = pango_font_description_new();
    pango_font_description_set_family(description, familyList(face).c_str());
    pango_font_description_set_absolute_size(description, double(size) * PANGO_SCALE);
    pango_font_description_set_weight(description, static_cast<PangoWeight>(weight));
    pango_font_description_set_style(description, italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    pango_layout_set_font_description(layout_, description);

    PangoAttrList* attributes = pango_attr_list_new();
    if (decoration & litehtml::font_decoration_underline)
      pango_attr_list_insert(attributes, pango_attr_underline_new(PANGO_UNDERLINE_SINGLE));
    if (decoration & litehtml::font_decoration_linethrough)
      pango_attr_list_insert(attributes, pango_attr_strikethrough_new(TRUE));
    if (decoration & litehtml::font_decoration_overline)
      pango_attr_list_insert(attributes, pango_attr_overline_new(PANGO_OVERLINE_SINGLE));
    pango_layout_set_attributes(layout_, attributes);
    pango_attr_list_unref(attributes);

    PangoFontMetrics* fontMetrics = pango_context_get_metrics(context, description, nullptr);
    metrics_.ascent = toPixels(pango_font_metrics_get_ascent(fontMetrics));
    metrics_.descent = toPixels(pango_font_metrics_get_descent(fontMetrics));
    metrics_.height = metrics_.ascent + metrics_.descent;
    pango_font_metrics_unref(fontMetrics);
    pango_font_description_free(description);

    PangoRectangle ink;
    pango_layout_set_text(layout_, "x", 1);
    pango_layout_get_pixel_extents(layout_, &ink, nullptr);
    metrics_.x_height = ink.height > 0 ? ink.height : metrics_.ascent / 2;
    metrics_.draw_spaces = decoration != litehtml::font_decoration_none;
  }
  ~Font() { g_object_unref(layout_); }
  Font(const Font&) = delete;
  Font& operator=(const Font&) = delete;

  const litehtml::font_metrics& metrics() const { return metrics_; }

  int width(const char* text) {
    auto cached = widths_.find(text);
    if (cached != widths_.end()) return cached->second;
    if (widths_.size() >= kWidthCacheLimit) widths_.clear();
    PangoRectangle logical;
    pango_layout_set_text(layout_, text, -1);
    pango_layout_get_extents(layout_, nullptr, &logical);
    const int pixels = toPixels(logical.width);
    widths_.emplace(text, pixels);
    return pixels;
  }

  void draw(cairo_t* cr, const char* text, const litehtml::position& pos) {
    pango_layout_set_text(layout_, text, -1);
    const double baseline = pos.bottom() - metrics_.descent;
    cairo_move_to(cr, pos.x, baseline - double(pango_layout_get_baseline(layout_)) / PANGO_SCALE);
    pango_cairo_show_layout(cr, layout_);
  }

 private:
  PangoLayout* layout_;
  litehtml::font_metrics metrics_;
  std::unordered_map<std::string, int> widths_;
};

// The thread's default font map keeps loaded fonts between providers, so a
// dialog opened again finds its fonts ready.
PangoFonts::PangoFonts() : context_(pango_font_map_create_context(pango_cairo_font_map_get_default())) {
  pango_cairo_context_set_resolution(context_, 96.0);
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_SLIGHT);
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_ON);
  pango_cairo_context_set_font_options(context_, options);
  cairo_font_options_destroy(options);
}

PangoFonts::~PangoFonts() {
  fonts_.clear();
  g_object_unref(context_);
}

litehtml::uint_ptr PangoFonts::create(const std::string& faceName, int size, int weight, bool italic,
                                      unsigned decoration, litehtml::font_metrics* metrics) {
  const Key key{faceName, size, weight, italic, decoration};
  auto& font = fonts_[key];
  if (!font) font = std::make_unique<Font>(context_, key);
  if (metrics) *metrics = font->metrics();
  return reinterpret_cast<litehtml::uint_ptr>(font.get());
}

int PangoFonts::textWidth(const char* text, litehtml::uint_ptr font) {
  return font ? reinterpret_cast<Font*>(font)->width(text) : 0;
}

void PangoFonts::drawText(cairo_t* cr, const char* text, litehtml::uint_ptr font, const litehtml::position& pos) {
  if (font) reinterpret_cast<Font*>(font)->draw(cr, text, pos);
}

}  // namespace kvt1::html
