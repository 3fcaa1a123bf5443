#pragma once
// The shown popups: which element each hangs from, where the layout HTML
// puts it, the popup and anchor states, and the chooser that plays the user
// of a tracked popup. Saying that a popup came up or went away is the
// engine's part.
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "htmlui/engine/DomTree.h"
#include "htmlui/engine/LayoutProvider.h"

namespace kvt1::html {

class DomPopups {
 public:
  // Where a shown popup goes: beside an anchor element (placement 2, 8, 4
  // or 6: below, above, left, right) or with one of its points (numpad 1-9)
  // at a view point.
  struct Place {
    UINT placement = 2;
    POINT point{0, 0};
    UINT corner = 7;
  };

  explicit DomPopups(DomTree& tree) : tree_(tree) {}

  // Marks popup shown beside anchor (null: at place's point); an anchor it
  // had before no longer owns it.
  void show(Element& popup, Element* anchor, const Place& place);
  // Marks popup hidden; returns the anchor it hung from, null without one.
  Element* hide(Element& popup);
  void forget(std::uint32_t element);

  // The positions the layout HTML gives the view's shown popups, as "left" and "top".
  std::map<std::uint32_t, POINT> positions(HWND view) const;
  // After a layout: moves the popups whose boxes are not where they belong,
  // kept inside a view of width by height; true when one moved and the view
  // must be laid out again.
  bool place(const LayoutProvider& layout, int width, int height);
  // The view's shown popups that neither are nor hold inside (null: all of them).
  std::vector<std::uint32_t> shownOutside(HWND view, const Element* inside) const;

  void setUser(std::function<HELEMENT(HELEMENT popup)> user) { user_ = std::move(user); }
  // The item the user chooses in a tracked popup; null without a user.
  HELEMENT choose(HELEMENT popup) const { return user_ ? user_(popup) : nullptr; }

 private:
  struct Shown {
    std::uint32_t anchor = 0;
    Place place;
    POINT written{0, 0};  // what the layout HTML last said
  };

  DomTree& tree_;
  std::map<std::uint32_t, Shown> shown_;
  std::function<HELEMENT(HELEMENT)> user_;
};

}  // namespace kvt1::html
