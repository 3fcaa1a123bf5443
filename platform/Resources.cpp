#include "platform/Resources.h"

#include <cwctype>

namespace kvt1::platform {
namespace {
void* g_resourceModule = nullptr;
}  // namespace

bool ResourceId::matches(unsigned short number, const wchar_t* name) const {
  if (isNumber()) return name == nullptr && number == number_;
  if (name == nullptr) return false;
  std::size_t i = 0;
  for (; i < name_.size() && name[i] != L'\0'; ++i) {
    if (std::towupper(name_[i]) != std::towupper(name[i])) return false;
  }
  return i == name_.size() && name[i] == L'\0';
}

void* resourceModule() { return g_resourceModule; }
void setResourceModule(void* image) { g_resourceModule = image; }

}  // namespace kvt1::platform
