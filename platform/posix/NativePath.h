#pragma once
// A module path as the file system takes it: UTF-8, with the Windows folder
// separator "\" read as "/" (the module writes paths the Windows way).
#include <string>

namespace kvt1::platform {

std::string nativePath(const std::wstring& path);

}  // namespace kvt1::platform
