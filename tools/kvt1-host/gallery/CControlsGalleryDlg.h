#pragma once
// The gallery's dialog, "HTM_DLG_CONTROLS_GALLERY": a menu bar, a tab set of
// the obstacle limitation surfaces (more tabs than its box shows), numeric
// fields with limits, a note with a context menu, and tooltips on the
// fields. Every notification of its controls is printed.
#include <functional>
#include <string>
#include <vector>

#include "htmlui/CHTMDialog.h"
#include "htmlui/CHTMMenuCtrl.h"
#include "htmlui/CHTMTabCtrl.h"
#include "htmlui/CHTMTextBoxCtrl.h"

namespace kvt1::emu {

class CControlsGalleryDlg : public CHTMDialog {
 public:
  explicit CControlsGalleryDlg(std::function<void(const std::wstring&)> print);

 protected:
  void OnInitDialog() override;
  void OnControlEvent(SHTMCtrlEventArgs& args) override;
  bool HasContextMenu(const CHTMElement& element, const std::wstring& id) override;
  void FillContextMenu(const std::wstring& id, POINT point, std::vector<SHTMMenuEntry>& entries) override;
  void OnContextMenuCommand(const std::wstring& id, unsigned command) override;

 private:
  void FillMenuBar();
  void FillTabs();
  void SetUpFields();

  std::function<void(const std::wstring&)> m_print;
  CHTMMenuCtrl m_menuBar{L"menuBar", CHTMMenuCtrl::Kind::Bar};
  CHTMTabCtrl m_surfaces{L"tabSurfaces"};
  CHTMTextBoxCtrl m_length{L"edtLength"};
  CHTMTextBoxCtrl m_slope{L"edtSlope"};
  CHTMTextBoxCtrl m_elevation{L"edtElevation"};
  bool m_surfacesShown = true;
};

}  // namespace kvt1::emu
