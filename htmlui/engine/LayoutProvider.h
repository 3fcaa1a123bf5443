#pragma once
// Lays out and draws a serialised page for the DOM engine: geometry, hit tests
// and pictures. The DOM stays with the engine; a provider sees only snapshots.
#include <cstdint>
#include <optional>
#include <string>

namespace kvt1::html {

struct LayoutBox {
  int x = 0, y = 0, width = 0, height = 0;  // border box, relative to the page's top left
};

// A dialog as its user sees the window: the page in the client area, at the
// client area's size, inside the frame and under the caption bar that the
// window's style gives it.
struct WindowPicture {
  int clientWidth = 0;
  int clientHeight = 0;
  int border = 0;         // the frame's width on every side
  int captionHeight = 0;  // the caption bar inside the top border; 0: none
  std::string caption;    // UTF-8
};

class LayoutProvider {
 public:
  virtual ~LayoutProvider() = default;
  // Lays out a UTF-8 page in which every element carries kvt1-node="N"
  // (N: the engine's element number) at the given width in pixels.
  virtual bool layout(const std::string& html, int width) = 0;
  virtual std::optional<LayoutBox> box(int node) const = 0;
  // The element whose box holds the point, deepest first; -1 for none.
  virtual int hitTest(int x, int y) const = 0;
  virtual int minWidth() const = 0;       // narrowest width without overflow
  virtual int maxWidth() const = 0;       // width with no line breaking
  virtual int contentHeight() const = 0;  // at the last layout width
  // Draws the last layout (width x contentHeight) into a PNG file.
  virtual bool renderPng(const std::string& path) const = 0;
  // Draws the last layout into a PNG file as the window shows it.
  virtual bool renderWindowPng(const WindowPicture& picture, const std::string& path) const = 0;
  // Draws the part area (page coordinates) of the last layout onto the
  // system's drawing context (an HDC on Windows) whose origin is the page's
  // top left; false when there is no layout.
  virtual bool paint(std::uintptr_t context, const LayoutBox& area) const = 0;
};

}  // namespace kvt1::html
