// Geometry: asked of the layout provider, which lays out a snapshot of the
// page again only after something changed. Without a provider, elements
// have no size and nothing is under the pointer.
#include "htmlui/engine/DomEngine.h"
#include "htmlui/engine/HtmlWriter.h"
#include "htmlui/engine/InlineStyle.h"
#include "platform/CaseFolding.h"
#include "platform/Unicode.h"

namespace kvt1::html {
namespace {

// A popup's containing block and size are measured by one layout; a second
// one catches a size that changed with the place.
constexpr int kPopupPlacingPasses = 2;

}  // namespace

void DomEngine::setLayoutProvider(std::unique_ptr<LayoutProvider> provider) {
  layout_ = std::move(provider);
  laidOutView_ = nullptr;
}

void DomEngine::setViewSize(HWND hwnd, int width, int height) {
  View& view = ensureView(hwnd);
  view.width = width;
  view.height = height;
}

std::string DomEngine::serializeForLayout(HWND hwnd) {
  View* view = findView(hwnd);
  Element* root = view != nullptr ? tree_.find(view->root) : nullptr;
  if (root == nullptr) return std::string();
  const std::map<std::uint32_t, POINT> popups = popups_.positions(view->hwnd);
  return platform::toUtf8(writeLayoutHtml(*root, tree_, view->importedStyles, &popups));
}

bool DomEngine::ensureLayout(View& view, int width) {
  if (!layout_ || tree_.find(view.root) == nullptr) return false;
  if (laidOutView_ == view.hwnd && view.laidOutGeneration == generation_ && view.laidOutWidth == width) return true;
  layingOut_ = view.hwnd;
  if (!layout_->layout(serializeForLayout(view.hwnd), width)) {
    laidOutView_ = nullptr;
    return false;
  }
  laidOutView_ = view.hwnd;
  // Popups go where their anchors and their own sizes, known now, put them.
  for (int pass = 0; pass < kPopupPlacingPasses && popups_.place(*layout_, view.width, view.height); ++pass) {
    if (!layout_->layout(serializeForLayout(view.hwnd), width)) {
      laidOutView_ = nullptr;
      return false;
    }
  }
  view.laidOutGeneration = generation_;
  view.laidOutWidth = width;
  return true;
}

std::optional<LayoutBox> DomEngine::boxOf(Element& e) {
  View* view = viewOf(e);
  if (view == nullptr || !ensureLayout(*view, view->width)) return std::nullopt;
  return layout_->box(static_cast<int>(e.number));
}

bool DomEngine::renderPng(HWND hwnd, const std::string& path) {
  View* view = findView(hwnd);
  return view != nullptr && ensureLayout(*view, view->width) && layout_->renderPng(path);
}

UINT DomEngine::GetMinWidth(HWND hwnd) {
  View* view = findView(hwnd);
  if (view == nullptr || !ensureLayout(*view, view->width)) return 0;
  return static_cast<UINT>(std::max(0, layout_->minWidth()));
}

UINT DomEngine::GetMinHeight(HWND hwnd, UINT width) {
  View* view = findView(hwnd);
  if (view == nullptr || !ensureLayout(*view, static_cast<int>(width))) return 0;
  return static_cast<UINT>(std::max(0, layout_->contentHeight()));
}

HLDOM_RESULT DomEngine::FindElement(HWND hwnd, POINT pt, HELEMENT* phe) {
  if (phe == nullptr) return HLDOM_INVALID_PARAMETER;
  View* view = findView(hwnd);
  if (view == nullptr) return HLDOM_INVALID_HWND;
  *phe = nullptr;
  if (!ensureLayout(*view, view->width)) return HLDOM_OK;
  const int node = layout_->hitTest(pt.x, pt.y);
  Element* e = node > 0 ? tree_.find(static_cast<std::uint32_t>(node)) : nullptr;
  if (e != nullptr && viewOf(*e) == view) *phe = toHandle(e);
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::GetElementLocation(HELEMENT he, LPRECT pLocation, UINT areas) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (pLocation == nullptr) return HLDOM_INVALID_PARAMETER;
  *pLocation = RECT{0, 0, 0, 0};
  const std::optional<LayoutBox> box = boxOf(*e);
  if (!box) return HLDOM_OK;
  int x = box->x, y = box->y;
  const UINT origin = areas & 0x0F;
  if (origin == SELF_RELATIVE) {
    x = y = 0;
  } else if (origin == CONTAINER_RELATIVE && e->parent != nullptr) {
    if (const std::optional<LayoutBox> parent = boxOf(*e->parent)) {
      x -= parent->x;
      y -= parent->y;
    }
  }
  *pLocation = RECT{x, y, x + box->width, y + box->height};
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::GetElementIntrinsicWidths(HELEMENT he, INT* pMinWidth, INT* pMaxWidth) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (pMinWidth == nullptr || pMaxWidth == nullptr) return HLDOM_INVALID_PARAMETER;
  *pMinWidth = *pMaxWidth = 0;
  if (e->view != nullptr) {
    View* view = findView(e->view);
    if (view != nullptr && ensureLayout(*view, view->width)) {
      *pMinWidth = layout_->minWidth();
      *pMaxWidth = layout_->maxWidth();
    }
  } else if (const std::optional<LayoutBox> box = boxOf(*e)) {
    *pMinWidth = *pMaxWidth = box->width;
  }
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::GetElementIntrinsicHeight(HELEMENT he, INT forWidth, INT* pHeight) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (pHeight == nullptr) return HLDOM_INVALID_PARAMETER;
  *pHeight = 0;
  if (e->view != nullptr) {
    View* view = findView(e->view);
    if (view != nullptr && ensureLayout(*view, forWidth)) *pHeight = layout_->contentHeight();
  } else if (const std::optional<LayoutBox> box = boxOf(*e)) {
    *pHeight = box->height;
  }
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::IsElementVisible(HELEMENT he, BOOL* pVisible) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (pVisible == nullptr) return HLDOM_INVALID_PARAMETER;
  *pVisible = FALSE;
  if (viewOf(*e) == nullptr) return HLDOM_OK;
  for (const Element* p = e; p != nullptr; p = p->parent) {
    const std::wstring* inlineStyle = tree_.attributeValue(*p, "style");
    const std::optional<std::wstring> display = effectiveStyle(*p, inlineStyle, "display");
    const std::optional<std::wstring> visibility = effectiveStyle(*p, inlineStyle, "visibility");
    if ((display && platform::asciiLowerCase(*display) == L"none") ||
        (visibility && platform::asciiLowerCase(*visibility) == L"hidden"))
      return HLDOM_OK;
  }
  *pVisible = TRUE;
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::GetScrollInfo(HELEMENT he, LPPOINT scrollPos, LPRECT viewRect, LPSIZE contentSize) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (scrollPos == nullptr || viewRect == nullptr || contentSize == nullptr) return HLDOM_INVALID_PARAMETER;
  *scrollPos = e->scroll;
  const std::optional<LayoutBox> box = boxOf(*e);
  *viewRect = box ? RECT{box->x, box->y, box->x + box->width, box->y + box->height} : RECT{0, 0, 0, 0};
  *contentSize = box ? SIZE{box->width, box->height} : SIZE{0, 0};
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::SetScrollPos(HELEMENT he, POINT scrollPos, BOOL smooth) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  e->scroll = scrollPos;
  return HLDOM_OK;
}

}  // namespace kvt1::html
