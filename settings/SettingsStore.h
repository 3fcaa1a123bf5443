#pragma once
// The installation's settings, addressed by number: machine-wide values (read
// only) and the user's own values (read and written) under the product key,
// each key with a cache of the strings last read or written. The first time
// this version's user key is created, an older version's user settings move
// over to it.
#include <cstdint>
#include <map>
#include <string>

#include "platform/Registry.h"

namespace kvt1 {

class SettingsStore {
 public:
  // 0; -1 when the value exists but is not a plain string; -2 when it cannot
  // be read. Paths are read whatever their length, and expandable ones expanded;
  // other values longer than 98 characters cannot be read.
  int readString(int number, std::wstring& text);
  // 0 or -1. With no buffer, size receives the bytes needed; a buffer smaller
  // than the value fails and size receives the bytes needed.
  int readBinary(int number, void* buffer, std::uint32_t& size);
  // 0 or the registry's error code.
  long writeString(int number, const std::wstring& text);

  // Folders derived from the machine's "DataPath" and "DeploymentPath".
  std::wstring uiFolder();
  std::wstring userFilesFolder();
  std::wstring helpFolder();
  std::wstring deploymentFolder();

 private:
  void openKeys();
  void migrateOlderVersion();
  platform::RegistryKey* keyFor(int number);
  std::map<int, std::wstring>& cacheFor(int number);
  std::wstring readOrEmpty(int number);

  platform::RegistryKey machine_;
  platform::RegistryKey user_;
  std::map<int, std::wstring> machineCache_;
  std::map<int, std::wstring> userCache_;
};

// The module's settings, opened on first use and kept for its life.
SettingsStore& theSettings();

}  // namespace kvt1
