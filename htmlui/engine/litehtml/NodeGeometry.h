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
    // Which positioned box (absolute or fixed) the element is drawn with: 0
    // for the flow, else that box's place in document order, this element
    // included. Positioned boxes are drawn above the flow in document order.
    int stacking;
    int depth;
    bool visible;  // false for visibility:hidden, which keeps its place but takes no hits
  };

  // Records the numbered elements of a subtree and returns the subtree's box.
  std::optional<LayoutBox> visit(const litehtml::element::ptr& element, int stacking, int depth, int containingWidth);

  std::vector<Entry> entries_;  // in document order
  int positioned_ = 0;          // positioned boxes met so far
  std::unordered_map<int, std::size_t> byNode_;
};

}  // namespace kvt1::html
