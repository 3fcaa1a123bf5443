#include "platform/FileLock.h"

#include <utility>

namespace kvt1::platform {

FileLock::FileLock(FileLock&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
  if (this != &other) {
    release();
    handle_ = std::exchange(other.handle_, nullptr);
  }
  return *this;
}

FileLock::~FileLock() { release(); }

}  // namespace kvt1::platform
