#include "online/ModuleUpdateCheck.h"

#include "host/ModuleVersion.h"
#include "online/AutomaticUpdateCheck.h"
#include "online/CHvAutomaticUpdateManager.h"
#include "online/CHvHttpClientManager.h"
#include "online/CCheckForUpdateView.h"
#include "online/CHvCheckForUpdatePresenter.h"
#include "settings/CSettingsStore.h"
#include "settings/ProductKey.h"
#include "settings/SettingNumbers.h"

namespace kvt1 {

void loadUpdateServices(const std::wstring& moduleFolder) {
  std::wstring folder = moduleFolder;
  while (!folder.empty() && (folder.back() == L'\\' || folder.back() == L'/')) folder.pop_back();
  Hv::Http::CHvHttpClientManager::Instance()->Load(folder);
  // Each initialisation reads the settings afresh from their defaults.
  Hv::Http::CHvAutomaticUpdateManager* updates = Hv::Http::CHvAutomaticUpdateManager::Instance();
  *updates = Hv::Http::CHvAutomaticUpdateManager();
  updates->LoadSettings(productKeyPath());
}

std::wstring updateLanguage(CSettingsStore& settings) {
  std::wstring language;
  const bool usable = settings.readString(kSettingLanguage, language) == 0 && language.size() == 3 &&
                      language.find_first_not_of(L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz") ==
                          std::wstring::npos;
  return usable ? language : L"ENG";
}

void runModuleUpdateCheck(bool manual, CSettingsStore& settings, HWND parent) {
  Hv::Http::UpdateCheckRequest request;
  request.manual = manual;
  request.version = moduleVersionNumber(VersionNumber::Product);
  request.language = updateLanguage(settings);
  CCheckForUpdateView view(parent);
  Hv::Http::CHvCheckForUpdatePresenter presenter(view, Hv::Http::CHvAutomaticUpdateManager::Instance());
  view.SetPresenter(presenter);
  Hv::Http::RunAutomaticUpdateCheck(presenter, request);
}

void releaseUpdateServices() { Hv::Http::CHvHttpClientManager::Release(); }

}  // namespace kvt1
