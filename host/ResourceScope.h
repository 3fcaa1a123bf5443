#pragma once
// Makes the module's resources current for the life of the object and
// restores the previous ones afterwards, on every path out of a handler: the
// module's instance on the host's resource stack (hosts that keep one), and
// the module's language resources for the text store.
#include "host/arx/Arx.h"

namespace kvt1 {

class ResourceScope {
 public:
  ResourceScope(HINSTANCE instance, void* languageResources);
  ~ResourceScope();
  ResourceScope(const ResourceScope&) = delete;
  ResourceScope& operator=(const ResourceScope&) = delete;

 private:
  void* previous_;
};

}  // namespace kvt1
