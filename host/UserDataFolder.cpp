#include "host/UserDataFolder.h"

#include "host/ProductIdentity.h"
#include "platform/File.h"
#include "platform/KnownFolders.h"
#include "settings/CSettingsStore.h"
#include "settings/SettingNumbers.h"

namespace kvt1 {

void ensureUserDataFolder(CSettingsStore& settings) {
  std::wstring folder;
  if (settings.readString(kSettingUserDataPath, folder) != 0 || folder.empty()) {
    const std::wstring appData = platform::roamingAppDataFolder();
    if (appData.empty()) return;
    folder = appData + L"\\Halvorn Systems\\" + productName(kProductNumber) + L" 1";
    if (settings.writeString(kSettingUserDataPath, folder) != 0) return;
  }
  platform::createFolders(folder);
}

}  // namespace kvt1
