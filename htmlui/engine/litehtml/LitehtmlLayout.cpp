#include "htmlui/engine/litehtml/LitehtmlLayout.h"

#include "htmlui/engine/litehtml/DialogStyle.h"

#include <algorithm>

namespace kvt1::html {
namespace {

// Wide enough that no line of a dialog page breaks.
constexpr int kUnlimitedWidth = 1 << 20;

}  // namespace

LitehtmlLayout::LitehtmlLayout() : container_(makePageContainer()) {}

void LitehtmlLayout::setImageLoader(ImageLoader loader) { container_->setImageLoader(std::move(loader)); }

bool LitehtmlLayout::layout(const std::string& html, int width) {
  document_.reset();
  geometry_.collect(nullptr);
  widths_.reset();
  width_ = height_ = 0;
  if (width <= 0) return false;

  container_->setViewport(width, 0);
  document_ = litehtml::document::createFromString(html.c_str(), container_.get(), dialogStyleSheet(html).c_str(),
                                                   controlContentStyleSheet());
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
  widths_ = Widths{0, 0};
  if (!document_) return *widths_;
  widths_->min = document_->render(1);
  widths_->max = document_->render(kUnlimitedWidth);
  document_->render(width_);
  return *widths_;
}

bool LitehtmlLayout::renderPng(const std::string& path) const {
  if (!document_) return false;
  return container_->renderPng(*document_, width_, std::max(height_, 1), path);
}

bool LitehtmlLayout::renderWindowPng(const WindowPicture& picture, const std::string& path) const {
  if (!document_) return false;
  return container_->renderWindowPng(*document_, picture, path);
}

bool LitehtmlLayout::paint(std::uintptr_t context, const LayoutBox& area) const {
  if (!document_) return false;
  return container_->paint(*document_, context, litehtml::position(area.x, area.y, area.width, area.height));
}

}  // namespace kvt1::html
