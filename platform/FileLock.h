#pragma once
// A lock that other processes respect, held on a lock file while the object
// lives: the read-merge-write of a file that several host processes of one
// user share (their usage report) runs under it, so that no process writes
// over what another just saved. The lock file stays; removing it would race.
#include <optional>
#include <string>

namespace kvt1::platform {

class FileLock {
 public:
  // Waits up to timeoutMs for the lock on the file at path (created when
  // missing). Nothing when the file cannot be made or another holder keeps
  // the lock longer.
  static std::optional<FileLock> acquire(const std::wstring& path, unsigned timeoutMs);

  FileLock(FileLock&& other) noexcept;
  FileLock& operator=(FileLock&& other) noexcept;
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  ~FileLock();

 private:
  explicit FileLock(void* handle) : handle_(handle) {}
  void release();

  void* handle_ = nullptr;  // the open lock file: a HANDLE on Windows, a descriptor elsewhere
};

}  // namespace kvt1::platform
