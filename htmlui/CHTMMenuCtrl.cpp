#include "htmlui/CHTMMenuCtrl.h"

#include <cwchar>

#include "htmlui/CHTMDialog.h"
#include "htmlui/HTMCtrlInPlace.h"
#include "htmlui/HTMEngine.h"

namespace kvt1 {
namespace {

const wchar_t kColorIcon[] = L"url(ICON_MENUCOLOR.NEWICONS)";

// Numpad placements beside the anchor: right, left, above, below.
UINT placementOf(const std::wstring& alignment) {
  if (alignment == L"right") return 6;
  if (alignment == L"left") return 4;
  if (alignment == L"top") return 8;
  return 2;
}

// The mode of ShowPopupAt that puts the popup's top left (numpad 7) at the point.
constexpr UINT kTopLeftAtPoint = 7u << 16;

}  // namespace

CHTMMenuCtrl::CHTMMenuCtrl(std::wstring id, Kind kind) : CHTMCtrl(std::move(id)), m_kind(kind) {}

std::wstring CHTMMenuCtrl::Markup() const {
  switch (m_kind) {
    case Kind::Button:
      return L"<Button type='menu' id='" + Id() + L"' ></Button>";
    case Kind::Context:
      return L"<menu.context id='" + Id() + L"' ></menu>";
    case Kind::Bar:
      return L"<widget id='" + Id() + L"' class='menu-bar'></widget>";
  }
  return {};
}

bool CHTMMenuCtrl::Create(CHTMDialog& page) {
  if (!page.ElementById(Id()).IsValid()) {
    if (!page.Body().IsValid()) return false;
    page.Body().SetHtml(Markup(), SIH_APPEND_AFTER_LAST);
  }
  return Bind(page, page.Root());
}

bool CHTMMenuCtrl::CreateInPlace(CHTMDialog& page, int left, int top, int width, int height) {
  return CreateControlInPlace(*this, page, Markup(), left, top, width, height);
}

SHTMMenuItem* CHTMMenuCtrl::AddItem(const std::wstring& text, SHTMMenuItem* parent, unsigned command) {
  SHTMMenuItem* item = m_items.Append(parent);
  item->text = text;
  item->command = command;
  return item;
}

SHTMMenuItem* CHTMMenuCtrl::AddSeparator(SHTMMenuItem* parent) {
  SHTMMenuItem* item = m_items.Append(parent);
  item->separator = true;
  return item;
}

SHTMMenuItem* CHTMMenuCtrl::AddColorItem(const std::wstring& text, const std::wstring& color, SHTMMenuItem* parent,
                                         unsigned command) {
  SHTMMenuItem* item = AddItem(text, parent, command);
  item->type = kMenuItemColor;
  item->color = color;
  return item;
}

void CHTMMenuCtrl::Clear() {
  m_items.Clear();
  Render();
}

void CHTMMenuCtrl::Fill(const std::vector<SHTMMenuEntry>& entries) {
  m_items.Clear();
  for (const SHTMMenuEntry& entry : entries) {
    if (entry.text == L"-") {
      AddSeparator();
      continue;
    }
    SHTMMenuItem* item = AddItem(entry.text, nullptr, entry.command);
    item->checked = entry.checked;
    item->disabled = entry.disabled;
  }
  Render();
}

void CHTMMenuCtrl::Render() {
  const CHTMElement& element = Element();
  if (!element.IsValid()) return;
  element.SetHtml(RenderMenuLevel(m_items.First()));
  for (const CHTMElement& li : element.SelectAll(L"li[type='color']")) {
    const SHTMMenuItem* item = ItemOf(li);
    if (item == nullptr) continue;
    li.SetStyle("foreground-image", kColorIcon);
    li.SetStyle("foreground-image-transformation",
                L"color-schema(" + item->color + L",#000000,#000000,#000000,#000000)");
  }
}

SHTMMenuItem* CHTMMenuCtrl::ItemOf(const CHTMElement& element) const {
  const CHTMElement& own = Element();
  if (!own.IsValid()) return nullptr;
  SHTMMenuItem* item = nullptr;
  for (CHTMElement e = element; e.IsValid(); e = e.Parent()) {
    if (e == own) return item;
    if (item != nullptr) continue;
    const std::wstring number = e.GetAttribute("FPID");
    if (!number.empty()) item = FindItem(std::wcstoull(number.c_str(), nullptr, 10));
  }
  return nullptr;  // not inside this menu
}

CHTMElement CHTMMenuCtrl::ItemElement(const SHTMMenuItem& item) const {
  return Element().SelectFirst(MenuItemSelector(item.number));
}

void CHTMMenuCtrl::CheckItem(SHTMMenuItem& item, bool checked) {
  item.checked = checked;
  ItemElement(item).SetAttribute("status", checked ? L"checked" : L"normal");
}

void CHTMMenuCtrl::ShowItem(SHTMMenuItem& item, bool show) {
  ItemElement(item).SetStyle("display", show ? L"block" : L"none");
}

void CHTMMenuCtrl::SetPopupAlignment(int alignment) {
  const wchar_t* side = alignment == 1 ? L"right" : alignment == 2 ? L"left" : alignment == 3 ? L"top" : L"bottom";
  Element().SetAttribute("align-popup", side);
}

CHTMElement CHTMMenuCtrl::PopupElement() const {
  return m_kind == Kind::Context ? Element() : Element().SelectFirst(L":root>menu");
}

bool CHTMMenuCtrl::DropDown() {
  html::HtmlEngine* engine = GetHtmlEngine();
  const CHTMElement popup = PopupElement();
  if (engine == nullptr || !popup.IsValid() || popup == Element()) return false;
  return engine->ShowPopup(popup.Handle(), Element().Handle(), placementOf(Element().GetAttribute("align-popup"))) ==
         HLDOM_OK;
}

bool CHTMMenuCtrl::ShowAt(POINT point) {
  html::HtmlEngine* engine = GetHtmlEngine();
  const CHTMElement popup = PopupElement();
  return engine != nullptr && popup.IsValid() &&
         engine->ShowPopupAt(popup.Handle(), point, kTopLeftAtPoint) == HLDOM_OK;
}

void CHTMMenuCtrl::HidePopup() {
  html::HtmlEngine* engine = GetHtmlEngine();
  const CHTMElement popup = PopupElement();
  if (engine != nullptr && popup.IsValid()) engine->HidePopup(popup.Handle());
}

BOOL CHTMMenuCtrl::handle_event(HELEMENT, BEHAVIOR_EVENT_PARAMS& params) {
  if (params.cmd & SINKING) return FALSE;
  const UINT code = params.cmd & ~HANDLED;
  if (code == BUTTON_CLICK && m_kind == Kind::Button && params.heTarget == Element().Handle())
    return DropDown() ? TRUE : FALSE;
  if (code != MENU_ITEM_CLICK) return FALSE;
  const CHTMElement chosen(params.he != nullptr ? params.he : params.heTarget);
  SHTMMenuItem* item = ItemOf(chosen);
  if (item == nullptr) return FALSE;
  SHTMMenuCtrlEventArgs args;
  args.element = chosen.Handle();
  args.code = MENU_ITEM_CLICK;
  args.itemNumber = item->number;
  args.item = item;
  Notify(args);
  return TRUE;
}

}  // namespace kvt1
