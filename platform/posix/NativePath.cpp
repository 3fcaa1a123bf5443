#include "platform/posix/NativePath.h"

#include "platform/Unicode.h"

namespace kvt1::platform {

std::string nativePath(const std::wstring& path) {
  std::string native = toUtf8(path);
  for (char& c : native) {
    if (c == '\\') c = '/';
  }
  return native;
}

}  // namespace kvt1::platform
