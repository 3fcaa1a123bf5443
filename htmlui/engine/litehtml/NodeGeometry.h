#pragma once
// Border boxes of a laid-out litehtml document by the engine's element
// numbers (the kvt1-node attribute), and hit tests over them.
#include "htmlui/engine/LayoutProvider.h"

#include <litehtml.h>

#include <unordered_map>
#include <vector>

namespace kvt1::html {

class NodeGeometry {
 public:
  // Reads the boxes of a rendered tree; elements under display:none get none.
  void collect(const litehtml::element::ptr& root);
  std::optional<LayoutBox> box(int node) const;
  // The numbered element whose box holds the point, -1 for none: boxes taken
  // out of the flow (popups) lie above the flow, then the deepest wins.
  int hitTest(int x, int y) const;

 private:
  struct Entry {
    int node;
    LayoutBox box;
    int layer;  // positioned ancestors (absolute or fixed), this element included
    int depth;
    bool visible;  // false for visibility:hidden, which keeps its place but takes no hits
  };

  // Records the numbered elements of a subtree and returns the subtree's box.
  std::optional<LayoutBox> visit(const litehtml::element::ptr& element, int layer, int depth, int containingWidth);

  std::vector<Entry> entries_;  // in document order
  std::unordered_map<int, std::size_t> byNode_;
};

}  // namespace kvt1::html
