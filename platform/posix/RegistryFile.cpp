#include "platform/posix/RegistryFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

#include "platform/File.h"
#include "platform/SaveFaults.h"
#include "platform/Unicode.h"

namespace kvt1::platform {
namespace {

RegistryFileStamp stampOf(const struct stat& status) {
  RegistryFileStamp stamp;
  stamp.exists = true;
  stamp.device = status.st_dev;
  stamp.inode = status.st_ino;
  stamp.size = status.st_size;
  stamp.modified = status.st_mtim;
  return stamp;
}

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? std::string(".") : path.substr(0, slash == 0 ? 1 : slash);
}

bool writeAll(int descriptor, const std::string& bytes) {
  if (saveFaultFires(SaveStep::Write)) {
    (void)!::write(descriptor, bytes.data(), bytes.size() / 2);
    errno = ENOSPC;
    return false;
  }
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t written = ::write(descriptor, bytes.data() + done, bytes.size() - done);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    done += static_cast<std::size_t>(written);
  }
  return true;
}

// The rename itself is made durable by flushing the folder.
void syncFolder(const std::string& folder) {
  const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  ::fsync(descriptor);
  ::close(descriptor);
}

}  // namespace

bool RegistryFileStamp::operator==(const RegistryFileStamp& other) const {
  if (exists != other.exists) return false;
  return !exists || (device == other.device && inode == other.inode && size == other.size &&
                     modified.tv_sec == other.modified.tv_sec && modified.tv_nsec == other.modified.tv_nsec);
}

RegistryFileStamp registryFileStamp(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 ? stampOf(status) : RegistryFileStamp{};
}

int readRegistryFile(const std::string& path, std::string& bytes, RegistryFileStamp& stamp) {
  bytes.clear();
  stamp = RegistryFileStamp{};
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return errno == ENOENT ? 0 : errno;
  struct stat status {};
  int failure = ::fstat(descriptor, &status) == 0 ? 0 : errno;
  if (failure == 0 && status.st_size > kMaxRegistryFileBytes) failure = EFBIG;
  std::vector<char> buffer(64 * 1024);
  while (failure == 0) {
    const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) failure = errno;
    if (count <= 0) break;
    bytes.append(buffer.data(), static_cast<std::size_t>(count));
    if (bytes.size() > static_cast<std::size_t>(kMaxRegistryFileBytes)) failure = EFBIG;  // grew while read
  }
  ::close(descriptor);
  if (failure == 0) stamp = stampOf(status);
  return failure;
}

int replaceRegistryFile(const std::string& path, const std::string& bytes, RegistryFileStamp& stamp) {
  const std::string folder = folderOf(path);
  if (!createFolders(fromUtf8(folder))) return errno != 0 ? errno : EACCES;
  std::string temporary = path + ".XXXXXX";
  const int descriptor = ::mkostemp(temporary.data(), O_CLOEXEC);
  if (descriptor < 0) return errno;
  struct stat status {};
  int failure = 0;
  errno = 0;
  if (!writeAll(descriptor, bytes) || saveFaultFires(SaveStep::Flush) || ::fsync(descriptor) != 0 ||
      ::fstat(descriptor, &status) != 0) {
    failure = errno != 0 ? errno : EIO;
  }
  if (::close(descriptor) != 0 && failure == 0) failure = errno;
  if (failure == 0 && saveFaultFires(SaveStep::Replace)) failure = EIO;
  if (failure == 0 && ::rename(temporary.c_str(), path.c_str()) != 0) failure = errno;
  if (failure != 0) {
    ::unlink(temporary.c_str());
    return failure;
  }
  syncFolder(folder);
  stamp = stampOf(status);
  return 0;
}

}  // namespace kvt1::platform
