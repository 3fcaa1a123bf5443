#pragma once
// A menu: a tree of items held by the control and rendered as the library's
// menu markup into the control's element. Three kinds of element hold it:
//   menu button   "<Button type='menu' id='ID' ></Button>": a click drops
//                 the menu down at the side that "align-popup" names;
//   context menu  "<menu.context id='ID' ></menu>": pops up at a point;
//   menu bar      "<widget id='ID' class='menu-bar'></widget>": the top
//                 level in a row, each sub-menu dropping down from its item.
// Items are added (AddItem, AddSeparator, AddColorItem, or Fill from a
// list), then Render writes them into the page; each rendered item carries
// its number in "FPID". A choice (a menu-item click) is mapped back to its
// item and handed to the owning dialog as SHTMMenuCtrlEventArgs.
// Typical use:
//   CHTMMenuCtrl menu(L"mnuView", CHTMMenuCtrl::Kind::Button);
//   dialog.RegisterControl(menu);            // before the dialog is created
//   SHTMMenuItem* zoom = menu.AddItem(L"Zoom", nullptr, 10);
//   menu.AddItem(L"In", zoom, 11);
//   menu.AddSeparator();
//   menu.AddColorItem(L"Red", L"#ff0000", nullptr, 12);
//   menu.Render();
#include <cstdint>
#include <string>
#include <vector>

#include "htmlui/CHTMCtrl.h"
#include "htmlui/HTMMenuItems.h"

namespace kvt1 {

// A choice from the menu: the item's number ("FPID") and the item.
struct SHTMMenuCtrlEventArgs : SHTMCtrlEventArgs {
  std::uint64_t itemNumber = 0;
  SHTMMenuItem* item = nullptr;
};

// One entry of a list that fills a menu: the text "-" makes a separator.
struct SHTMMenuEntry {
  std::wstring text;
  bool checked = false;
  bool disabled = false;
  unsigned command = 0;  // the owner's own number, kept in the item
};

class CHTMMenuCtrl : public CHTMCtrl {
 public:
  enum class Kind { Button, Context, Bar };

  CHTMMenuCtrl(std::wstring id, Kind kind);

  // The element the kind creates, for the control's id.
  std::wstring Markup() const;
  // Binds to the page's element with the control's id; when there is none,
  // appends Markup() to the page's body first. The dialog does not bind it
  // again when it loads its page anew unless it is registered there.
  bool Create(CHTMDialog& page);
  // Appends Markup() to the body and places it (see CreateControlInPlace).
  bool CreateInPlace(CHTMDialog& page, int left, int top, int width, int height);

  // Items, added at the end of parent's sub-menu (the top level for null;
  // parent must be an item of this menu). They show after Render.
  SHTMMenuItem* AddItem(const std::wstring& text, SHTMMenuItem* parent = nullptr, unsigned command = 0);
  SHTMMenuItem* AddSeparator(SHTMMenuItem* parent = nullptr);
  SHTMMenuItem* AddColorItem(const std::wstring& text, const std::wstring& color, SHTMMenuItem* parent = nullptr,
                             unsigned command = 0);
  // Frees every item and renders the empty menu.
  void Clear();
  // Clears, adds the entries in order and renders them.
  void Fill(const std::vector<SHTMMenuEntry>& entries);
  // Writes the items into the element, then gives colour items their
  // recoloured icon ("foreground-image" and "foreground-image-transformation").
  void Render();

  SHTMMenuItem* FirstItem() const { return m_items.First(); }
  SHTMMenuItem* FindItem(std::uint64_t number) const { return m_items.Find(number); }
  std::size_t ItemCount() const { return m_items.Count(); }
  // The item whose rendered element holds element; null outside this menu.
  SHTMMenuItem* ItemOf(const CHTMElement& element) const;
  // The rendered element of an item; empty when it is not in the page.
  CHTMElement ItemElement(const SHTMMenuItem& item) const;

  // Later changes of a rendered item: attribute "status" "checked" or
  // "normal"; style "display" "block" or "none".
  void CheckItem(SHTMMenuItem& item, bool checked);
  void ShowItem(SHTMMenuItem& item, bool show);

  // Menu button: where the menu drops down, kept in attribute "align-popup":
  // 1 "right", 2 "left", 3 "top", anything else "bottom".
  void SetPopupAlignment(int alignment);
  // The popup: the element itself for a context menu, else its menu.
  CHTMElement PopupElement() const;
  // Menu button: drops the menu down at the "align-popup" side.
  bool DropDown();
  // Pops the menu up with its top left at point (the page's client coordinates).
  bool ShowAt(POINT point);
  void HidePopup();

  std::wstring TypeName() const override { return L"CHTMMenuCtrl"; }

 protected:
  BOOL handle_event(HELEMENT he, BEHAVIOR_EVENT_PARAMS& params) override;

 private:
  Kind m_kind;
  CHTMMenuItems m_items;
};

}  // namespace kvt1
