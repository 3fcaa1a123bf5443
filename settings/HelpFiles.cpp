#include "settings/HelpFiles.h"

#include <cstdio>

#include "host/identity/ProductIdentity.h"
#include "platform/File.h"
#include "platform/FilePath.h"
#include "platform/HtmlHelp.h"
#include "platform/MessageBox.h"
#include "settings/SettingNumbers.h"
#include "settings/SettingsStore.h"
#include "text/MessageDescription.h"
#include "text/Placeholders.h"

namespace kvt1 {
namespace {

bool fileExists(const std::wstring& path) {
  std::FILE* file = platform::openFile(path, "rb");
  if (file == nullptr) return false;
  std::fclose(file);
  return true;
}

}  // namespace

std::wstring helpMapFile(SettingsStore& settings) {
  std::wstring programPath;
  settings.readString(kSettingProgramPath, programPath);
  return platform::joinPath(programPath, productName(kProductNumber) + L"HelpID.csv");
}

std::wstring productHelpFile(SettingsStore& settings) {
  return platform::joinPath(settings.helpFolder(), productName(kProductNumber) + L".chm");
}

std::wstring installationHelpFile(SettingsStore& settings) {
  return platform::joinPath(settings.helpFolder(), L"installation.chm");
}

void showHelp(SettingsStore& settings, int id, bool allowInstallationHelp) {
  const bool installation = allowInstallationHelp && id >= 10 && id <= 13;
  const std::wstring file = installation ? installationHelpFile(settings) : productHelpFile(settings);
  if (!fileExists(file)) {
    NTxtRes::CMessageDescription message =
        NTxtRes::BuildMessage(L"MsgHelpFileNotFound", platform::kMbIconWarning, 0, false, true, false, false, false);
    // The number first: a path may itself hold "%d", the number never holds "%".
    NTxtRes::ReplaceInt(message.infoText, id);
    NTxtRes::ReplaceString(message.infoText, file);
    NTxtRes::ShowMessage(message);
    return;
  }
  if (id > 0) {
    if (platform::htmlHelp(nullptr, file, platform::kHhHelpContext, static_cast<std::uintptr_t>(id))) return;
    if (id >= 10100 && id <= 10106 && platform::htmlHelp(nullptr, file, platform::kHhHelpContext, 10100)) return;
  }
  platform::htmlHelp(nullptr, file, platform::kHhDisplayToc, 0);
}

}  // namespace kvt1
