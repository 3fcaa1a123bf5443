// Data a page pulls in while it loads: imported style sheets, linked style
// sheets and images, asked of the view's notification callback.
#include "htmlui/engine/DomEngine.h"
#include "htmlui/engine/PageText.h"
#include "htmlui/engine/StyleImports.h"
#include "platform/CaseFolding.h"
#include "platform/Unicode.h"

namespace kvt1::html {
namespace {

// Imported sheets may import others; deeper chains are not followed.
constexpr int kMaxImportDepth = 4;

// A relative URI joined to the folder of the base URL.
std::wstring resolved(const std::wstring& base, const std::wstring& uri) {
  if (base.empty() || uri.find(L':') != std::wstring::npos) return uri;
  const std::size_t slash = base.find_last_of(L"/\\");
  return slash == std::wstring::npos ? uri : base.substr(0, slash + 1) + uri;
}

std::wstring rawText(const Element& e) {
  std::wstring text;
  for (const Node& node : e.children)
    if (node.element == nullptr) text += node.text;
  return text;
}

bool isStyleSheetLink(const std::wstring* rel) {
  return rel != nullptr && platform::asciiLowerCase(*rel).find(L"stylesheet") != std::wstring::npos;
}

}  // namespace

LRESULT DomEngine::notify(HWND hwnd, NMHDR& header) {
  View* view = findView(hwnd);
  if (view == nullptr || view->callback == nullptr) return 0;
  return view->callback(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header), view->callbackParam);
}

void DomEngine::loadResources(View& view) {
  Element* root = tree_.find(view.root);
  if (root == nullptr) return;
  struct Request {
    std::wstring uri;
    UINT type;
    std::uint32_t principal;
  };
  std::vector<Request> requests;
  forEachDescendant(*root, [&](Element& e, std::size_t) {
    if (e.tag == "style") {
      for (const StyleImport& rule : findStyleImports(rawText(e)))
        requests.push_back(Request{rule.uri, HLRT_DATA_STYLE, e.number});
    } else if (e.tag == "link") {
      const std::wstring* href = tree_.attributeValue(e, "href");
      if (href != nullptr && isStyleSheetLink(tree_.attributeValue(e, "rel")))
        requests.push_back(Request{*href, HLRT_DATA_STYLE, e.number});
    } else if (e.tag == "img") {
      if (const std::wstring* src = tree_.attributeValue(e, "src"))
        requests.push_back(Request{*src, HLRT_DATA_IMAGE, e.number});
    }
    return true;
  });
  const HWND hwnd = view.hwnd;
  for (const Request& request : requests) {
    Element* principal = tree_.find(request.principal);
    if (principal != nullptr) requestData(hwnd, request.uri, request.type, toHandle(principal), 0);
  }
}

void DomEngine::gatherStyleBehaviors(View& view) {
  Element* root = tree_.find(view.root);
  if (root == nullptr) return;
  const auto add = [&](const std::wstring& css, int depth, const auto& self) -> void {
    if (depth < kMaxImportDepth) {
      for (const StyleImport& rule : findStyleImports(css)) {
        const auto imported = view.importedStyles.find(rule.uri);
        if (imported != view.importedStyles.end()) self(imported->second, depth + 1, self);
      }
    }
    view.sheetBehaviors.addSheet(css, tree_.atoms());
  };
  forEachDescendant(*root, [&](Element& e, std::size_t) {
    if (e.tag == "style") {
      add(rawText(e), 0, add);
    } else if (e.tag == "link" && isStyleSheetLink(tree_.attributeValue(e, "rel"))) {
      const std::wstring* href = tree_.attributeValue(e, "href");
      const auto linked = href != nullptr ? view.importedStyles.find(*href) : view.importedStyles.end();
      if (linked != view.importedStyles.end()) add(linked->second, 1, add);
    }
    return true;
  });
}

std::optional<std::string> DomEngine::askForData(HWND hwnd, const std::wstring& uri, UINT type, HELEMENT principal) {
  View* view = findView(hwnd);
  if (view == nullptr) return std::nullopt;
  const std::wstring full = resolved(view->baseUrl, uri);
  NMHL_LOAD_DATA request{};
  request.hdr = NMHDR{hwnd, 0, HLN_LOAD_DATA};
  request.uri = full.c_str();
  request.dataType = type;
  request.principal = principal;
  view->pendingUri = full;
  view->pending = true;
  view->pendingAnswered = false;
  view->pendingData.clear();
  const LRESULT answer = notify(hwnd, request.hdr);
  view = findView(hwnd);
  if (view == nullptr) return std::nullopt;
  view->pending = false;
  std::string data;
  if (view->pendingAnswered)
    data = std::move(view->pendingData);
  else if (request.outData != nullptr && request.outDataSize != 0)
    data.assign(static_cast<const char*>(request.outData), request.outDataSize);
  else
    return std::nullopt;
  if (answer == LOAD_DISCARD) return std::nullopt;
  return data;
}

void DomEngine::requestData(HWND hwnd, const std::wstring& uri, UINT type, HELEMENT principal, int depth) {
  View* view = findView(hwnd);
  if (view == nullptr || (type == HLRT_DATA_STYLE && view->importedStyles.count(uri) != 0)) return;
  if (type == HLRT_DATA_IMAGE && view->pictures.count(uri) != 0) return;
  std::optional<std::string> data = askForData(hwnd, uri, type, principal);
  view = findView(hwnd);
  if (view == nullptr) return;
  if (type == HLRT_DATA_IMAGE) {
    view->pictures[uri] = data ? std::move(*data) : std::string();
    return;
  }
  if (!data || type != HLRT_DATA_STYLE) return;
  const std::wstring css = decodePageBytes(reinterpret_cast<const unsigned char*>(data->data()), data->size());
  view->importedStyles[uri] = css;
  if (depth + 1 >= kMaxImportDepth) return;
  for (const StyleImport& rule : findStyleImports(css))
    requestData(hwnd, rule.uri, HLRT_DATA_STYLE, principal, depth + 1);
}

std::vector<unsigned char> DomEngine::pictureData(const std::string& url) {
  View* view = findView(layingOut_);
  if (view == nullptr) return {};
  const std::wstring uri = platform::fromUtf8(url);
  if (view->pictures.count(uri) == 0)
    requestData(view->hwnd, uri, HLRT_DATA_IMAGE, toHandle(tree_.find(view->root)), 0);
  view = findView(layingOut_);
  if (view == nullptr) return {};
  const std::string& bytes = view->pictures[uri];
  return std::vector<unsigned char>(bytes.begin(), bytes.end());
}

BOOL DomEngine::DataReady(HWND hwnd, LPCWSTR uri, LPBYTE data, DWORD dataLength) {
  View* view = findView(hwnd);
  if (view == nullptr || !view->pending || uri == nullptr || view->pendingUri != uri) return FALSE;
  if (data == nullptr && dataLength != 0) return FALSE;
  view->pendingData.assign(reinterpret_cast<const char*>(data), dataLength);
  view->pendingAnswered = true;
  return TRUE;
}

}  // namespace kvt1::html
