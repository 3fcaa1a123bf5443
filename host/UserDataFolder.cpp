#include "host/UserDataFolder.h"

#include "host/identity/ProductIdentity.h"
#include "platform/File.h"
#include "platform/KnownFolders.h"
#include "settings/SettingNumbers.h"
#include "settings/SettingsStore.h"

namespace kvt1 {

bool ensureUserDataFolder(SettingsStore& settings) {
  std::wstring folder;
  const int read = settings.readString(kSettingUserDataPath, folder);
  if (read == -1) return false;  // there, but no text: the user's, left alone
  if (read != 0 || folder.empty()) {
    const std::wstring appData = platform::roamingAppDataFolder();
    if (appData.empty()) return false;
    folder = appData + L"\\Halvorn Systems\\" + productName(kProductNumber) + L" 1";
    if (settings.writeString(kSettingUserDataPath, folder) != 0) return false;
  }
  return platform::createFolders(folder);
}

}  // namespace kvt1
