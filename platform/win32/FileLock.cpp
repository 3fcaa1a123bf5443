#include "platform/FileLock.h"

#include <windows.h>

namespace kvt1::platform {
namespace {

// Tries again this often while another holder has the lock.
constexpr unsigned kRetryMs = 10;

bool lockWhole(HANDLE file) {
  OVERLAPPED at{};
  return LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, MAXDWORD, MAXDWORD, &at) != 0;
}

}  // namespace

std::optional<FileLock> FileLock::acquire(const std::wstring& path, unsigned timeoutMs) {
  const HANDLE file =
      CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                  nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return std::nullopt;
  // Locks belong to the handle, so two openings in one process exclude each other too.
  for (unsigned waited = 0;; waited += kRetryMs) {
    if (lockWhole(file)) return FileLock(file);
    if (waited >= timeoutMs) break;
    Sleep(kRetryMs);
  }
  CloseHandle(file);
  return std::nullopt;
}

void FileLock::release() {
  if (handle_ == nullptr) return;
  OVERLAPPED at{};
  UnlockFileEx(handle_, 0, MAXDWORD, MAXDWORD, &at);
  CloseHandle(handle_);
  handle_ = nullptr;
}

}  // namespace kvt1::platform
