#include "htmlui/dialogs/CHTMAboutDlg.h"

#include "text/Placeholders.h"
#include "text/TextResources.h"
#include "text/XmlEntities.h"

namespace kvt1 {
namespace {

// A text of the about box with its "%s" filled.
std::wstring filled(const wchar_t* key, const std::wstring& value) {
  std::wstring text = NTxtRes::GetText(key);
  NTxtRes::ReplaceString(text, value);
  return text;
}

}  // namespace

CHTMAboutDlg::CHTMAboutDlg(HWND parent) : CHTMDialog(L"HVSDIALOGS_HTM_ABOUT", parent) {}

std::wstring ReleaseNotesLink(const std::wstring& path) {
  return L"<a href='" + escapeXmlText(path) + L"'>" + escapeXmlText(NTxtRes::GetText(L"DlgAbout/ReleaseNotes")) +
         L"</a>";
}

void CHTMAboutDlg::OnInitDialog() {
  ElementById(L"txtVersionHead").SetText(NTxtRes::GetText(L"DlgAbout/VersionHead"));
  ElementById(L"txtProgVersion").SetText(filled(L"DlgAbout/ProgramVersion", ProgramVersion()));
  ElementById(L"txtSODVersion").SetText(filled(L"DlgAbout/LibraryVersion", LibraryVersion()));
  ElementById(L"txtProgRelNotes").SetHtml(ReleaseNotesLink(ProgramReleaseNotes()));
  ElementById(L"txtSodRelNotes").SetHtml(ReleaseNotesLink(LibraryReleaseNotes()));
}

}  // namespace kvt1
