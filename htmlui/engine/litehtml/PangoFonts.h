#pragma once
// Fonts for the page layout: Pango font descriptions with their metrics, text
// measuring and drawing on Cairo. Font handles are what litehtml stores.
#include <litehtml.h>

#include <map>
#include <memory>
#include <string>
#include <tuple>

typedef struct _cairo cairo_t;
typedef struct _PangoContext PangoContext;

namespace kvt1::html {

class PangoFonts {
 public:
  PangoFonts();
  ~PangoFonts();
  PangoFonts(const PangoFonts&) = delete;
  PangoFonts& operator=(const PangoFonts&) = delete;

  // faceName is a CSS family list; size in pixels; weight 100..900.
  litehtml::uint_ptr create(const std::string& faceName, int size, int weight, bool italic, unsigned decoration,
                            litehtml::font_metrics* metrics);
  int textWidth(const char* text, litehtml::uint_ptr font);
  // Draws text on the baseline that litehtml places descent pixels above pos's bottom.
  void drawText(cairo_t* cr, const char* text, litehtml::uint_ptr font, const litehtml::position& pos);

 private:
  class Font;
  using Key = std::tuple<std::string, int, int, bool, unsigned>;

  PangoContext* context_ = nullptr;
  // Fonts outlive the documents that ask for them, so that a page laid out
  // again measures its words from the font's width cache.
  std::map<Key, std::unique_ptr<Font>> fonts_;
};

}  // namespace kvt1::html
