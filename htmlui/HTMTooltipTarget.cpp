#include "htmlui/HTMTooltipTarget.h"

#include <cwchar>

#include "platform/Unicode.h"

namespace kvt1 {
namespace {

// The nearest element from element up to (not beyond) stop that the
// selector matches; empty when there is none below stop or stop itself.
CHTMElement nearestUpTo(const CHTMElement& element, const CHTMElement& stop, const std::wstring& selector) {
  const CHTMElement found = element.SelectParent(selector);
  if (!found.IsValid()) return {};
  // found lies on the way up from element; it counts when stop is not below it.
  for (CHTMElement e = element; e.IsValid(); e = e.Parent()) {
    if (e == found) return found;
    if (e == stop) return {};
  }
  return {};
}

std::optional<std::uint64_t> itemNumberOf(const CHTMElement& item) {
  const std::wstring text = item.GetAttribute("FPID");
  if (text.empty() || text.find_first_not_of(L"0123456789") != std::wstring::npos) return std::nullopt;
  return std::wcstoull(text.c_str(), nullptr, 10);
}

// The sub-item under which element lies, by the kind of container around it.
CHTMElement subItem(const CHTMElement& element) {
  if (const CHTMElement grid = element.SelectParent(L".PropertyCtrl"); grid.IsValid())
    return nearestUpTo(element, grid, L"tr");
  if (const CHTMElement select = element.SelectParent(L"select"); select.IsValid())
    return select.SelectFirst(L"option:checked");
  if (const CHTMElement bar = element.SelectParent(L"div.PushButtonMenuCtrl, div[toolbar], .Tree"); bar.IsValid())
    return nearestUpTo(element, bar, L"[FPID]");
  if (const CHTMElement grid = element.SelectParent(L"div.DataGridView"); grid.IsValid())
    return nearestUpTo(element, grid, L"div[FPID]");
  return {};
}

}  // namespace

STooltipTarget FindTooltipTarget(const CHTMElement& element) {
  STooltipTarget target;
  if (!element.IsValid()) return target;
  target.self = element.SelectParent(L"[SELFTOOLTIP], [SELFIMAGETOOLTIP]");
  if (target.self.IsValid()) {
    target.selfImage = !(target.self.SelectParent(L"[SELFTOOLTIP]") == target.self);
    return target;
  }
  target.control = element.SelectParent(L"[id]");
  target.controlId = target.control.GetAttribute("id");
  target.item = subItem(element);
  if (target.item.IsValid()) target.itemNumber = itemNumberOf(target.item);
  target.context = element.SelectParent(L"[ContextID]");
  target.contextKey = target.context.GetAttribute("ContextID");
  return target;
}

std::wstring SelfTooltipHtml(const CHTMElement& self, bool image) {
  if (image) {
    std::wstring source = self.GetAttribute("SELFIMAGETOOLTIP");
    if (source.empty()) source = self.GetAttribute("src");
    return source.empty() ? std::wstring() : L"<img src='" + source + L"' />";
  }
  const std::wstring own = self.GetAttribute("SELFTOOLTIP");
  if (!own.empty()) return own;
  return platform::fromUtf8(self.GetHtml(false));
}

}  // namespace kvt1
