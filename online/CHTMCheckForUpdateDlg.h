#pragma once
// The update notification: what a check found, in up to three rows with a
// "View" button each, the start-up check switch, "Dismiss Updates" and
// "Close". The rows and the window height follow what is shown; the buttons
// act through the check's presenter.
#include <cstdint>
#include <string>

#include "htmlui/CHTMButtonCtrl.h"
#include "htmlui/CHTMCheckBoxCtrl.h"
#include "htmlui/CHTMDialog.h"

namespace Hv::Http {
class CHvCheckForUpdatePresenter;
}

namespace kvt1 {

extern const wchar_t kCheckForUpdatePage[];

// Each hidden row takes this much off the starting height.
constexpr int kUpdateDialogWidth = 420;
constexpr int kUpdateDialogHeight = 125;
constexpr int kUpdateRowHeight = 25;

class CHTMCheckForUpdateDlg : public CHTMDialog {
 public:
  CHTMCheckForUpdateDlg(Hv::Http::CHvCheckForUpdatePresenter& presenter, HWND parent);

  void SetResult(bool updateShown, const std::wstring& updateName, bool upgradeShown, const std::wstring& upgradeName,
                 bool mapFlag, bool manual);
  // The state of the check box; after the dialog closed, its last state.
  bool IsAutoCheckChecked() const { return m_autoCheck; }
  // The client height the rows shown asked for.
  int ComputedHeight() const { return m_height; }

 protected:
  void OnInitDialog() override;
  bool OnButtonClick(const CHTMElement& element, const std::wstring& id, BEHAVIOR_EVENT_PARAMS& params) override;
  void OnControlEvent(SHTMCtrlEventArgs& args) override;

 private:
  void ShowRow(const wchar_t* rowId, const wchar_t* nameId, bool shown, const std::wstring& name);
  void Dismiss();

  Hv::Http::CHvCheckForUpdatePresenter& m_presenter;
  CHTMCheckBoxCtrl m_chkAutoCheck{L"chkAutoCheckForUpdates"};
  CHTMButtonCtrl m_btnDismiss{L"btnDismiss"};
  CHTMButtonCtrl m_btnClose{L"btnClose"};
  CHTMButtonCtrl m_btnViewUpdate{L"btnViewUpdate"};
  CHTMButtonCtrl m_btnViewUpgrade{L"btnViewUpgrade"};
  CHTMButtonCtrl m_btnViewLibraryUpdate{L"btnViewLibraryUpdate"};

  bool m_updateShown = false;
  bool m_upgradeShown = false;
  bool m_libraryUpdateShown = false;  // never set: a library's update shows in the update row
  std::wstring m_updateName;
  std::wstring m_upgradeName;
  std::wstring m_libraryUpdateName;
  bool m_mapFlag = false;
  bool m_autoCheck = true;
  bool m_manual = false;
  int m_height = kUpdateDialogHeight;
};

}  // namespace kvt1
