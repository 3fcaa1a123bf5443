// The dialog's context menu: filled by the subclass for the element that was
// right-clicked, shown at the cursor, its choice handed back to the subclass.
#include "htmlui/CHTMDialog.h"
#include "platform/DialogWindow.h"

namespace kvt1 {

bool CHTMDialog::OpenContextMenu(const CHTMElement& target) {
  const CHTMElement owner = target.SelectParent(L"[id]");
  if (!owner.IsValid()) return false;
  const std::wstring id = owner.GetAttribute("id");
  const platform::WindowPoint client = platform::screenToClient(m_hwnd, platform::cursorPos());
  const POINT point{client.x, client.y};
  if (!HasContextMenu(owner, id)) return false;
  std::vector<SHTMMenuEntry> entries;
  FillContextMenu(id, point, entries);
  if (entries.empty()) return false;
  if (!m_menu.IsBound() && !m_menu.Create(*this)) return false;
  m_menu.Fill(entries);
  m_contextMenuId = id;
  return m_menu.ShowAt(point);
}

bool CHTMDialog::ChooseFromContextMenu(const CHTMElement& item) {
  const SHTMMenuItem* chosen = m_menu.ItemOf(item);
  if (chosen == nullptr) return false;
  // The engine closes the menu after the choice; the subclass may open another meanwhile.
  const std::wstring id = m_contextMenuId;
  OnContextMenuCommand(id, chosen->command);
  return true;
}

}  // namespace kvt1
