#include "host/ModulePath.h"

namespace kvt1 {

ModuleLocation splitModulePath(const std::wstring& path) {
  std::size_t cut = path.rfind(L'\\');
  if (cut == std::wstring::npos) cut = path.rfind(L'/');
  if (cut == std::wstring::npos) return {std::wstring(), path};
  return {path.substr(0, cut + 1), path.substr(cut + 1)};
}

std::wstring doubleBackslashes(const std::wstring& text) {
  std::wstring out;
  out.reserve(text.size() + 8);
  for (wchar_t c : text) {
    out += c;
    if (c == L'\\') out += L'\\';
  }
  return out;
}

}  // namespace kvt1
