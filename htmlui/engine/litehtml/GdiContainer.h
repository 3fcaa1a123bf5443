#pragma once
// litehtml's drawing and font services on Windows, onto the HDC of a back
// buffer: text measured and drawn with GDI; opaque boxes and pictures at
// their own size by GDI too, exact on whole pixels and fast; rounded,
// translucent and broken shapes, markers and scaled or tiled pictures with
// GDI+, anti-aliased.
#include "htmlui/engine/litehtml/GdiFonts.h"
#include "htmlui/engine/litehtml/GdiPictures.h"
#include "htmlui/engine/litehtml/GdiplusSession.h"
#include "htmlui/engine/litehtml/PageContainer.h"

#include <litehtml.h>

namespace kvt1::html {

class GdiCanvas;

class GdiContainer final : public PageContainer {
 public:
  GdiContainer();
  ~GdiContainer() override;

  void setImageLoader(ImageLoader loader) override { pictures_.setLoader(std::move(loader)); }
  // context is an HDC.
  bool paint(litehtml::document& document, std::uintptr_t context, const litehtml::position& area) override;
  bool renderPng(litehtml::document& document, int width, int height, const std::string& path) override;
  bool renderWindowPng(litehtml::document& document, const WindowPicture& picture, const std::string& path) override;

  litehtml::uint_ptr create_font(const char* faceName, int size, int weight, litehtml::font_style italic,
                                 unsigned int decoration, litehtml::font_metrics* fm) override;
  void delete_font(litehtml::uint_ptr font) override;
  int text_width(const char* text, litehtml::uint_ptr font) override;
  void draw_text(litehtml::uint_ptr hdc, const char* text, litehtml::uint_ptr font, litehtml::web_color color,
                 const litehtml::position& pos) override;
  const char* get_default_font_name() const override { return GdiFonts::kDefaultFamily; }
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
  // GDI+ is up before the pictures are made and until after they are gone.
  GdiplusSession session_;
  GdiFonts fonts_;
  GdiPictures pictures_;
  // The surface of the paint under way; litehtml draws only from paint().
  GdiCanvas* canvas_ = nullptr;
};

}  // namespace kvt1::html
