#include "host/ResourceScope.h"

namespace kvt1 {
namespace {
HINSTANCE g_current = nullptr;
}  // namespace

HINSTANCE currentResourceModule() { return g_current; }

ResourceScope::ResourceScope(HINSTANCE instance) : previous_(g_current) {
#if KVT1_ARX_RELEASE < 22
  // Hosts before release 22 keep the resource stack that their own dialogs use.
  acDocManager->pushResourceHandle(instance);
#endif
  g_current = instance;
}

ResourceScope::~ResourceScope() {
  g_current = previous_;
#if KVT1_ARX_RELEASE < 22
  acDocManager->popResourceHandle();
#endif
}

}  // namespace kvt1
