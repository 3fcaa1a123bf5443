#pragma once
// The page container on Cairo and Pango: fonts, text, pictures, backgrounds,
// borders and list markers, drawn into the cairo_t that litehtml passes as
// its device context.
#include "htmlui/engine/litehtml/PageContainer.h"
#include "htmlui/engine/litehtml/PangoFonts.h"
#include "htmlui/engine/litehtml/PngImages.h"

#include <vector>

namespace kvt1::html {

class CairoContainer final : public PageContainer {
 public:
  static constexpr const char* kDefaultFontName = "DejaVu Sans";

  void setImageLoader(ImageLoader loader) override { images_.setLoader(std::move(loader)); }
  bool paint(litehtml::document& document, std::uintptr_t context, const litehtml::position& area) override;
  bool renderPng(litehtml::document& document, int width, int height, const std::string& path) override;
  bool renderWindowPng(litehtml::document& document, const WindowPicture& picture, const std::string& path) override;

  litehtml::uint_ptr create_font(const char* faceName, int size, int weight, litehtml::font_style italic,
                                 unsigned int decoration, litehtml::font_metrics* fm) override;
  void delete_font(litehtml::uint_ptr font) override;
  int text_width(const char* text, litehtml::uint_ptr font) override;
  void draw_text(litehtml::uint_ptr hdc, const char* text, litehtml::uint_ptr font, litehtml::web_color color,
                 const litehtml::position& pos) override;
  const char* get_default_font_name() const override { return kDefaultFontName; }
  void draw_list_marker(litehtml::uint_ptr hdc, const litehtml::list_marker& marker) override;
  void load_image(const char* src, const char* baseurl, bool redrawOnReady) override;
  void get_image_size(const char* src, const char* baseurl, litehtml::size& sz) override;
  void draw_background(litehtml::uint_ptr hdc, const std::vector<litehtml::background_paint>& layers) override;
  void draw_borders(litehtml::uint_ptr hdc, const litehtml::borders& borders, const litehtml::position& drawPos,
                    bool root) override;
  void transform_text(litehtml::string& text, litehtml::text_transform tt) override;
  void set_clip(const litehtml::position& pos, const litehtml::border_radiuses& radius) override;
  void del_clip() override;

 private:
  struct Clip {
    litehtml::position box;
    litehtml::border_radiuses radius;
  };

  // Saves the Cairo state and clips to the boxes of the overflow-hidden ancestors.
  void beginDrawing(cairo_t* cr) const;
  void drawLayer(cairo_t* cr, const litehtml::background_paint& layer, bool withColour) const;
  void drawImage(cairo_t* cr, const std::string& url, const litehtml::position& box) const;

  PangoFonts fonts_;
  PngImages images_;
  std::vector<Clip> clips_;
};

}  // namespace kvt1::html
