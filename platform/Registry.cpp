#include "platform/Registry.h"

namespace kvt1::platform {

RegistryKey::RegistryKey(RegistryKey&& other) noexcept : handle_(other.handle_) { other.handle_ = nullptr; }

RegistryKey& RegistryKey::operator=(RegistryKey&& other) noexcept {
  if (this != &other) {
    close();
    handle_ = other.handle_;
    other.handle_ = nullptr;
  }
  return *this;
}

RegistryKey::~RegistryKey() { close(); }

}  // namespace kvt1::platform
