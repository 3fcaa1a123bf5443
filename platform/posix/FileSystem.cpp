#include "platform/FileSystem.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

#include "platform/SaveFaults.h"
#include "platform/posix/NativePath.h"

namespace kvt1::platform {
namespace {

// The rename itself reaches the disk only with its folder.
void flushFolderOf(const std::string& path) {
  const std::size_t slash = path.find_last_of('/');
  const std::string folder = slash == std::string::npos ? "." : (slash == 0 ? "/" : path.substr(0, slash));
  const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY);
  if (descriptor < 0) return;
  ::fsync(descriptor);
  ::close(descriptor);
}

}  // namespace

bool flushToDisk(std::FILE* file) {
  if (saveFaultFires(SaveStep::Flush)) return false;
  return std::fflush(file) == 0 && ::fsync(fileno(file)) == 0;
}

bool replaceFile(const std::wstring& source, const std::wstring& target) {
  if (saveFaultFires(SaveStep::Replace)) return false;
  const std::string to = nativePath(target);
  if (std::rename(nativePath(source).c_str(), to.c_str()) != 0) return false;
  flushFolderOf(to);
  return true;
}

bool renameWithoutReplace(const std::wstring& source, const std::wstring& target) {
  // A hard link fails when the target exists, so no file is ever replaced.
  const std::string from = nativePath(source);
  const std::string to = nativePath(target);
  if (::link(from.c_str(), to.c_str()) != 0) return false;
  ::unlink(from.c_str());
  flushFolderOf(to);
  return true;
}

bool removeFile(const std::wstring& path) { return ::unlink(nativePath(path).c_str()) == 0; }

bool fileExists(const std::wstring& path) {
  struct stat status {};
  return ::stat(nativePath(path).c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

}  // namespace kvt1::platform
