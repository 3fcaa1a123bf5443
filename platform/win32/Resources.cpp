#include "platform/Resources.h"

#include <windows.h>

namespace kvt1::platform {
namespace {

LPCWSTR idOf(const ResourceId& id) { return id.isNumber() ? MAKEINTRESOURCEW(id.number()) : id.name().c_str(); }

}  // namespace

std::optional<ResourceData> findResource(void* image, const ResourceId& type, const ResourceId& name) {
  HMODULE module = static_cast<HMODULE>(image);
  HRSRC found = FindResourceW(module, idOf(name), idOf(type));
  if (found == nullptr) return std::nullopt;
  HGLOBAL loaded = LoadResource(module, found);
  const void* bytes = loaded ? LockResource(loaded) : nullptr;
  if (bytes == nullptr) return std::nullopt;
  return ResourceData{static_cast<const unsigned char*>(bytes), SizeofResource(module, found)};
}

}  // namespace kvt1::platform
