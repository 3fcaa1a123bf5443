#include "platform/FileSystem.h"

#include <io.h>
#include <windows.h>

#include "platform/SaveFaults.h"

namespace kvt1::platform {

bool flushToDisk(std::FILE* file) {
  if (saveFaultFires(SaveStep::Flush)) return false;
  return std::fflush(file) == 0 && _commit(_fileno(file)) == 0;
}

bool replaceFile(const std::wstring& source, const std::wstring& target) {
  if (saveFaultFires(SaveStep::Replace)) return false;
  return MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

bool renameWithoutReplace(const std::wstring& source, const std::wstring& target) {
  return MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_WRITE_THROUGH) != 0;
}

bool removeFile(const std::wstring& path) { return DeleteFileW(path.c_str()) != 0; }

bool fileExists(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

}  // namespace kvt1::platform
