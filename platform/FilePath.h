#pragma once
// File paths as the system writes them: its folder separator, and a name
// joined to a folder with it.
#include <string>

namespace kvt1::platform {

#ifdef _WIN32
inline constexpr wchar_t kFolderSeparator = L'\\';
#else
inline constexpr wchar_t kFolderSeparator = L'/';
#endif

// folder, the system's separator and name; no second separator when folder
// already ends with one ("\" or "/"), and name alone when folder is empty.
std::wstring joinPath(const std::wstring& folder, const std::wstring& name);

}  // namespace kvt1::platform
