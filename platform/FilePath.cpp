#include "platform/FilePath.h"

namespace kvt1::platform {

std::wstring joinPath(const std::wstring& folder, const std::wstring& name) {
  if (folder.empty()) return name;
  const wchar_t last = folder.back();
  if (last == L'\\' || last == L'/') return folder + name;
  return folder + kFolderSeparator + name;
}

}  // namespace kvt1::platform
