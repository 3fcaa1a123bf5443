#include "htmlui/dialogs/CKVTAbout.h"

#include "host/identity/ModuleVersion.h"
#include "host/identity/ProductIdentity.h"
#include "platform/FilePath.h"
#include "settings/SettingNumbers.h"
#include "settings/SettingsStore.h"

namespace kvt1 {
namespace {

std::wstring installationFile(int folderSetting, const wchar_t* name) {
  std::wstring folder;
  theSettings().readString(folderSetting, folder);
  return platform::joinPath(folder, name);
}

}  // namespace

const wchar_t kReleaseNotesFile[] = L"ReleaseNotes.html";

CKVTAbout::CKVTAbout(HWND parent) : CHTMDialogKVT(parent) {}

std::wstring CKVTAbout::ProgramVersion() { return moduleVersionNumber(VersionNumber::File); }

std::wstring CKVTAbout::LibraryVersion() {
  for (const auto& [name, value] : versionAttributes()) {
    if (name == L"KVTDataVer") return value;
  }
  return {};
}

std::wstring CKVTAbout::ProgramReleaseNotes() { return installationFile(kSettingProgramPath, kReleaseNotesFile); }

std::wstring CKVTAbout::LibraryReleaseNotes() { return installationFile(kSettingDataPath, kReleaseNotesFile); }

}  // namespace kvt1
