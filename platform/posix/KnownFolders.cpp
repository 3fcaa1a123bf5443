#include "platform/KnownFolders.h"

#include <cstdlib>

#include "platform/File.h"
#include "platform/Unicode.h"

namespace kvt1::platform {

std::wstring roamingAppDataFolder() {
  std::wstring folder;
  if (const char* data = std::getenv("XDG_DATA_HOME"); data && *data == '/') {
    folder = fromUtf8(data);
  } else if (const char* home = std::getenv("HOME"); home && *home) {
    folder = fromUtf8(home) + L"/.local/share";
  } else {
    return std::wstring();
  }
  return createFolders(folder) ? folder : std::wstring();
}

}  // namespace kvt1::platform
