#pragma once
// The files of the registry store: read whole, recognised again by their
// stamp, and replaced atomically.
#include <sys/types.h>

#include <ctime>
#include <string>

namespace kvt1::platform {

// Which version of a file was read or written. A save replaces the file by a
// new one, so the inode alone already tells two saves apart.
struct RegistryFileStamp {
  bool exists = false;
  dev_t device = 0;
  ino_t inode = 0;
  off_t size = 0;
  std::timespec modified{};

  bool operator==(const RegistryFileStamp& other) const;
  bool operator!=(const RegistryFileStamp& other) const { return !(*this == other); }
};

RegistryFileStamp registryFileStamp(const std::string& path);

// The largest registry file read: the product's keys take a few kilobytes.
constexpr off_t kMaxRegistryFileBytes = 16 << 20;

// The whole file and its stamp. A missing file reads as empty with
// stamp.exists false; 0 or the errno of the failure (EFBIG for a file
// beyond kMaxRegistryFileBytes).
int readRegistryFile(const std::string& path, std::string& bytes, RegistryFileStamp& stamp);

// Writes a temporary file in the same folder (created when missing), flushes
// it to disk and renames it over path, so the file is always either the old
// or the new one. 0 and the new stamp, or the errno of the failure with the
// old file untouched and no temporary file left.
int replaceRegistryFile(const std::string& path, const std::string& bytes, RegistryFileStamp& stamp);

}  // namespace kvt1::platform
