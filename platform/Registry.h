#pragma once
// The one way the module touches the registry. On Windows these are the
// Win32 registry calls; elsewhere a file-backed store keeps one file per root
// in regedit's text format. Return codes and size rules are Windows' own, so
// callers behave the same on both systems.
//
// String values (kRegSz, kRegExpandSz) travel as wchar_t text with sizes in
// bytes of that text, so a size is always that of the caller's buffer (two
// bytes a character on Windows, four elsewhere; the store keeps UTF-16LE on
// disk). Other types travel as raw bytes.
#include <cstdint>
#include <string>

namespace kvt1::platform {

// Value types.
constexpr std::uint32_t kRegSz = 1;
constexpr std::uint32_t kRegExpandSz = 2;
constexpr std::uint32_t kRegBinary = 3;
constexpr std::uint32_t kRegDword = 4;

// Return codes.
constexpr long kRegSuccess = 0;            // ERROR_SUCCESS
constexpr long kRegFileNotFound = 2;       // ERROR_FILE_NOT_FOUND
constexpr long kRegAccessDenied = 5;       // ERROR_ACCESS_DENIED
constexpr long kRegInvalidHandle = 6;      // ERROR_INVALID_HANDLE
constexpr long kRegInvalidParameter = 87;  // ERROR_INVALID_PARAMETER
constexpr long kRegMoreData = 234;         // ERROR_MORE_DATA
constexpr long kRegNoMoreItems = 259;      // ERROR_NO_MORE_ITEMS

enum class RegistryRoot { LocalMachine, CurrentUser, ClassesRoot };
enum class RegistryAccess { Read, Full };

// An open key. Moves, never copies; closed when the owner goes.
class RegistryKey {
 public:
  RegistryKey() = default;
  RegistryKey(RegistryKey&& other) noexcept;
  RegistryKey& operator=(RegistryKey&& other) noexcept;
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;
  ~RegistryKey();

  // RegOpenKeyExW / RegCreateKeyExW under a root. Paths use "\" between key names.
  static long open(RegistryRoot root, const std::wstring& path, RegistryAccess access, RegistryKey& out);
  static long create(RegistryRoot root, const std::wstring& path, RegistryAccess access, RegistryKey& out,
                     bool* created = nullptr);
  long openSubKey(const std::wstring& path, RegistryAccess access, RegistryKey& out) const;
  long createSubKey(const std::wstring& path, RegistryAccess access, RegistryKey& out, bool* created = nullptr) const;

  // RegQueryValueExW: with no data, size receives the bytes needed; a buffer
  // too small gives kRegMoreData and the size needed. Strings come with their
  // terminating NUL counted, as stored. An empty name is the default value.
  long queryValue(const std::wstring& name, std::uint32_t& type, void* data, std::uint32_t& size) const;
  // RegSetValueExW: size in bytes, as the caller gives it.
  long setValue(const std::wstring& name, std::uint32_t type, const void* data, std::uint32_t size);

  // RegEnumKeyExW: the name of subkey number index; kRegNoMoreItems past the last.
  long enumSubKey(std::uint32_t index, std::wstring& name) const;
  long subKeyCount(std::uint32_t& count) const;

  // RegCopyTreeW: copies subKey of this key (with its values and subkeys) into destination.
  long copyTree(const std::wstring& subKey, RegistryKey& destination) const;
  // RegDeleteTreeW: deletes subKey of this key with everything below it.
  long deleteTree(const std::wstring& subKey);

  bool isOpen() const { return handle_ != nullptr; }

 private:
  void close();
  void* handle_ = nullptr;
};

// ExpandEnvironmentStringsW: "%NAME%" replaced by the variable's value; unknown names stay.
std::wstring expandEnvironmentStrings(const std::wstring& text);

}  // namespace kvt1::platform
