#include "host/UserDataFolder.h"

#include "host/ProductIdentity.h"
#include "platform/File.h"
#include "platform/KnownFolders.h"
#include "settings/CSettingsStore.h"
#include "settings/SettingNumbers.h"

namespace kvt1 {

std::optional<std::wstring> ensureUserDataFolder(CSettingsStore& settings) {
  std::wstring folder;
  const int read = settings.readString(kSettingUserDataPath, folder);
  if (read == -1) return std::nullopt;  // there, but no text: the user's, left alone
  if (read != 0 || folder.empty()) {
    const std::wstring appData = platform::roamingAppDataFolder();
    if (appData.empty()) return std::nullopt;
    folder = appData + L"\\Halvorn Systems\\" + productName(kProductNumber) + L" 1";
    if (settings.writeString(kSettingUserDataPath, folder) != 0) return std::nullopt;
  }
  if (!platform::createFolders(folder)) return std::nullopt;
  return folder;
}

}  // namespace kvt1
