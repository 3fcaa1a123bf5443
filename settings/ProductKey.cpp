#include "settings/ProductKey.h"

#include "host/identity/ProductIdentity.h"

namespace kvt1 {

const wchar_t kSettingsVersion[] = L"1.1";

const std::wstring& productBaseKeyPath() {
  static const std::wstring path = [] {
    std::wstring base = std::wstring(L"Software\\Halvorn Systems\\") + productName(kProductNumber);
    if (!base.empty() && (base.back() == L'\\' || base.back() == L'/')) base.pop_back();
    return base;
  }();
  return path;
}

const std::wstring& productVersionKeyPath() {
  static const std::wstring path = productBaseKeyPath() + L"\\" + kSettingsVersion;
  return path;
}

const std::wstring& productKeyPath() {
  static const std::wstring path = productVersionKeyPath() + L"\\CAD";
  return path;
}

}  // namespace kvt1
