#include "htmlui/engine/litehtml/LitehtmlLayout.h"

#include "htmlui/engine/litehtml/DialogStyle.h"

#include <cairo.h>

#include <algorithm>

namespace kvt1::html {
namespace {

// Wide enough that no line of a dialog page breaks.
constexpr int kUnlimitedWidth = 1 << 20;

// The dialog grey behind everything the page itself leaves transparent.
constexpr double kDialogGrey = 0xF0 / 255.0;

}  // namespace

LitehtmlLayout::LitehtmlLayout() : container_(std::make_unique<CairoContainer>()) {}

void LitehtmlLayout::setImageLoader(std::function<std::vector<unsigned char>(const std::string& url)> loader) {
  container_->setImageLoader(std::move(loader));
}

bool LitehtmlLayout::layout(const std::string& html, int width) {
  document_.reset();
  geometry_.collect(nullptr);
  widths_.reset();
  width_ = height_ = 0;
  if (width <= 0) return false;

  container_->setViewport(width, 0);
  document_ = litehtml::document::createFromUTF8(html.c_str(), container_.get(), &dialogStyleContext(),
                                                   &controlContentStyles());
  if (!document_ || !document_->root()) {
    document_.reset();
    return false;
  }
  document_->render(width);
  width_ = width;
  height_ = document_->height();
  geometry_.collect(document_->root());
  return true;
}

std::optional<LayoutBox> LitehtmlLayout::box(int node) const { return geometry_.box(node); }

int LitehtmlLayout::hitTest(int x, int y) const { return geometry_.hitTest(x, y); }

int LitehtmlLayout::minWidth() const { return widths().min; }

int LitehtmlLayout::maxWidth() const { return widths().max; }

int LitehtmlLayout::contentHeight() const { return height_; }

const LitehtmlLayout::Widths& LitehtmlLayout::widths() const {
  if (widths_) return *widths_;
  widths_.emplace();
  if (!document_) return *widths_;
  widths_->min = document_->render(1);
  widths_->max = document_->render(kUnlimitedWidth);
  document_->render(width_);
  return *widths_;
}

bool LitehtmlLayout::renderPng(const std::string& path) const {
  if (!document_) return false;
  const int height = std::max(height_, 1);
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width_, height);
  cairo_t* cr = cairo_create(surface);
  cairo_set_source_rgb(cr, kDialogGrey, kDialogGrey, kDialogGrey);
  cairo_paint(cr);
  const litehtml::position clip(0, 0, width_, height);
  document_->draw(reinterpret_cast<litehtml::uint_ptr>(cr), 0, 0, &clip);
  cairo_destroy(cr);
  const bool written = cairo_surface_write_to_png(surface, path.c_str()) == CAIRO_STATUS_SUCCESS;
  cairo_surface_destroy(surface);
  return written;
}

}  // namespace kvt1::html
