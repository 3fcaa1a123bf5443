#include "platform/Resources.h"

#include <dlfcn.h>

#include "platform/posix/EmbeddedResources.h"

namespace kvt1::platform {
namespace {

// The table exported by the image whose load address is image. dlsym on the
// image's own handle may also search the libraries it depends on, so the hit
// is checked to lie in the image itself.
const EmbeddedResourceTable* tableOf(void* image) {
  Dl_info info{};
  if (image == nullptr || dladdr(image, &info) == 0 || info.dli_fbase != image) return nullptr;
  void* handle = info.dli_fname ? dlopen(info.dli_fname, RTLD_LAZY | RTLD_NOLOAD) : nullptr;
  if (handle == nullptr) handle = dlopen(nullptr, RTLD_LAZY);  // the main program
  if (handle == nullptr) return nullptr;
  void* symbol = dlsym(handle, KVT1_EMBEDDED_RESOURCES);
  dlclose(handle);
  Dl_info owner{};
  if (symbol == nullptr || dladdr(symbol, &owner) == 0 || owner.dli_fbase != image) return nullptr;
  return static_cast<const EmbeddedResourceTable*>(symbol);
}

}  // namespace

std::optional<ResourceData> findResource(void* image, const ResourceId& type, const ResourceId& name) {
  const EmbeddedResourceTable* table = tableOf(image);
  if (table == nullptr) return std::nullopt;
  for (std::size_t i = 0; i < table->count; ++i) {
    const EmbeddedResource& entry = table->entries[i];
    if (type.matches(entry.typeNumber, entry.typeName) && name.matches(entry.nameNumber, entry.name)) {
      return ResourceData{entry.bytes, entry.size};
    }
  }
  return std::nullopt;
}

}  // namespace kvt1::platform
