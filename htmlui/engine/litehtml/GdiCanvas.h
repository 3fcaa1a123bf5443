#pragma once
// The drawing surface of one paint: the HDC with its GDI+ graphics, and the
// clip that the painted area and the overflow-hidden boxes (rounded or not)
// set for GDI+ shapes and GDI text alike.
#include "htmlui/engine/litehtml/GdiplusApi.h"

#include <litehtml.h>

#include <functional>
#include <vector>

namespace kvt1::html {

class GdiPicture;

class GdiCanvas {
 public:
  GdiCanvas(HDC dc, const litehtml::position& area);
  ~GdiCanvas();
  GdiCanvas(const GdiCanvas&) = delete;
  GdiCanvas& operator=(const GdiCanvas&) = delete;

  // False when GDI+ cannot draw on the HDC.
  bool ready() const { return ready_; }

  // Clips drawing to a box until the matching popClip; clips nest.
  void pushClip(const litehtml::position& box, const litehtml::border_radiuses& radius);
  void popClip();

  Gdiplus::Graphics& graphics() { return graphics_; }
  // Fills a box within the current clip: opaque colours with GDI, which
  // fills whole pixels exactly and much faster (under Wine by two orders of
  // magnitude), translucent ones with GDI+.
  void fillRect(const litehtml::position& box, const litehtml::web_color& color);
  // Tiles a picture over area, each tile at tile's size, one at tile's
  // corner: unrepeated at its own size with GDI, else with a GDI+ texture.
  void fillWithPicture(GdiPicture& picture, const litehtml::position& tile, const litehtml::position& area,
                       litehtml::background_repeat repeat);
  // Runs GDI drawing on the HDC within the current clip.
  void drawWithGdi(const std::function<void(HDC)>& draw);

 private:
  struct Clip {
    litehtml::position box;
    litehtml::border_radiuses radius;
  };

  void applyClips();

  Gdiplus::Graphics graphics_;
  bool ready_;
  litehtml::position area_;
  std::vector<Clip> clips_;
  // The clip in the HDC's device coordinates; null while only the area clips.
  HRGN gdiClip_ = nullptr;
};

}  // namespace kvt1::html
