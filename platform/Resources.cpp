#include "platform/Resources.h"

#include "platform/CaseFolding.h"

namespace kvt1::platform {
namespace {
void* g_resourceModule = nullptr;
}  // namespace

bool ResourceId::matches(unsigned short number, const wchar_t* name) const {
  if (isNumber()) return name == nullptr && number == number_;
  if (name == nullptr) return false;
  return equalsIgnoringCase(name_, name);
}

void* resourceModule() { return g_resourceModule; }
void setResourceModule(void* image) { g_resourceModule = image; }

}  // namespace kvt1::platform
