#include "htmlui/HTMMenuItems.h"

#include <atomic>

#include "htmlui/HTMCtrlText.h"
#include "platform/WideFormat.h"

namespace kvt1 {
namespace {

// Numbers go up for the whole process, so a number left in a page after its
// item was freed never names a newer item.
std::atomic<std::uint64_t> g_nextNumber{1};

void renderItem(std::wstring& out, const SHTMMenuItem& item) {
  const std::wstring number = MenuItemNumberText(item.number);
  if (item.separator) {
    out += L"<hr FPID='" + number + L"' />";
    return;
  }
  std::wstring attributes;
  if (item.checked) {
    attributes += L" status='checked' ";
  } else if (item.type == kMenuItemColor) {
    attributes += L" type='color' ";
  }
  if (item.disabled) attributes += L" disabled ";
  const std::wstring style = item.icon.empty() ? std::wstring() : L"style='foreground-image:url(" + item.icon + L");'";
  out += L"<li " + attributes + L" FPID='" + number + L"' " + style + L">" + TextToHtml(item.text);
  if (item.children != nullptr) out += L"<menu>" + RenderMenuItems(item.children) + L"</menu>";
  out += L"</li>";
}

}  // namespace

std::wstring MenuItemNumberText(std::uint64_t number) { return platform::formatWide(L"%I64u", number); }

std::wstring MenuItemSelector(std::uint64_t number) { return platform::formatWide(L"[FPID='%I64u']", number); }

std::wstring RenderMenuItems(const SHTMMenuItem* first) {
  std::wstring out;
  for (const SHTMMenuItem* item = first; item != nullptr; item = item->next) renderItem(out, *item);
  return out;
}

std::wstring RenderMenuLevel(const SHTMMenuItem* first) { return L"<menu>" + RenderMenuItems(first) + L"</menu>"; }

SHTMMenuItem* CHTMMenuItems::Append(SHTMMenuItem* parent) {
  m_items.push_back(std::make_unique<SHTMMenuItem>());
  SHTMMenuItem* item = m_items.back().get();
  item->number = g_nextNumber.fetch_add(1);
  m_byNumber[item->number] = item;
  SHTMMenuItem*& last = m_lastOf[parent];
  if (last != nullptr) {
    last->next = item;
  } else if (parent != nullptr) {
    parent->children = item;
  } else {
    m_first = item;
  }
  last = item;
  return item;
}

void CHTMMenuItems::Clear() {
  m_byNumber.clear();
  m_lastOf.clear();
  m_first = nullptr;
  m_items.clear();
}

SHTMMenuItem* CHTMMenuItems::Find(std::uint64_t number) const {
  const auto found = m_byNumber.find(number);
  return found != m_byNumber.end() ? found->second : nullptr;
}

}  // namespace kvt1
