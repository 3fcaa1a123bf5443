#pragma once
// The host framework's application base: one virtual handler per application
// message, in the host's message order, so that message m (1..15) goes to
// handler slot m - 1. Handlers that a module does not override answer kRetOK.
#include "host/arx/ArxTypes.h"

class AcRxDbxApp {
 public:
  AcRxDbxApp() = default;
  virtual ~AcRxDbxApp() = default;
  AcRxDbxApp(const AcRxDbxApp&) = delete;
  AcRxDbxApp& operator=(const AcRxDbxApp&) = delete;

  virtual AcRx::AppRetCode On_kInitAppMsg(void* pkt) {
    RegisterServerComponents();
    return AcRx::kRetOK;
  }
  virtual AcRx::AppRetCode On_kUnloadAppMsg(void* pkt) { return AcRx::kRetOK; }
  virtual AcRx::AppRetCode On_kLoadDwgMsg(void* pkt) { return AcRx::kRetOK; }
  virtual AcRx::AppRetCode On_kUnloadDwgMsg(void* pkt) { return AcRx::kRetOK; }
  virtual AcRx::AppRetCode On_kInvkSubrMsg(void* pkt) { return AcRx::kRetOK; }
  virtual AcRx::AppRetCode On_kCfgMsg(void* pkt) { return AcRx::kRetOK; }
  virtual AcRx::AppRetCode On_kEndMsg(void* pkt) { return AcRx::kRetOK; }
  virtual AcRx::AppRetCode On_kQuitMsg(void* pkt) { return AcRx::kRetOK; }
  virtual AcRx::AppRetCode On_kSaveMsg(void* pkt) { return AcRx::kRetOK; }
  virtual AcRx::AppRetCode On_kDependencyMsg(void* pkt) { return AcRx::kRetOK; }
  virtual AcRx::AppRetCode On_kNoDependencyMsg(void* pkt) { return AcRx::kRetOK; }
  virtual AcRx::AppRetCode On_kOleUnloadAppMsg(void* pkt) { return AcRx::kRetOK; }
  virtual AcRx::AppRetCode On_kPreQuitMsg(void* pkt) { return AcRx::kRetOK; }
  virtual AcRx::AppRetCode On_kInitDialogMsg(void* pkt) { return AcRx::kRetOK; }
  virtual AcRx::AppRetCode On_kEndDialogMsg(void* pkt) { return AcRx::kRetOK; }
  virtual void RegisterServerComponents() = 0;

  // Routes message m in 1..15 to its handler; other codes answer kRetOK.
  AcRx::AppRetCode dispatchMessage(AcRx::AppMsgCode msg, void* pkt) {
    typedef AcRx::AppRetCode (AcRxDbxApp::*Handler)(void*);
    static const Handler kHandlers[] = {
        &AcRxDbxApp::On_kInitAppMsg,    &AcRxDbxApp::On_kUnloadAppMsg,    &AcRxDbxApp::On_kLoadDwgMsg,
        &AcRxDbxApp::On_kUnloadDwgMsg,  &AcRxDbxApp::On_kInvkSubrMsg,     &AcRxDbxApp::On_kCfgMsg,
        &AcRxDbxApp::On_kEndMsg,        &AcRxDbxApp::On_kQuitMsg,         &AcRxDbxApp::On_kSaveMsg,
        &AcRxDbxApp::On_kDependencyMsg, &AcRxDbxApp::On_kNoDependencyMsg, &AcRxDbxApp::On_kOleUnloadAppMsg,
        &AcRxDbxApp::On_kPreQuitMsg,    &AcRxDbxApp::On_kInitDialogMsg,   &AcRxDbxApp::On_kEndDialogMsg};
    if (msg < AcRx::kInitAppMsg || msg > AcRx::kEndDialogMsg) return AcRx::kRetOK;
    return (this->*kHandlers[msg - 1])(pkt);
  }

  HINSTANCE m_hdllInstance = nullptr;
  bool m_bUnlocked = true;
  bool m_bMDIAware = true;
};

class AcRxArxApp : public AcRxDbxApp {};
