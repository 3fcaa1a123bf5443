#include "platform/File.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>

#include "platform/posix/NativePath.h"

namespace kvt1::platform {
namespace {

bool writes(const char* mode) { return std::strpbrk(mode, "wa+") != nullptr; }

// A file counts as read-only when nobody may write it, as Windows' read-only
// attribute; checked here because the super-user's open() would ignore it.
bool isReadOnly(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
  return (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

bool isFolder(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

std::FILE* openFile(const std::wstring& path, const char* mode) {
  const std::string native = nativePath(path);
  if (writes(mode) && isReadOnly(native)) {
    errno = EACCES;
    return nullptr;
  }
  return std::fopen(native.c_str(), mode);
}

bool createFolders(const std::wstring& path) {
  const std::string native = nativePath(path);
  if (native.empty()) return false;
  // Every prefix that ends before a separator, then the whole path.
  for (std::size_t end = native.find('/', 1); end != std::string::npos; end = native.find('/', end + 1)) {
    ::mkdir(native.substr(0, end).c_str(), 0777);
  }
  ::mkdir(native.c_str(), 0777);
  return isFolder(native);
}

}  // namespace kvt1::platform
