#pragma once
// litehtml's drawing and font services on Cairo and Pango: backgrounds,
// borders, text, images and list markers, drawn into the cairo_t that
// litehtml passes as its device context.
#include "htmlui/engine/litehtml/PangoFonts.h"
#include "htmlui/engine/litehtml/PngImages.h"

#include <litehtml.h>

#include <vector>

namespace kvt1::html {

class CairoContainer : public litehtml::document_container {
 public:
  static constexpr int kDefaultFontSize = 12;
  static constexpr const char* kDefaultFontName = "DejaVu Sans";

  CairoContainer() = default;

  void setImageLoader(ImageLoader loader) { images_.setLoader(std::move(loader)); }
  // The viewport that percentages, fixed boxes and media queries refer to.
  void setViewport(int width, int height) { viewport_ = litehtml::position(0, 0, width, height); }

  litehtml::uint_ptr create_font(const litehtml::tchar_t* faceName, int size, int weight,
                                 litehtml::font_style italic, unsigned int decoration,
                                 litehtml::font_metrics* fm) override;
  void delete_font(litehtml::uint_ptr font) override;
  int text_width(const litehtml::tchar_t* text, litehtml::uint_ptr font) override;
  void draw_text(litehtml::uint_ptr hdc, const litehtml::tchar_t* text, litehtml::uint_ptr font,
                 litehtml::web_color color, const litehtml::position& pos) override;
  int pt_to_px(int pt) const override;
  int get_default_font_size() const override;
  const litehtml::tchar_t* get_default_font_name() const override;
  void draw_list_marker(litehtml::uint_ptr hdc, const litehtml::list_marker& marker) override;
  void load_image(const litehtml::tchar_t* src, const litehtml::tchar_t* baseurl, bool redrawOnReady) override;
  void get_image_size(const litehtml::tchar_t* src, const litehtml::tchar_t* baseurl, litehtml::size& sz) override;
  void draw_background(litehtml::uint_ptr hdc, const litehtml::background_paint& bg) override;
  void draw_borders(litehtml::uint_ptr hdc, const litehtml::borders& borders, const litehtml::position& drawPos,
                    bool root) override;

  void set_caption(const litehtml::tchar_t* caption) override;
  void set_base_url(const litehtml::tchar_t* baseUrl) override;
  void link(const std::shared_ptr<litehtml::document>& doc, const litehtml::element::ptr& el) override;
  void on_anchor_click(const litehtml::tchar_t* url, const litehtml::element::ptr& el) override;
  void set_cursor(const litehtml::tchar_t* cursor) override;
  void transform_text(litehtml::tstring& text, litehtml::text_transform tt) override;
  void import_css(litehtml::tstring& text, const litehtml::tstring& url, litehtml::tstring& baseurl) override;
  void set_clip(const litehtml::position& pos, const litehtml::border_radiuses& radius, bool validX,
                bool validY) override;
  void del_clip() override;
  void get_client_rect(litehtml::position& client) const override;
  std::shared_ptr<litehtml::element> create_element(const litehtml::tchar_t* tagName,
                                                    const litehtml::string_map& attributes,
                                                    const std::shared_ptr<litehtml::document>& doc) override;
  void get_media_features(litehtml::media_features& media) const override;
  void get_language(litehtml::tstring& language, litehtml::tstring& culture) const override;

 private:
  struct Clip {
    litehtml::position box;
    litehtml::border_radiuses radius;
  };

  // Saves the Cairo state and clips to the boxes of the overflow-hidden ancestors.
  void beginDrawing(cairo_t* cr) const;
  void drawImage(cairo_t* cr, const std::string& url, const litehtml::position& box) const;

  PangoFonts fonts_;
  PngImages images_;
  std::vector<Clip> clips_;
  litehtml::position viewport_;
};

}  // namespace kvt1::html
