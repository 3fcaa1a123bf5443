#include "platform/DynamicLibrary.h"

#include <utility>

namespace kvt1::platform {

DynamicLibrary::DynamicLibrary(DynamicLibrary&& other) noexcept
    : handle_(std::exchange(other.handle_, nullptr)), error_(std::move(other.error_)) {}

DynamicLibrary& DynamicLibrary::operator=(DynamicLibrary&& other) noexcept {
  if (this != &other) {
    release();
    handle_ = std::exchange(other.handle_, nullptr);
    error_ = std::move(other.error_);
  }
  return *this;
}

DynamicLibrary::~DynamicLibrary() { release(); }

}  // namespace kvt1::platform
