#include "htmlui/engine/litehtml/GdiContainer.h"

#include "htmlui/engine/litehtml/GdiBorders.h"
#include "htmlui/engine/litehtml/GdiCanvas.h"
#include "htmlui/engine/litehtml/GdiplusPng.h"
#include "htmlui/engine/litehtml/GdiplusShapes.h"
#include "platform/Unicode.h"

#include <algorithm>

namespace kvt1::html {
namespace {

// Case mapping of UTF-16 text, the same on every system locale.
std::wstring mappedCase(const std::wstring& text, DWORD mapping) {
  if (text.empty()) return text;
  const int length = LCMapStringW(LOCALE_INVARIANT, mapping, text.c_str(), int(text.size()), nullptr, 0);
  if (length <= 0) return text;
  std::wstring mapped(std::size_t(length), L'\0');
  LCMapStringW(LOCALE_INVARIANT, mapping, text.c_str(), int(text.size()), mapped.data(), length);
  return mapped;
}

std::wstring capitalized(const std::wstring& text) {
  if (text.empty()) return text;
  const std::size_t first = IS_HIGH_SURROGATE(text[0]) && text.size() > 1 ? 2 : 1;
  return mappedCase(text.substr(0, first), LCMAP_UPPERCASE) + text.substr(first);
}

litehtml::position overlap(const litehtml::position& a, const litehtml::position& b) {
  const int left = std::max(a.left(), b.left()), top = std::max(a.top(), b.top());
  const int right = std::min(a.right(), b.right()), bottom = std::min(a.bottom(), b.bottom());
  return litehtml::position(left, top, std::max(right - left, 0), std::max(bottom - top, 0));
}

Gdiplus::RectF rectOf(const litehtml::position& box) {
  return Gdiplus::RectF(float(box.x), float(box.y), float(box.width), float(box.height));
}

// The part of the clip box that a background picture covers in its repeat mode.
litehtml::position tiledArea(const litehtml::background_paint& layer) {
  const litehtml::position& clip = layer.clip_box;
  const litehtml::size& size = layer.image_size;
  switch (layer.repeat) {
    case litehtml::background_repeat_repeat_x:
      return litehtml::position(clip.x, layer.position_y, clip.width, size.height);
    case litehtml::background_repeat_repeat_y:
      return litehtml::position(layer.position_x, clip.y, size.width, clip.height);
    case litehtml::background_repeat_no_repeat:
      return litehtml::position(layer.position_x, layer.position_y, size.width, size.height);
    case litehtml::background_repeat_repeat:
      break;
  }
  return clip;
}

}  // namespace

GdiContainer::GdiContainer() = default;

GdiContainer::~GdiContainer() = default;

bool GdiContainer::paint(litehtml::document& document, std::uintptr_t context, const litehtml::position& area) {
  const HDC dc = reinterpret_cast<HDC>(context);
  if (!session_.ready() || !dc || area.width <= 0 || area.height <= 0) return false;
  const int saved = SaveDC(dc);
  IntersectClipRect(dc, area.left(), area.top(), area.right(), area.bottom());
  const RECT box{area.left(), area.top(), area.right(), area.bottom()};
  const HBRUSH grey = CreateSolidBrush(RGB(kDialogGrey, kDialogGrey, kDialogGrey));
  FillRect(dc, &box, grey);
  DeleteObject(grey);
  bool painted = false;
  {
    GdiCanvas canvas(dc, area);
    if (canvas.ready()) {
      canvas_ = &canvas;
      document.draw(context, 0, 0, &area);
      canvas_ = nullptr;
      painted = true;
    }
  }
  RestoreDC(dc, saved);
  return painted;
}

bool GdiContainer::renderPng(litehtml::document& document, int width, int height, const std::string& path) {
  if (width <= 0 || height <= 0) return false;
  void* pixels = nullptr;
  const HBITMAP bitmap = createPixelSection(width, height, &pixels);
  if (!bitmap) return false;
  const HDC dc = CreateCompatibleDC(nullptr);
  const HGDIOBJ previous = SelectObject(dc, bitmap);
  bool written = paint(document, reinterpret_cast<std::uintptr_t>(dc), litehtml::position(0, 0, width, height));
  GdiFlush();
  if (written) {
    // GDI leaves the alpha bytes undefined: the picture is opaque.
    Gdiplus::Bitmap picture(width, height, width * 4, PixelFormat32bppRGB, static_cast<BYTE*>(pixels));
    written = picture.GetLastStatus() == Gdiplus::Ok && writePng(picture, path);
  }
  SelectObject(dc, previous);
  DeleteDC(dc);
  DeleteObject(bitmap);
  return written;
}

namespace {

COLORREF gdiColour(std::uint32_t rgb) { return RGB((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF); }

void fill(HDC dc, int left, int top, int width, int height, std::uint32_t rgb) {
  const RECT box{left, top, left + width, top + height};
  const HBRUSH brush = CreateSolidBrush(gdiColour(rgb));
  FillRect(dc, &box, brush);
  DeleteObject(brush);
}

}  // namespace

bool GdiContainer::renderWindowPng(litehtml::document& document, const WindowPicture& picture,
                                   const std::string& path) {
  if (picture.clientWidth <= 0 || picture.clientHeight <= 0) return false;
  const int width = picture.clientWidth + 2 * picture.border;
  const int height = picture.clientHeight + 2 * picture.border + picture.captionHeight;
  void* pixels = nullptr;
  const HBITMAP bitmap = createPixelSection(width, height, &pixels);
  if (!bitmap) return false;
  const HDC dc = CreateCompatibleDC(nullptr);
  const HGDIOBJ previous = SelectObject(dc, bitmap);
  fill(dc, 0, 0, width, height, kFrameColour);
  if (picture.captionHeight > 0) {
    fill(dc, picture.border, picture.border, picture.clientWidth, picture.captionHeight, kCaptionColour);
    const std::wstring caption = platform::fromUtf8(picture.caption);
    const HGDIOBJ font = SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, gdiColour(kCaptionTextColour));
    RECT line{picture.border + kCaptionTextIndent, picture.border, picture.border + picture.clientWidth,
              picture.border + picture.captionHeight};
    DrawTextW(dc, caption.c_str(), static_cast<int>(caption.size()), &line, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
    SelectObject(dc, font);
  }
  // The page is drawn at its own origin and then copied into the client area.
  void* pagePixels = nullptr;
  const HBITMAP page = createPixelSection(picture.clientWidth, picture.clientHeight, &pagePixels);
  const HDC pageDc = CreateCompatibleDC(nullptr);
  const HGDIOBJ pagePrevious = page ? SelectObject(pageDc, page) : nullptr;
  bool written = page && paint(document, reinterpret_cast<std::uintptr_t>(pageDc),
                               litehtml::position(0, 0, picture.clientWidth, picture.clientHeight));
  GdiFlush();
  if (written) {
    BitBlt(dc, picture.border, picture.border + picture.captionHeight, picture.clientWidth, picture.clientHeight,
           pageDc, 0, 0, SRCCOPY);
    GdiFlush();
    Gdiplus::Bitmap framed(width, height, width * 4, PixelFormat32bppRGB, static_cast<BYTE*>(pixels));
    written = framed.GetLastStatus() == Gdiplus::Ok && writePng(framed, path);
  }
  if (page) {
    SelectObject(pageDc, pagePrevious);
    DeleteObject(page);
  }
  DeleteDC(pageDc);
  SelectObject(dc, previous);
  DeleteDC(dc);
  DeleteObject(bitmap);
  return written;
}

litehtml::uint_ptr GdiContainer::create_font(const char* faceName, int size, int weight, litehtml::font_style italic,
                                             unsigned int decoration, litehtml::font_metrics* fm) {
  return fonts_.create(faceName ? faceName : GdiFonts::kDefaultFamily, size, weight,
                       italic == litehtml::font_style_italic, decoration, fm);
}

// Fonts stay cached in fonts_ for the next layout of the page.
void GdiContainer::delete_font(litehtml::uint_ptr) {}

int GdiContainer::text_width(const char* text, litehtml::uint_ptr font) { return fonts_.textWidth(text, font); }

void GdiContainer::draw_text(litehtml::uint_ptr, const char* text, litehtml::uint_ptr font, litehtml::web_color color,
                             const litehtml::position& pos) {
  if (!canvas_) return;
  canvas_->drawWithGdi([&](HDC dc) { fonts_.drawText(dc, text, font, color, pos); });
}

void GdiContainer::draw_list_marker(litehtml::uint_ptr, const litehtml::list_marker& marker) {
  if (!canvas_) return;
  Gdiplus::Graphics& graphics = canvas_->graphics();
  const litehtml::position& box = marker.pos;
  if (!marker.image.empty()) {
    if (GdiPicture* picture = pictures_.picture(marker.image))
      canvas_->fillWithPicture(*picture, box, box, litehtml::background_repeat_no_repeat);
    return;
  }
  switch (marker.marker_type) {
    case litehtml::list_style_type_circle: {
      Gdiplus::Pen pen(colorOf(marker.color), 1);
      graphics.DrawEllipse(&pen, box.x + 0.5f, box.y + 0.5f, box.width - 1.0f, box.height - 1.0f);
      break;
    }
    case litehtml::list_style_type_disc: {
      Gdiplus::SolidBrush brush(colorOf(marker.color));
      graphics.FillEllipse(&brush, rectOf(box));
      break;
    }
    case litehtml::list_style_type_square:
      canvas_->fillRect(box, marker.color);
      break;
    default:
      break;
  }
}

void GdiContainer::load_image(const char* src, const char*, bool) {
  if (src) pictures_.load(src);
}

void GdiContainer::get_image_size(const char* src, const char*, litehtml::size& sz) {
  sz = src ? pictures_.size(src) : litehtml::size();
}

void GdiContainer::draw_background(litehtml::uint_ptr, const std::vector<litehtml::background_paint>& layers) {
  if (!canvas_) return;
  // The farthest layer, with the background colour, comes last.
  for (auto layer = layers.rbegin(); layer != layers.rend(); ++layer) {
    GdiPicture* picture = layer->image.empty() ? nullptr : pictures_.picture(layer->image);
    const litehtml::position tile(layer->position_x, layer->position_y, layer->image_size.width,
                                  layer->image_size.height);
    if (!hasRadius(layer->border_radius)) {
      const litehtml::position box = overlap(layer->clip_box, layer->border_box);
      canvas_->fillRect(box, layer->color);
      if (picture) canvas_->fillWithPicture(*picture, tile, overlap(tiledArea(*layer), box), layer->repeat);
      continue;
    }
    canvas_->pushClip(layer->clip_box, litehtml::border_radiuses());
    if (layer->color.alpha > 0) {
      Gdiplus::GraphicsPath border;
      addRoundedRectangle(border, layer->border_box, layer->border_radius);
      Gdiplus::SolidBrush brush(colorOf(layer->color));
      canvas_->graphics().FillPath(&brush, &border);
    }
    if (picture) {
      canvas_->pushClip(layer->border_box, layer->border_radius);
      canvas_->fillWithPicture(*picture, tile, tiledArea(*layer), layer->repeat);
      canvas_->popClip();
    }
    canvas_->popClip();
  }
}

void GdiContainer::draw_borders(litehtml::uint_ptr, const litehtml::borders& borders, const litehtml::position& drawPos,
                                bool) {
  if (canvas_) drawBorders(*canvas_, borders, drawPos);
}

void GdiContainer::transform_text(litehtml::string& text, litehtml::text_transform tt) {
  const std::wstring wide = platform::fromUtf8(text);
  switch (tt) {
    case litehtml::text_transform_uppercase:
      text = platform::toUtf8(mappedCase(wide, LCMAP_UPPERCASE));
      break;
    case litehtml::text_transform_lowercase:
      text = platform::toUtf8(mappedCase(wide, LCMAP_LOWERCASE));
      break;
    case litehtml::text_transform_capitalize:
      text = platform::toUtf8(capitalized(wide));
      break;
    case litehtml::text_transform_none:
      break;
  }
}

void GdiContainer::set_clip(const litehtml::position& pos, const litehtml::border_radiuses& radius) {
  if (canvas_) canvas_->pushClip(pos, radius);
}

void GdiContainer::del_clip() {
  if (canvas_) canvas_->popClip();
}

std::unique_ptr<PageContainer> makePageContainer() { return std::make_unique<GdiContainer>(); }

}  // namespace kvt1::html
