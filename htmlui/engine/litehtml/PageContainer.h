#pragma once
// litehtml's container of a dialog page, the part that differs per system:
// fonts, text, pictures and drawing (Cairo and Pango on Linux, GDI and GDI+
// on Windows). The callbacks that a dialog page answers the same way
// everywhere (no caption, links or cursor of its own; the viewport; the
// media) are answered here once.
#include <litehtml.h>

#include "htmlui/engine/LayoutProvider.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace kvt1::html {

// The bytes of a picture that a page names (img src, background urls).
using ImageLoader = std::function<std::vector<unsigned char>(const std::string& url)>;

class PageContainer : public litehtml::document_container {
 public:
  static constexpr int kDefaultFontSize = 12;
  // The dialog grey behind everything the page itself leaves transparent.
  static constexpr litehtml::byte kDialogGrey = 0xF0;
  // The window's frame and caption bar in a picture of the window.
  static constexpr std::uint32_t kFrameColour = 0xB4BCC6;
  static constexpr std::uint32_t kCaptionColour = 0x1F3A5F;
  static constexpr std::uint32_t kCaptionTextColour = 0xFFFFFF;
  static constexpr int kCaptionTextIndent = 8;

  virtual ~PageContainer() = default;

  // Pictures are asked for once per URL; data that is not a picture leaves its box blank.
  virtual void setImageLoader(ImageLoader loader) = 0;
  // The viewport that percentages, fixed boxes and media queries refer to.
  void setViewport(int width, int height) { viewport_ = litehtml::position(0, 0, width, height); }

  // Draws the part area (page coordinates) of a rendered document onto the
  // system's drawing context (a cairo_t* on Linux, an HDC on Windows) whose
  // origin is the page's top left, over the dialog grey.
  virtual bool paint(litehtml::document& document, std::uintptr_t context, const litehtml::position& area) = 0;
  // Draws the whole rendered document, width x height pixels, into a PNG file.
  virtual bool renderPng(litehtml::document& document, int width, int height, const std::string& path) = 0;
  // Draws the rendered document into a PNG file as the window shows it: its
  // top left part of the client area's size, in the window's frame and
  // under its caption bar.
  virtual bool renderWindowPng(litehtml::document& document, const WindowPicture& picture, const std::string& path) = 0;

  int pt_to_px(int pt) const override;
  int get_default_font_size() const override { return kDefaultFontSize; }
  void set_caption(const char* caption) override;
  void set_base_url(const char* baseUrl) override;
  void link(const std::shared_ptr<litehtml::document>& doc, const litehtml::element::ptr& el) override;
  void on_anchor_click(const char* url, const litehtml::element::ptr& el) override;
  void set_cursor(const char* cursor) override;
  void import_css(litehtml::string& text, const litehtml::string& url, litehtml::string& baseurl) override;
  void get_client_rect(litehtml::position& client) const override { client = viewport_; }
  litehtml::element::ptr create_element(const char* tagName, const litehtml::string_map& attributes,
                                        const std::shared_ptr<litehtml::document>& doc) override;
  void get_media_features(litehtml::media_features& media) const override;
  void get_language(litehtml::string& language, litehtml::string& culture) const override;

 protected:
  litehtml::position viewport_;
};

// The container of this system.
std::unique_ptr<PageContainer> makePageContainer();

}  // namespace kvt1::html
