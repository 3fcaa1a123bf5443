#include "online/ModuleUpdateCheck.h"

#include "host/identity/ModuleVersion.h"
#include "host/identity/ProductIdentity.h"
#include "online/AutomaticUpdateCheck.h"
#include "online/BackgroundUpdateFetch.h"
#include "online/CCheckForUpdateView.h"
#include "online/CHvAutomaticUpdateManager.h"
#include "online/CHvCheckForUpdatePresenter.h"
#include "online/CHvHttpClientManager.h"
#include "settings/ProductKey.h"
#include "settings/SettingNumbers.h"
#include "settings/SettingsStore.h"

namespace kvt1 {
namespace {

using Hv::Http::BackgroundUpdateFetch;
using Hv::Http::CHvAutomaticUpdateManager;
using Hv::Http::CHvAutomaticUpdateResult;
using Hv::Http::CHvCheckForUpdatePresenter;

// The start-up check of this load, until its answer was shown or the module unloads.
BackgroundUpdateFetch& startUpFetch() {
  static BackgroundUpdateFetch fetch;
  return fetch;
}

Hv::Http::UpdateCheckRequest moduleRequest(bool manual, SettingsStore& settings) {
  Hv::Http::UpdateCheckRequest request;
  request.manual = manual;
  request.version = moduleVersionNumber(VersionNumber::Product);
  request.language = updateLanguage(settings);
  return request;
}

// The check with its notification over parent, its answers fetched by fetch.
void runCheck(const Hv::Http::UpdateCheckRequest& request, HWND parent, CHvCheckForUpdatePresenter::Fetch fetch) {
  CCheckForUpdateView view(parent);
  CHvCheckForUpdatePresenter presenter(view, CHvAutomaticUpdateManager::Instance());
  presenter.SetFetch(std::move(fetch));
  view.SetPresenter(presenter);
  Hv::Http::RunAutomaticUpdateCheck(presenter, request);
}

}  // namespace

void loadUpdateServices(const std::wstring& moduleFolder) {
  Hv::Http::CHvHttpClientManager::Instance()->Load(moduleFolder);
  // Each initialisation reads the settings afresh from their defaults.
  Hv::Http::CHvAutomaticUpdateManager* updates = Hv::Http::CHvAutomaticUpdateManager::Instance();
  *updates = Hv::Http::CHvAutomaticUpdateManager();
  updates->LoadSettings(productKeyPath());
}

std::wstring updateLanguage(SettingsStore& settings) {
  std::wstring language;
  const bool usable =
      settings.readString(kSettingLanguage, language) == 0 && language.size() == 3 &&
      language.find_first_not_of(L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz") == std::wstring::npos;
  return usable ? language : L"ENG";
}

void startModuleUpdateCheck(SettingsStore& settings, HWND parent, ModuleScope scope) {
  const CHvAutomaticUpdateManager* manager = CHvAutomaticUpdateManager::Instance();
  if (!manager->StartUpChecksAllowed()) return;
  const Hv::Http::UpdateCheckRequest request = moduleRequest(false, settings);
  startUpFetch().start(
      [manager, request] { return manager->CheckForUpdates(kProductNumber, request.version, request.language); },
      [request, parent, scope = std::move(scope)](const CHvAutomaticUpdateResult& answer) {
        scope([&] {
          runCheck(request, parent,
                   [&answer](std::uint32_t, const std::wstring&, const std::wstring&) { return answer; });
        });
      });
}

void runModuleUpdateCheck(SettingsStore& settings, HWND parent) {
  runCheck(moduleRequest(true, settings), parent,
           [](std::uint32_t product, const std::wstring& version, const std::wstring& language) {
             return BackgroundUpdateFetch::fetchServingMessages(
                 [&] { return CHvAutomaticUpdateManager::Instance()->CheckForUpdates(product, version, language); });
           });
}

void stopNetworkTransfers() {
  Hv::Http::CHvHttpClientManager::Instance()->AbortTransfers();
  startUpFetch().stop();
}

void releaseUpdateServices() { Hv::Http::CHvHttpClientManager::Release(); }

}  // namespace kvt1
