#pragma once
// The about box: the program's and the data library's versions, each with a
// link to its release notes, which the dialog host opens with the shell. A
// product class supplies the versions and the paths; the page
// "HVSDIALOGS_HTM_ABOUT" supplies the rest and a standard button closes it.
#include <string>

#include "htmlui/CHTMDialog.h"

namespace kvt1 {

class CHTMAboutDlg : public CHTMDialog {
 public:
  explicit CHTMAboutDlg(HWND parent);

 protected:
  virtual std::wstring ProgramVersion() = 0;
  virtual std::wstring LibraryVersion() = 0;
  // Full paths of the release notes files.
  virtual std::wstring ProgramReleaseNotes() = 0;
  virtual std::wstring LibraryReleaseNotes() = 0;

  // Fills "txtVersionHead", "txtProgVersion", "txtSODVersion",
  // "txtProgRelNotes" and "txtSodRelNotes".
  void OnInitDialog() override;
};

// "<a href='PATH'>Open release notes (HTML)</a>", the path escaped for the attribute.
std::wstring ReleaseNotesLink(const std::wstring& path);

}  // namespace kvt1
