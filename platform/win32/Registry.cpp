#include "platform/Registry.h"

#include <windows.h>

#include <utility>

namespace kvt1::platform {
namespace {

HKEY rootKey(RegistryRoot root) {
  switch (root) {
    case RegistryRoot::LocalMachine:
      return HKEY_LOCAL_MACHINE;
    case RegistryRoot::CurrentUser:
      return HKEY_CURRENT_USER;
    case RegistryRoot::ClassesRoot:
      break;
  }
  return HKEY_CLASSES_ROOT;
}

REGSAM samOf(RegistryAccess access) { return access == RegistryAccess::Full ? KEY_ALL_ACCESS : KEY_READ; }

HKEY hkeyOf(void* handle) { return static_cast<HKEY>(handle); }

// No name means the key itself to RegCopyTreeW and RegDeleteTreeW.
const wchar_t* subKeyOrNull(const std::wstring& subKey) { return subKey.empty() ? nullptr : subKey.c_str(); }

long openIn(HKEY parent, const std::wstring& path, RegistryAccess access, void*& handle) {
  HKEY key = nullptr;
  const LONG result = RegOpenKeyExW(parent, path.c_str(), 0, samOf(access), &key);
  if (result == ERROR_SUCCESS) handle = key;
  return result;
}

long createIn(HKEY parent, const std::wstring& path, RegistryAccess access, void*& handle, bool* created) {
  HKEY key = nullptr;
  DWORD disposition = 0;
  const LONG result = RegCreateKeyExW(parent, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, samOf(access), nullptr,
                                      &key, &disposition);
  if (created != nullptr) *created = result == ERROR_SUCCESS && disposition == REG_CREATED_NEW_KEY;
  if (result == ERROR_SUCCESS) handle = key;
  return result;
}

}  // namespace

long RegistryKey::open(RegistryRoot root, const std::wstring& path, RegistryAccess access, RegistryKey& out) {
  RegistryKey key;
  const long result = openIn(rootKey(root), path, access, key.handle_);
  if (result == ERROR_SUCCESS) out = std::move(key);
  return result;
}

long RegistryKey::create(RegistryRoot root, const std::wstring& path, RegistryAccess access, RegistryKey& out,
                         bool* created) {
  RegistryKey key;
  const long result = createIn(rootKey(root), path, access, key.handle_, created);
  if (result == ERROR_SUCCESS) out = std::move(key);
  return result;
}

long RegistryKey::openSubKey(const std::wstring& path, RegistryAccess access, RegistryKey& out) const {
  if (handle_ == nullptr) return kRegInvalidHandle;
  RegistryKey key;
  const long result = openIn(hkeyOf(handle_), path, access, key.handle_);
  if (result == ERROR_SUCCESS) out = std::move(key);
  return result;
}

long RegistryKey::createSubKey(const std::wstring& path, RegistryAccess access, RegistryKey& out, bool* created) const {
  if (handle_ == nullptr) return kRegInvalidHandle;
  RegistryKey key;
  const long result = createIn(hkeyOf(handle_), path, access, key.handle_, created);
  if (result == ERROR_SUCCESS) out = std::move(key);
  return result;
}

long RegistryKey::queryValue(const std::wstring& name, std::uint32_t& type, void* data, std::uint32_t& size) const {
  if (handle_ == nullptr) return kRegInvalidHandle;
  DWORD valueType = 0;
  DWORD valueSize = size;
  const LONG result =
      RegQueryValueExW(hkeyOf(handle_), name.c_str(), nullptr, &valueType, static_cast<BYTE*>(data), &valueSize);
  if (result == ERROR_SUCCESS || result == ERROR_MORE_DATA) {
    type = valueType;
    size = valueSize;
  }
  return result;
}

long RegistryKey::setValue(const std::wstring& name, std::uint32_t type, const void* data, std::uint32_t size) {
  if (handle_ == nullptr) return kRegInvalidHandle;
  return RegSetValueExW(hkeyOf(handle_), name.c_str(), 0, type, static_cast<const BYTE*>(data), size);
}

long RegistryKey::enumSubKey(std::uint32_t index, std::wstring& name) const {
  if (handle_ == nullptr) return kRegInvalidHandle;
  wchar_t buffer[256];  // key names have at most 255 characters
  DWORD length = sizeof buffer / sizeof buffer[0];
  const LONG result = RegEnumKeyExW(hkeyOf(handle_), index, buffer, &length, nullptr, nullptr, nullptr, nullptr);
  if (result == ERROR_SUCCESS) name.assign(buffer, length);
  return result;
}

long RegistryKey::subKeyCount(std::uint32_t& count) const {
  if (handle_ == nullptr) return kRegInvalidHandle;
  DWORD subKeys = 0;
  const LONG result = RegQueryInfoKeyW(hkeyOf(handle_), nullptr, nullptr, nullptr, &subKeys, nullptr, nullptr, nullptr,
                                       nullptr, nullptr, nullptr, nullptr);
  if (result == ERROR_SUCCESS) count = subKeys;
  return result;
}

long RegistryKey::copyTree(const std::wstring& subKey, RegistryKey& destination) const {
  if (handle_ == nullptr || destination.handle_ == nullptr) return kRegInvalidHandle;
  return RegCopyTreeW(hkeyOf(handle_), subKeyOrNull(subKey), hkeyOf(destination.handle_));
}

long RegistryKey::deleteTree(const std::wstring& subKey) {
  if (handle_ == nullptr) return kRegInvalidHandle;
  return RegDeleteTreeW(hkeyOf(handle_), subKeyOrNull(subKey));
}

void RegistryKey::close() {
  if (handle_ != nullptr) RegCloseKey(hkeyOf(handle_));
  handle_ = nullptr;
}

std::wstring expandEnvironmentStrings(const std::wstring& text) {
  const DWORD needed = ExpandEnvironmentStringsW(text.c_str(), nullptr, 0);
  if (needed == 0) return text;
  std::wstring expanded(needed, L'\0');
  const DWORD written = ExpandEnvironmentStringsW(text.c_str(), expanded.data(), needed);
  if (written == 0 || written > needed) return text;
  expanded.resize(written - 1);
  return expanded;
}

}  // namespace kvt1::platform
