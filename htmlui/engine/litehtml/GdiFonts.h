#pragma once
// Fonts for the page layout on Windows: GDI fonts chosen from a CSS family
// list, with their metrics; text measured and drawn with GDI, so that a word
// is drawn exactly as wide as it was measured. Font handles are what
// litehtml stores.
#include <litehtml.h>
#include <windows.h>

#include <map>
#include <memory>
#include <string>
#include <tuple>

namespace kvt1::html {

class GdiFonts {
 public:
  // On every Windows and in Wine: pages whose families are all missing look
  // the same everywhere.
  static constexpr const char* kDefaultFamily = "Tahoma";

  GdiFonts();
  ~GdiFonts();
  GdiFonts(const GdiFonts&) = delete;
  GdiFonts& operator=(const GdiFonts&) = delete;

  // families is a CSS family list, tried in order; size in pixels; weight 100..900.
  litehtml::uint_ptr create(const std::string& families, int size, int weight, bool italic, unsigned decoration,
                            litehtml::font_metrics* metrics);
  int textWidth(const char* text, litehtml::uint_ptr font);
  // Draws text on the baseline that litehtml places descent pixels above pos's bottom.
  void drawText(HDC dc, const char* text, litehtml::uint_ptr font, litehtml::web_color color,
                const litehtml::position& pos);

 private:
  class Font;
  using Key = std::tuple<std::wstring, int, int, bool, unsigned>;

  // The first installed face that a CSS family list names, else the default.
  std::wstring faceOf(const std::string& families);
  bool installed(const std::wstring& face);

  HDC measuring_;
  std::map<std::wstring, bool> installed_;
  // Fonts outlive the documents that ask for them, so that a page laid out
  // again measures its words from the font's width cache.
  std::map<Key, std::unique_ptr<Font>> fonts_;
};

}  // namespace kvt1::html
