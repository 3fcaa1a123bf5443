#pragma once
// Makes the module's own resources current for the life of the object and
// restores the previous ones afterwards, on every path out of a handler.
#include "host/arx/Arx.h"

namespace kvt1 {

// The module whose resources (pages, texts) lookups use now; null outside a scope.
HINSTANCE currentResourceModule();

class ResourceScope {
 public:
  explicit ResourceScope(HINSTANCE instance);
  ~ResourceScope();
  ResourceScope(const ResourceScope&) = delete;
  ResourceScope& operator=(const ResourceScope&) = delete;

 private:
  HINSTANCE previous_;
};

}  // namespace kvt1
