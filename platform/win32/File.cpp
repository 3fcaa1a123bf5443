#include "platform/File.h"

#include <windows.h>

#include <cerrno>
#include <cstring>

namespace kvt1::platform {
namespace {

bool writes(const char* mode) { return std::strpbrk(mode, "wa+") != nullptr; }

// Checked here as well as by the system, which does not refuse when the
// process runs with rights that override the attribute.
bool isReadOnly(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0 &&
         (attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

bool isFolder(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Where the folders that may be created begin: after "X:\" or "\\server\share\".
std::size_t firstCreatable(const std::wstring& path) {
  if (path.size() >= 2 && path[1] == L':') return 3;
  if (path.size() >= 2 && path[0] == L'\\' && path[1] == L'\\') {
    const std::size_t server = path.find(L'\\', 2);
    if (server == std::wstring::npos) return path.size();
    const std::size_t share = path.find(L'\\', server + 1);
    return share == std::wstring::npos ? path.size() : share + 1;
  }
  return 1;
}

}  // namespace

std::FILE* openFile(const std::wstring& path, const char* mode) {
  if (writes(mode) && isReadOnly(path)) {
    errno = EACCES;
    return nullptr;
  }
  const std::wstring wideMode(mode, mode + std::char_traits<char>::length(mode));
  return _wfopen(path.c_str(), wideMode.c_str());
}

bool createFolders(const std::wstring& path) {
  if (path.empty()) return false;
  std::wstring folder(path);
  for (wchar_t& c : folder) {
    if (c == L'/') c = L'\\';
  }
  for (std::size_t end = folder.find(L'\\', firstCreatable(folder)); end != std::wstring::npos;
       end = folder.find(L'\\', end + 1)) {
    CreateDirectoryW(folder.substr(0, end).c_str(), nullptr);
  }
  CreateDirectoryW(folder.c_str(), nullptr);
  return isFolder(folder);
}

}  // namespace kvt1::platform
