#include "htmlui/engine/litehtml/PageContainer.h"

#include <cmath>

namespace kvt1::html {

int PageContainer::pt_to_px(int pt) const { return static_cast<int>(std::lround(pt * 96.0 / 72.0)); }

// A dialog page has no caption, base URL, links or cursor of its own: the
// DOM engine handles those on its side of the snapshot.
void PageContainer::set_caption(const char*) {}
void PageContainer::set_base_url(const char*) {}
void PageContainer::link(const std::shared_ptr<litehtml::document>&, const litehtml::element::ptr&) {}
void PageContainer::on_anchor_click(const char*, const litehtml::element::ptr&) {}
void PageContainer::set_cursor(const char*) {}

// The engine inlines imported style sheets into the snapshot.
void PageContainer::import_css(litehtml::string&, const litehtml::string&, litehtml::string&) {}

litehtml::element::ptr PageContainer::create_element(const char*, const litehtml::string_map&,
                                                     const std::shared_ptr<litehtml::document>&) {
  return nullptr;
}

void PageContainer::get_media_features(litehtml::media_features& media) const {
  media.type = litehtml::media_type_screen;
  media.width = media.device_width = viewport_.width;
  media.height = media.device_height = viewport_.height;
  media.color = 8;
  media.monochrome = 0;
  media.color_index = 256;
  media.resolution = 96;
}

void PageContainer::get_language(litehtml::string& language, litehtml::string& culture) const {
  language = "en";
  culture.clear();
}

}  // namespace kvt1::html
