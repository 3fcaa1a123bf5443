#include "host/ResourceScope.h"

#include "platform/Resources.h"

namespace kvt1 {

ResourceScope::ResourceScope(HINSTANCE instance, void* languageResources) : previous_(platform::resourceModule()) {
#if KVT1_ARX_RELEASE < 22
  // Hosts before release 22 keep the resource stack that their own dialogs use.
  acDocManager->pushResourceHandle(instance);
#else
  (void)instance;
#endif
  platform::setResourceModule(languageResources);
}

ResourceScope::~ResourceScope() {
  platform::setResourceModule(previous_);
#if KVT1_ARX_RELEASE < 22
  acDocManager->popResourceHandle();
#endif
}

}  // namespace kvt1
