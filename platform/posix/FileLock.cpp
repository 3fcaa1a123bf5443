#include "platform/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdint>

#include "platform/posix/NativePath.h"

namespace kvt1::platform {
namespace {

// Tries again this often while another holder has the lock.
constexpr unsigned kRetryMs = 10;

// The handle is the descriptor plus one, so that descriptor 0 is not taken for "no lock".
void* asHandle(int descriptor) { return reinterpret_cast<void*>(static_cast<std::intptr_t>(descriptor) + 1); }
int asDescriptor(void* handle) { return static_cast<int>(reinterpret_cast<std::intptr_t>(handle) - 1); }

}  // namespace

std::optional<FileLock> FileLock::acquire(const std::wstring& path, unsigned timeoutMs) {
  const int descriptor = ::open(nativePath(path).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (descriptor < 0) return std::nullopt;
  // flock locks belong to the open file, so two openings in one process exclude each other too.
  for (unsigned waited = 0;; waited += kRetryMs) {
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0) return FileLock(asHandle(descriptor));
    if (waited >= timeoutMs) break;
    ::usleep(kRetryMs * 1000);
  }
  ::close(descriptor);
  return std::nullopt;
}

void FileLock::release() {
  if (handle_ == nullptr) return;
  const int descriptor = asDescriptor(handle_);
  ::flock(descriptor, LOCK_UN);
  ::close(descriptor);
  handle_ = nullptr;
}

}  // namespace kvt1::platform
