#pragma once
// The registry where there is no Windows registry: one file per root
// ("HKEY_CURRENT_USER.reg", ...) in regedit's text format, in the folder named
// by KVT1_REGISTRY_DIR, else $XDG_CONFIG_HOME/kvt1/registry, else
// ~/.config/kvt1/registry. Every change is saved at once; a file that another
// process replaced is read again before the next use. A file that does not
// parse is reported once on stderr and its root stays read-only, so it is
// never overwritten. The machine root is read-only, as for a normal user on
// Windows.
#include <functional>
#include <mutex>
#include <string>

#include "platform/Registry.h"
#include "platform/posix/RegistryFile.h"
#include "platform/posix/RegistryTree.h"

namespace kvt1::platform {

// Windows' answers that the header does not name.
constexpr long kRegIoFailed = 1016;    // ERROR_REGISTRY_IO_FAILED: a save failed
constexpr long kRegKeyDeleted = 1018;  // ERROR_KEY_DELETED: the open key was deleted

class RegistryStore {
 public:
  static RegistryStore& instance();

  // Forgets everything loaded: the next use finds the folder again from the
  // environment and reads the files anew.
  void reset();

  std::string folder();
  std::string filePath(RegistryRoot root);

  // Runs visit on the root's keys, read again from the file when it changed.
  long read(RegistryRoot root, const std::function<long(const RegistryNode&)>& visit);
  // Runs change on the root's keys; when it succeeds and says it changed
  // something, the root's file is saved. A refused change (machine root, a
  // file that did not parse) or a failed save leaves the keys as they were.
  long write(RegistryRoot root, const std::function<long(RegistryNode&, bool& changed)>& change);

 private:
  struct Root {
    bool loaded = false;
    bool readOnly = false;  // the file did not parse
    RegistryFileStamp stamp;
    RegistryNode keys;
  };

  RegistryStore() = default;
  std::string folderLocked();
  std::string filePathLocked(RegistryRoot root);
  Root& current(RegistryRoot root);
  void load(RegistryRoot root, Root& state);

  std::mutex mutex_;
  std::string folder_;
  Root roots_[3];
};

}  // namespace kvt1::platform
