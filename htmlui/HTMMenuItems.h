#pragma once
// The items of a menu control: a tree held in memory (each level a list
// linked by next, each sub-menu hanging from its item's children), the
// numbers by which rendered items are found again, and the markup of a level.
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace kvt1 {

constexpr int kMenuItemOrdinary = 0;
constexpr int kMenuItemColor = 1;

struct SHTMMenuItem {
  bool separator = false;  // a dividing line: text, icon and flags are not shown
  bool checked = false;
  bool disabled = false;
  int type = kMenuItemOrdinary;      // or kMenuItemColor
  std::wstring text;                 // written through TextToHtml: markup in it passes unescaped
  std::wstring icon;                 // resource URL of the image shown before the text
  std::wstring color;                // a CSS colour, for colour items
  SHTMMenuItem* children = nullptr;  // the first item of its sub-menu
  SHTMMenuItem* next = nullptr;      // the following item on its level
  std::uint64_t number = 0;          // "FPID": never given twice in the process
  unsigned command = 0;              // the owner's own number for the item
};

// "%I64u" of the number, and the selector "[FPID='%I64u']" that finds its element.
std::wstring MenuItemNumberText(std::uint64_t number);
std::wstring MenuItemSelector(std::uint64_t number);

// The items of a level from first on, with their sub-menus, as the
// library's menu markup: "<hr FPID='n' />" for a separator, else
// "<li " + flags + " FPID='n' " + icon style + ">" + text, then
// "<menu>" + sub-items + "</menu>" when it has any, then "</li>".
std::wstring RenderMenuItems(const SHTMMenuItem* first);
// A whole level: "<menu>" + RenderMenuItems(first) + "</menu>".
std::wstring RenderMenuLevel(const SHTMMenuItem* first);

// Creates, owns and frees the items of one menu.
class CHTMMenuItems {
 public:
  // A new item with a fresh number at the end of parent's sub-menu (the top
  // level when parent is null).
  SHTMMenuItem* Append(SHTMMenuItem* parent);
  // Frees every item.
  void Clear();
  SHTMMenuItem* First() const { return m_first; }
  // The live item with that number; null when there is none.
  SHTMMenuItem* Find(std::uint64_t number) const;
  std::size_t Count() const { return m_items.size(); }

 private:
  std::vector<std::unique_ptr<SHTMMenuItem>> m_items;
  std::unordered_map<std::uint64_t, SHTMMenuItem*> m_byNumber;
  // The last item of each level, by the level's parent (null: the top level).
  std::unordered_map<const SHTMMenuItem*, SHTMMenuItem*> m_lastOf;
  SHTMMenuItem* m_first = nullptr;
};

}  // namespace kvt1
