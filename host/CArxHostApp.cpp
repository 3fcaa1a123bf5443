#include "host/CArxHostApp.h"

#include "host/LanguageModule.h"
#include "host/LispFunctions.h"
#include "host/ResourceScope.h"
#include "host/SupportPath.h"
#include "host/UserDataFolder.h"
#include "host/identity/ProductIdentity.h"
#include "online/ModuleUpdateCheck.h"
#include "online/usage/dialog/ModuleUsageReporting.h"
#include "platform/FilePath.h"
#include "platform/ThisModule.h"
#include "settings/HelpFiles.h"
#include "settings/SettingNumbers.h"
#include "settings/SettingsStore.h"
#include "text/MessageDescription.h"
#include "text/TextResources.h"

namespace kvt1 {

const wchar_t kCommandGroup[] = L"KVT1_COMMANDS";

namespace {

AcEdCommandStack* commandStack() {
  AcRxDictionary* registry = acrxSysRegistry();
  return registry ? AcEdCommandStack::cast(registry->at(ACRX_COMMAND_DOCK)) : nullptr;
}

void startMenuCommand() { theApp().startMenu(); }

}  // namespace

CArxHostApp::CArxHostApp() : m_services(m_helpMap, theSettings()) {}

CArxHostApp& theApp() {
  static CArxHostApp app;
  return app;
}

AcRx::AppRetCode CArxHostApp::On_kInitAppMsg(void* pkt) {
  m_hdllInstance = static_cast<HINSTANCE>(platform::thisModuleHandle());
  const std::wstring modulePath = platform::thisModulePath();
  // The texts live in the language module, which the resource scope makes
  // current; without it every text shows its miss message.
  m_languageModule = loadLanguageModule(splitModulePath(modulePath), theSettings());
  ResourceScope resources(m_hdllInstance, languageResources());
  NTxtRes::SetApplicationTitle(kProductName);

  // A missing engine library is not an error here; the dialogs report it when they open.
  m_htmlEngine =
      platform::DynamicLibrary::load(platform::joinPath(splitModulePath(modulePath).folder, L"htmlayout.dll"));
  m_htmlEngineSetup.start(m_htmlEngine);

  AcRxArxApp::On_kInitAppMsg(pkt);
  SettingsStore& settings = theSettings();
  const bool userDataFolder = ensureUserDataFolder(settings);
  registerCommand();
  if (!m_splash) m_splash = std::make_unique<CKVTSplash>(adsw_acadMainWnd());
  m_services.setSplash(m_splash.get());
  m_location = splitModulePath(modulePath);

  // Without a user data folder the module cannot work; the host unloads it.
  if (!userDataFolder) return AcRx::kRetError;

  m_helpMap.load(helpMapFile(settings));
  // Modeless, on its own timer: the start goes on while the splash shows.
  m_splash->ShowAtStartUp();
  loadUpdateServices(m_location.folder);
  cleanSupportPath(kEarlierInstallationMarker);
  startUsageReporting(adsw_acadMainWnd());
  // After the usage question, whose modal loop would otherwise start it: the
  // check's notification never comes up over the question.
  startModuleUpdateCheck(settings, adsw_acadMainWnd(), [this](const std::function<void()>& work) {
    ResourceScope moduleResources(m_hdllInstance, languageResources());
    work();
  });
  return AcRx::kRetOK;
}

AcRx::AppRetCode CArxHostApp::On_kUnloadAppMsg(void* pkt) {
  // The host's shutdown never waits on the network.
  stopNetworkTransfers();
  {
    ResourceScope resources(m_hdllInstance, languageResources());
    // The engine goes before the library that it calls.
    m_htmlEngineSetup.stop();
    m_htmlEngine.release();
    AcRxArxApp::On_kUnloadAppMsg(pkt);
    destroySplash();
    removeCommandGroup();
    finishUsageReporting();
    NTxtRes::ReleaseTextDocument();
    releaseUpdateServices();
  }
  m_languageModule.release();
  return AcRx::kRetOK;
}

AcRx::AppRetCode CArxHostApp::On_kLoadDwgMsg(void* pkt) {
  if (m_menuStarted) queueStartFile();
  return defineLispFunctions() ? AcRx::kRetOK : AcRx::kRetError;
}

AcRx::AppRetCode CArxHostApp::On_kUnloadDwgMsg(void* pkt) {
  undefineLispFunctions();
  return AcRx::kRetOK;
}

AcRx::AppRetCode CArxHostApp::On_kInvkSubrMsg(void* pkt) {
  ResourceScope resources(m_hdllInstance, languageResources());
  dispatchLispCall(m_services);
  return AcRx::kRetOK;
}

void CArxHostApp::startMenu() {
  m_helpMap.load(helpMapFile(theSettings()));
  if (m_menuStarted) return;
  m_menuStarted = true;
  const std::wstring folder = doubleBackslashes(m_location.folder);
  queueExpression(L"(load \"" + folder + L"kv_Menu.vlx\")");
  queueExpression(L"(kv_Menu-StartFromExe \"" + folder + L"\")");
  queueStartFile();
}

void* CArxHostApp::languageResources() const {
  return m_languageModule.isLoaded() ? m_languageModule.image() : static_cast<void*>(m_hdllInstance);
}

void CArxHostApp::registerCommand() {
  if (AcEdCommandStack* stack = commandStack()) {
    stack->addCommand(kCommandGroup, kProductCode, kProductCode, ACRX_CMD_MODAL, &startMenuCommand, nullptr, -1,
                      m_hdllInstance, nullptr);
  }
}

void CArxHostApp::removeCommandGroup() {
  if (AcEdCommandStack* stack = commandStack()) stack->removeGroup(kCommandGroup);
}

void CArxHostApp::queueStartFile() {
  queueExpression(L"(load \"" + doubleBackslashes(m_location.folder) + L"kv_start.vlx\")");
}

void CArxHostApp::queueExpression(std::wstring expression) { ads_queueexpr(expression.data()); }

void CArxHostApp::destroySplash() {
  m_services.setSplash(nullptr);
  if (m_splash) m_splash->StopTimedDisplay();
  m_splash.reset();
}

}  // namespace kvt1
