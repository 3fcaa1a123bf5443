#pragma once
// The layout provider on litehtml: lays a page snapshot out and draws it
// through this system's page container.
#include "htmlui/engine/LayoutProvider.h"
#include "htmlui/engine/litehtml/NodeGeometry.h"
#include "htmlui/engine/litehtml/PageContainer.h"

#include <litehtml.h>

#include <memory>

namespace kvt1::html {

class LitehtmlLayout final : public LayoutProvider {
 public:
  LitehtmlLayout();

  // Supplies the bytes of the pictures that a page names (img src, background urls).
  void setImageLoader(ImageLoader loader);

  bool layout(const std::string& html, int width) override;
  std::optional<LayoutBox> box(int node) const override;
  int hitTest(int x, int y) const override;
  int minWidth() const override;
  int maxWidth() const override;
  int contentHeight() const override;
  bool renderPng(const std::string& path) const override;
  bool renderWindowPng(const WindowPicture& picture, const std::string& path) const override;
  bool paint(std::uintptr_t context, const LayoutBox& area) const override;

 private:
  struct Widths {
    int min = 0;
    int max = 0;
  };
  // Lays the page out at the extreme widths once per snapshot, then again at the layout width.
  const Widths& widths() const;

  // The container outlives the document, which hands its fonts back on destruction.
  std::unique_ptr<PageContainer> container_;
  litehtml::document::ptr document_;
  NodeGeometry geometry_;
  int width_ = 0;
  int height_ = 0;
  mutable std::optional<Widths> widths_;
};

}  // namespace kvt1::html
