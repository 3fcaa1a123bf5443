#include "online/CHTMCheckForUpdateDlg.h"

#include <initializer_list>

#include "online/CHvCheckForUpdatePresenter.h"
#include "platform/MessageBox.h"
#include "text/MessageDescription.h"

namespace kvt1 {

const wchar_t kCheckForUpdatePage[] = L"HTM_DLG_CHECKFORUPDATE";

namespace {

constexpr int kAnswerYes = 6;

// The name without control characters (C0, DEL and C1): a NUL would end the
// page's text where it stands, and the others draw as nothing or as boxes.
std::wstring withoutControls(const std::wstring& name) {
  std::wstring shown;
  shown.reserve(name.size());
  for (const wchar_t c : name) {
    if (c >= 0x20 && !(c >= 0x7F && c <= 0x9F)) shown += c;
  }
  return shown;
}

}  // namespace

CHTMCheckForUpdateDlg::CHTMCheckForUpdateDlg(Hv::Http::CHvCheckForUpdatePresenter& presenter, HWND parent)
    : CHTMDialog(kCheckForUpdatePage, parent), m_presenter(presenter) {
  for (CHTMCtrl* control : std::initializer_list<CHTMCtrl*>{
           &m_chkAutoCheck, &m_btnDismiss, &m_btnClose, &m_btnViewUpdate, &m_btnViewUpgrade, &m_btnViewLibraryUpdate})
    RegisterControl(*control);
}

void CHTMCheckForUpdateDlg::SetResult(bool updateShown, const std::wstring& updateName, bool upgradeShown,
                                      const std::wstring& upgradeName, bool mapFlag, bool manual) {
  m_updateShown = updateShown;
  m_updateName = updateName;
  m_upgradeShown = upgradeShown;
  m_upgradeName = upgradeName;
  m_mapFlag = mapFlag;
  m_manual = manual;
}

void CHTMCheckForUpdateDlg::OnInitDialog() {
  m_autoCheck = m_presenter.CheckOnStartUp();
  m_chkAutoCheck.SetCheck(m_autoCheck);

  bool upgradeShown = m_upgradeShown;
  bool libraryUpdateShown = m_libraryUpdateShown;
  if (m_presenter.IsLibraryProduct()) {
    ElementById(L"divUpdateText").SetText(L"A free library update is available:");
    upgradeShown = false;
    libraryUpdateShown = false;
  }

  if (m_manual) {
    m_btnDismiss.Show(false);
    m_btnClose.Element().SetStyle("margin-left", L"104px");
  }

  m_height = kUpdateDialogHeight;
  ShowRow(L"divUpdateRow", L"divUpdateName", m_updateShown, m_updateName);
  ShowRow(L"divUpgradeRow", L"divUpgradeName", upgradeShown, m_upgradeName);
  if (upgradeShown && m_mapFlag) ElementById(L"divUpgradeText").SetText(L"A free upgrade is available:");
  ShowRow(L"divLibraryUpdateRow", L"divLibraryUpdateName", libraryUpdateShown, m_libraryUpdateName);

  const platform::WindowRect frame =
      platform::adjustWindowRectForStyle(platform::WindowRect{0, 0, kUpdateDialogWidth, m_height}, Style(), ExStyle());
  const platform::WindowRect placed = platform::windowRect(GetHwnd());
  platform::moveWindow(GetHwnd(), placed.left, placed.top, frame.width(), frame.height());
}

void CHTMCheckForUpdateDlg::ShowRow(const wchar_t* rowId, const wchar_t* nameId, bool shown, const std::wstring& name) {
  if (!shown) {
    ElementById(rowId).SetStyle("display", L"none");
    m_height -= kUpdateRowHeight;
    return;
  }
  // Names come from the network: set as text, never as markup.
  ElementById(nameId).SetText(withoutControls(name));
}

bool CHTMCheckForUpdateDlg::OnButtonClick(const CHTMElement&, const std::wstring& id, BEHAVIOR_EVENT_PARAMS&) {
  if (id == L"btnViewUpdate" || id == L"btnViewLibraryUpdate") {
    m_presenter.ViewUpdate();
  } else if (id == L"btnViewUpgrade") {
    m_presenter.ViewUpgrade();
  } else if (id == L"btnDismiss") {
    Dismiss();
  } else if (id == L"btnClose") {
    platform::postMessage(GetHwnd(), WM_CLOSE, 0, 0);
  } else {
    return false;
  }
  return true;
}

void CHTMCheckForUpdateDlg::OnControlEvent(SHTMCtrlEventArgs& args) {
  if (args.control == &m_chkAutoCheck) m_autoCheck = static_cast<SHTMCheckBoxCtrlEventArgs&>(args).checked;
}

void CHTMCheckForUpdateDlg::Dismiss() {
  NTxtRes::CMessageDescription question =
      NTxtRes::BuildMessage(L"MsgDismissUpdates", platform::kMbIconQuestion, 0, false, false, false, true, true);
  if (NTxtRes::ShowMessage(question) != kAnswerYes) return;
  m_presenter.DismissUpdates();
  platform::postMessage(GetHwnd(), WM_CLOSE, 0, 0);
}

}  // namespace kvt1
