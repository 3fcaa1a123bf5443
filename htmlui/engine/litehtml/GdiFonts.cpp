#include "htmlui/engine/litehtml/GdiFonts.h"

#include "platform/CaseFolding.h"
#include "platform/Unicode.h"

#include <algorithm>
#include <cwchar>
#include <unordered_map>
#include <vector>

namespace kvt1::html {
namespace {

// Words measured per font before the cache starts afresh.
constexpr std::size_t kWidthCacheLimit = 8192;

std::wstring trimmed(const std::wstring& text) {
  const auto first = text.find_first_not_of(L" \t\r\n\"'");
  if (first == std::wstring::npos) return {};
  const auto last = text.find_last_not_of(L" \t\r\n\"'");
  return text.substr(first, last - first + 1);
}

std::vector<std::wstring> familyNames(const std::string& families) {
  std::vector<std::wstring> names;
  const std::wstring list = platform::fromUtf8(families);
  std::size_t start = 0;
  while (start <= list.size()) {
    const auto comma = std::min(list.find(L',', start), list.size());
    const std::wstring name = trimmed(list.substr(start, comma - start));
    if (!name.empty()) names.push_back(name);
    start = comma + 1;
  }
  return names;
}

// The faces that stand for CSS's generic families; the others have none.
std::wstring genericFace(const std::wstring& family) {
  const std::wstring keyword = platform::asciiLowerCase(family);
  if (keyword == L"sans-serif" || keyword == L"system-ui") return platform::fromUtf8(GdiFonts::kDefaultFamily);
  if (keyword == L"serif") return L"Times New Roman";
  if (keyword == L"monospace") return L"Courier New";
  return family;
}

int CALLBACK faceFound(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
  *reinterpret_cast<bool*>(found) = true;
  return 0;
}

}  // namespace

class GdiFonts::Font {
 public:
  Font(HDC dc, const Key& key) {
    const auto& [face, size, weight, italic, decoration] = key;
    LOGFONTW description{};
    description.lfHeight = -size;
    description.lfWeight = weight;
    description.lfItalic = italic;
    description.lfUnderline = (decoration & litehtml::font_decoration_underline) != 0;
    description.lfStrikeOut = (decoration & litehtml::font_decoration_linethrough) != 0;
    description.lfCharSet = DEFAULT_CHARSET;
    description.lfOutPrecision = OUT_TT_PRECIS;
    // Grey anti-aliasing: the same look on screen and in PNG files, without colour fringes.
    description.lfQuality = ANTIALIASED_QUALITY;
    std::wcsncpy(description.lfFaceName, face.c_str(), LF_FACESIZE - 1);
    font_ = CreateFontIndirectW(&description);
    overline_ = (decoration & litehtml::font_decoration_overline) != 0;

    const HGDIOBJ previous = SelectObject(dc, font_);
    TEXTMETRICW text{};
    GetTextMetricsW(dc, &text);
    metrics_.ascent = text.tmAscent;
    metrics_.descent = text.tmDescent;
    metrics_.height = text.tmHeight;
    GLYPHMETRICS glyph{};
    const MAT2 identity{{0, 1}, {0, 0}, {0, 0}, {0, 1}};
    metrics_.x_height = GetGlyphOutlineW(dc, L'x', GGO_METRICS, &glyph, 0, nullptr, &identity) != GDI_ERROR
                            ? int(glyph.gmBlackBoxY)
                            : text.tmAscent / 2;
    // Decorated spaces are drawn, so that a line runs on under them.
    metrics_.draw_spaces = decoration != litehtml::font_decoration_none;
    SelectObject(dc, previous);
  }
  ~Font() { DeleteObject(font_); }
  Font(const Font&) = delete;
  Font& operator=(const Font&) = delete;

  const litehtml::font_metrics& metrics() const { return metrics_; }

  int width(HDC dc, const char* text) {
    auto cached = widths_.find(text);
    if (cached != widths_.end()) return cached->second;
    if (widths_.size() >= kWidthCacheLimit) widths_.clear();
    const std::wstring wide = platform::fromUtf8(text);
    const HGDIOBJ previous = SelectObject(dc, font_);
    SIZE extent{};
    GetTextExtentPoint32W(dc, wide.c_str(), int(wide.size()), &extent);
    SelectObject(dc, previous);
    widths_.emplace(text, int(extent.cx));
    return extent.cx;
  }

  void draw(HDC dc, HDC measuring, const char* text, litehtml::web_color color, const litehtml::position& pos) {
    if (color.alpha == 0) return;
    const std::wstring wide = platform::fromUtf8(text);
    const COLORREF ink = RGB(color.red, color.green, color.blue);
    const HGDIOBJ previous = SelectObject(dc, font_);
    SetTextColor(dc, ink);
    SetBkMode(dc, TRANSPARENT);
    SetTextAlign(dc, TA_BASELINE | TA_LEFT | TA_NOUPDATECP);
    const int baseline = pos.bottom() - metrics_.descent;
    ExtTextOutW(dc, pos.x, baseline, 0, nullptr, wide.c_str(), UINT(wide.size()), nullptr);
    if (overline_) {
      const int thickness = std::max(1, metrics_.height / 14);
      const int top = baseline - metrics_.ascent;
      const RECT line{pos.x, top, pos.x + width(measuring, text), top + thickness};
      const HBRUSH brush = CreateSolidBrush(ink);
      FillRect(dc, &line, brush);
      DeleteObject(brush);
    }
    SelectObject(dc, previous);
  }

 private:
  HFONT font_;
  bool overline_;
  litehtml::font_metrics metrics_;
  std::unordered_map<std::string, int> widths_;
};

GdiFonts::GdiFonts() : measuring_(CreateCompatibleDC(nullptr)) {}

GdiFonts::~GdiFonts() {
  fonts_.clear();
  DeleteDC(measuring_);
}

litehtml::uint_ptr GdiFonts::create(const std::string& families, int size, int weight, bool italic, unsigned decoration,
                                    litehtml::font_metrics* metrics) {
  const Key key{faceOf(families), size, weight, italic, decoration};
  auto& font = fonts_[key];
  if (!font) font = std::make_unique<Font>(measuring_, key);
  if (metrics) *metrics = font->metrics();
  return reinterpret_cast<litehtml::uint_ptr>(font.get());
}

int GdiFonts::textWidth(const char* text, litehtml::uint_ptr font) {
  return font && text ? reinterpret_cast<Font*>(font)->width(measuring_, text) : 0;
}

void GdiFonts::drawText(HDC dc, const char* text, litehtml::uint_ptr font, litehtml::web_color color,
                        const litehtml::position& pos) {
  if (font && text) reinterpret_cast<Font*>(font)->draw(dc, measuring_, text, color, pos);
}

std::wstring GdiFonts::faceOf(const std::string& families) {
  for (const std::wstring& family : familyNames(families)) {
    const std::wstring face = genericFace(family);
    if (installed(face)) return face;
  }
  return platform::fromUtf8(kDefaultFamily);
}

bool GdiFonts::installed(const std::wstring& face) {
  if (face.size() >= LF_FACESIZE) return false;
  auto known = installed_.find(face);
  if (known != installed_.end()) return known->second;
  LOGFONTW wanted{};
  wanted.lfCharSet = DEFAULT_CHARSET;
  std::wcsncpy(wanted.lfFaceName, face.c_str(), LF_FACESIZE - 1);
  bool found = false;
  EnumFontFamiliesExW(measuring_, &wanted, faceFound, reinterpret_cast<LPARAM>(&found), 0);
  installed_.emplace(face, found);
  return found;
}

}  // namespace kvt1::html
