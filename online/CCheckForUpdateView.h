#pragma once
// The update check's view as an HTML dialog: created when the presenter has
// something to show, run modally, destroyed when it closes.
#include <memory>

#include "online/CHTMCheckForUpdateDlg.h"
#include "online/ICheckForUpdateView.h"

namespace kvt1 {

class CCheckForUpdateView : public Hv::Http::ICheckForUpdateView {
 public:
  explicit CCheckForUpdateView(HWND parent) : m_parent(parent) {}

  // The presenter whose buttons the dialog uses; set before the check runs.
  void SetPresenter(Hv::Http::CHvCheckForUpdatePresenter& presenter) { m_presenter = &presenter; }

  bool Create() override;
  void ShowResult(bool updateShown, const std::wstring& updateName, bool upgradeShown, const std::wstring& upgradeName,
                  bool mapFlag, std::uint32_t product, bool manual) override;
  // True when the user changed the start-up check switch.
  bool DoModal() override;
  bool IsAutoCheckChecked() const override;

  // The dialog from Create until DoModal ends; null otherwise.
  CHTMCheckForUpdateDlg* Dialog() const { return m_dialog.get(); }

 private:
  HWND m_parent;
  Hv::Http::CHvCheckForUpdatePresenter* m_presenter = nullptr;
  std::unique_ptr<CHTMCheckForUpdateDlg> m_dialog;
  bool m_autoCheck = true;
};

}  // namespace kvt1
