#pragma once
// The product's about box. The program's version is the module's file
// version, the library's the product's data version; the release notes are
// the installation's files "<ProgramPath>\ReleaseNotes.html" (the program's)
// and "<DataPath>\ReleaseNotes.html" (the data library's).
#include <string>

#include "htmlui/dialogs/CHTMAboutDlg.h"
#include "htmlui/dialogs/CHTMDialogKVT.h"

namespace kvt1 {

extern const wchar_t kReleaseNotesFile[];

class CKVTAbout : public CHTMDialogKVT<CHTMAboutDlg> {
 public:
  explicit CKVTAbout(HWND parent);

 protected:
  std::wstring ProgramVersion() override;
  std::wstring LibraryVersion() override;
  std::wstring ProgramReleaseNotes() override;
  std::wstring LibraryReleaseNotes() override;
};

}  // namespace kvt1
