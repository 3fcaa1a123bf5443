#include "platform/KnownFolders.h"

#include <windows.h>

#include <shlobj.h>

namespace kvt1::platform {

std::wstring roamingAppDataFolder() {
  wchar_t path[MAX_PATH] = {};
  if (FAILED(SHGetFolderPathW(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, SHGFP_TYPE_CURRENT, path))) {
    return std::wstring();
  }
  return path;
}

}  // namespace kvt1::platform
