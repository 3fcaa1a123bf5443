#pragma once
// The resources that a Linux image carries in place of Windows resources: a
// table generated at build time. The symbol is exported, so that the table of
// any loaded image (the module, its language module) can be found from the
// image's handle.
#include <cstddef>

namespace kvt1::platform {

struct EmbeddedResource {
  unsigned short typeNumber;  // used when typeName is null
  const wchar_t* typeName;
  unsigned short nameNumber;  // used when name is null
  const wchar_t* name;
  const unsigned char* bytes;
  std::size_t size;
};

struct EmbeddedResourceTable {
  const EmbeddedResource* entries;
  std::size_t count;
};

}  // namespace kvt1::platform

#define KVT1_EMBEDDED_RESOURCES "kvt1EmbeddedResources"
