#pragma once
// The Linux layout provider: lays a page snapshot out with litehtml, measures
// text with Pango and draws with Cairo.
#include "htmlui/engine/LayoutProvider.h"
#include "htmlui/engine/litehtml/CairoContainer.h"
#include "htmlui/engine/litehtml/NodeGeometry.h"

#include <litehtml.h>

#include <functional>
#include <memory>
#include <vector>

namespace kvt1::html {

class LitehtmlLayout final : public LayoutProvider {
 public:
  LitehtmlLayout();

  // Supplies the PNG bytes of the pictures that a page names (img src, background urls).
  void setImageLoader(std::function<std::vector<unsigned char>(const std::string& url)> loader);

  bool layout(const std::string& html, int width) override;
  std::optional<LayoutBox> box(int node) const override;
  int hitTest(int x, int y) const override;
  int minWidth() const override;
  int maxWidth() const override;
  int contentHeight() const override;
  bool renderPng(const std::string& path) const override;

 private:
  struct Widths {
    int min = 0;
    int max = 0;
  };
  // Lays the page out at the extreme widths once per snapshot, then again at the layout width.
  const Widths& widths() const;

  // The container outlives the document, which hands its fonts back on destruction.
  std::unique_ptr<CairoContainer> container_;
  litehtml::document::ptr document_;
  NodeGeometry geometry_;
  int width_ = 0;
  int height_ = 0;
  mutable std::optional<Widths> widths_;
};

}  // namespace kvt1::html
