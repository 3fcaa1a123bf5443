#pragma once
// Small helpers for driving a DomEngine from tests: loading pages into
// made-up windows, collecting selected elements, reading attributes and HTML.
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "htmlui/engine/DomEngine.h"
#include "htmlui/engine/LayoutProvider.h"
#include "platform/Unicode.h"

namespace kvt1::html::test {

// A point as the pointer messages carry it in lParam.
inline LPARAM at(int x, int y) {
  return static_cast<LPARAM>((static_cast<unsigned>(y) << 16) | static_cast<unsigned>(x));
}

// Boxes given by the test; the point's deepest box wins (later nodes lie deeper).
class BoxLayout : public LayoutProvider {
 public:
  bool layout(const std::string&, int) override { return true; }
  std::optional<LayoutBox> box(int node) const override {
    const auto found = boxes.find(node);
    return found != boxes.end() ? std::optional<LayoutBox>(found->second) : std::nullopt;
  }
  int hitTest(int x, int y) const override {
    int hit = -1;
    for (const auto& [node, b] : boxes)
      if (x >= b.x && y >= b.y && x < b.x + b.width && y < b.y + b.height) hit = node;
    return hit;
  }
  int minWidth() const override { return 0; }
  int maxWidth() const override { return 0; }
  int contentHeight() const override { return 0; }
  bool renderPng(const std::string&) const override { return false; }
  bool renderWindowPng(const WindowPicture&, const std::string&) const override { return false; }
  bool paint(std::uintptr_t, const LayoutBox&) const override { return false; }

  std::map<int, LayoutBox> boxes;
};

inline HWND window(int n = 1) { return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(0x1000 + n)); }

inline bool load(HtmlEngine& engine, HWND hwnd, const std::string& html) {
  return engine.LoadHtmlEx(hwnd, reinterpret_cast<LPCBYTE>(html.data()), static_cast<UINT>(html.size()), nullptr) !=
         FALSE;
}

inline HELEMENT rootOf(HtmlEngine& engine, HWND hwnd) {
  HELEMENT root = nullptr;
  engine.GetRootElement(hwnd, &root);
  return root;
}

inline BOOL HLCALLBACK collectElement(HELEMENT he, LPVOID param) {
  static_cast<std::vector<HELEMENT>*>(param)->push_back(he);
  return FALSE;
}

inline std::vector<HELEMENT> selectAll(HtmlEngine& engine, HELEMENT scope, const char* selector,
                                       HLDOM_RESULT* result = nullptr) {
  std::vector<HELEMENT> found;
  const HLDOM_RESULT r = engine.SelectElements(scope, selector, &collectElement, &found);
  if (result != nullptr) *result = r;
  return found;
}

inline HELEMENT selectFirst(HtmlEngine& engine, HELEMENT scope, const char* selector) {
  const std::vector<HELEMENT> found = selectAll(engine, scope, selector);
  return found.empty() ? nullptr : found.front();
}

inline std::string attribute(HtmlEngine& engine, HELEMENT he, const char* name) {
  LPCWSTR value = nullptr;
  if (engine.GetAttributeByName(he, name, &value) != HLDOM_OK || value == nullptr) return "(none)";
  return platform::toUtf8(value);
}

// The "id" attributes of elements, joined with blanks.
inline std::string ids(HtmlEngine& engine, const std::vector<HELEMENT>& elements) {
  std::string out;
  for (HELEMENT he : elements) {
    if (!out.empty()) out += ' ';
    out += attribute(engine, he, "id");
  }
  return out;
}

inline VOID HLCALLBACK appendBytes(LPCBYTE data, UINT length, LPVOID param) {
  static_cast<std::string*>(param)->append(reinterpret_cast<const char*>(data), length);
}

inline std::string html(HtmlEngine& engine, HELEMENT he, bool outer) {
  std::string out;
  engine.GetElementHtmlCB(he, outer ? TRUE : FALSE, &appendBytes, &out);
  return out;
}

inline VOID HLCALLBACK appendText(LPCWSTR text, UINT length, LPVOID param) {
  static_cast<std::wstring*>(param)->append(text, length);
}

inline std::string text(HtmlEngine& engine, HELEMENT he) {
  std::wstring out;
  engine.GetElementInnerTextCB(he, &appendText, &out);
  return platform::toUtf8(out);
}

inline std::string tagOf(HtmlEngine& engine, HELEMENT he) {
  LPCSTR type = nullptr;
  return engine.GetElementType(he, &type) == HLDOM_OK ? type : "(invalid)";
}

inline UINT stateOf(HtmlEngine& engine, HELEMENT he) {
  UINT state = 0;
  engine.GetElementState(he, &state);
  return state;
}

}  // namespace kvt1::html::test
