#pragma once
// The module's application object: receives the host's messages, sets the
// module up and down, defines the LISP functions per document and offers the
// start command "KVT1".
#include <memory>
#include <string>

#include "host/HtmlEngineSetup.h"
#include "host/LispServices.h"
#include "host/ModulePath.h"
#include "host/arx/Arx.h"
#include "htmlui/dialogs/CKVTSplash.h"
#include "platform/DynamicLibrary.h"
#include "settings/CHelpTopicMap.h"

namespace kvt1 {

extern const wchar_t kCommandGroup[];

class CArxHostApp : public AcRxArxApp {
 public:
  CArxHostApp();

  AcRx::AppRetCode On_kInitAppMsg(void* pkt) override;
  AcRx::AppRetCode On_kUnloadAppMsg(void* pkt) override;
  AcRx::AppRetCode On_kLoadDwgMsg(void* pkt) override;
  AcRx::AppRetCode On_kUnloadDwgMsg(void* pkt) override;
  AcRx::AppRetCode On_kInvkSubrMsg(void* pkt) override;
  void RegisterServerComponents() override {}

  // The command "KVT1": queues the LISP application's menu, once per load.
  void startMenu();

 private:
  // The image that the text store reads: the language module, else the module.
  void* languageResources() const;
  void registerCommand();
  void removeCommandGroup();
  void queueStartFile();
  void queueExpression(std::wstring expression);
  void destroySplash();

  ModuleLocation m_location;
  bool m_menuStarted = false;
  platform::DynamicLibrary m_htmlEngine;
  HtmlEngineSetup m_htmlEngineSetup;
  platform::DynamicLibrary m_languageModule;
  CHelpTopicMap m_helpMap;
  CLispServices m_services;
  std::unique_ptr<CKVTSplash> m_splash;
};

// The single application object of the module.
CArxHostApp& theApp();

}  // namespace kvt1
