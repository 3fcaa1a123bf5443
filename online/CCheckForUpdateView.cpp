#include "online/CCheckForUpdateView.h"

#include "htmlui/HTMEngine.h"
#include "online/CHvCheckForUpdatePresenter.h"
#include "platform/Resources.h"
#include "platform/ThisModule.h"

namespace kvt1 {

bool CCheckForUpdateView::Create() {
  m_dialog.reset();
  // Without the engine or the page nothing can show: the check ends as if nothing were found.
  if (m_presenter == nullptr || GetHtmlEngine() == nullptr) return false;
  if (!platform::findResource(platform::thisModuleHandle(), platform::kResourceTypeHtml, kCheckForUpdatePage))
    return false;
  m_dialog = std::make_unique<CHTMCheckForUpdateDlg>(*m_presenter, m_parent);
  return true;
}

void CCheckForUpdateView::ShowResult(bool updateShown, const std::wstring& updateName, bool upgradeShown,
                                     const std::wstring& upgradeName, bool mapFlag, std::uint32_t, bool manual) {
  if (m_dialog) m_dialog->SetResult(updateShown, updateName, upgradeShown, upgradeName, mapFlag, manual);
}

bool CCheckForUpdateView::DoModal() {
  if (!m_dialog) return false;
  const bool before = m_presenter->CheckOnStartUp();
  const bool shown = m_dialog->DoModal() != -1;
  m_autoCheck = m_dialog->IsAutoCheckChecked();
  m_dialog.reset();
  return shown && m_autoCheck != before;
}

bool CCheckForUpdateView::IsAutoCheckChecked() const { return m_autoCheck; }

}  // namespace kvt1
