// The module's two exports: the host's message entry point and its interface
// version query.
#include "host/CArxHostApp.h"
#include "platform/Export.h"

KVT1_EXPORT AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt) {
  return kvt1::theApp().dispatchMessage(msg, pkt);
}

#ifndef KVT1_ARX_SDK
// The host SDK's own library provides this export when the build uses it;
// otherwise the module reports the host release it was built for.
KVT1_EXPORT int acrxGetApiVersion() { return KVT1_ARX_RELEASE; }
#endif
