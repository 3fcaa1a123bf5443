#include "platform/posix/RegistryStore.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/Unicode.h"

namespace kvt1::platform {
namespace {

const wchar_t* rootName(RegistryRoot root) {
  switch (root) {
    case RegistryRoot::LocalMachine:
      return L"HKEY_LOCAL_MACHINE";
    case RegistryRoot::CurrentUser:
      return L"HKEY_CURRENT_USER";
    case RegistryRoot::ClassesRoot:
      break;
  }
  return L"HKEY_CLASSES_ROOT";
}

std::string defaultFolder() {
  const char* folder = std::getenv("KVT1_REGISTRY_DIR");
  if (folder != nullptr && *folder != '\0') return folder;
  const char* config = std::getenv("XDG_CONFIG_HOME");
  if (config != nullptr && *config == '/') return std::string(config) + "/kvt1/registry";
  const char* home = std::getenv("HOME");
  if (home == nullptr || *home == '\0') {
    const passwd* user = ::getpwuid(::getuid());
    home = user != nullptr ? user->pw_dir : ".";
  }
  return std::string(home) + "/.config/kvt1/registry";
}

// line 0: the file as a whole.
void reportUnusable(const std::string& path, std::size_t line, const std::string& reason) {
  const std::string where = line > 0 ? ", line " + std::to_string(line) : std::string();
  std::fprintf(stderr, "kvt1: registry file %s%s: %s; the file is left as it is and its keys are read-only\n",
               path.c_str(), where.c_str(), reason.c_str());
}

}  // namespace

RegistryStore& RegistryStore::instance() {
  static RegistryStore store;
  return store;
}

void RegistryStore::reset() {
  std::lock_guard<std::mutex> lock(mutex_);
  folder_.clear();
  for (Root& root : roots_) root = Root{};
}

std::string RegistryStore::folder() {
  std::lock_guard<std::mutex> lock(mutex_);
  return folderLocked();
}

std::string RegistryStore::filePath(RegistryRoot root) {
  std::lock_guard<std::mutex> lock(mutex_);
  return filePathLocked(root);
}

std::string RegistryStore::folderLocked() {
  if (folder_.empty()) folder_ = defaultFolder();
  return folder_;
}

std::string RegistryStore::filePathLocked(RegistryRoot root) {
  return folderLocked() + "/" + toUtf8(rootName(root)) + ".reg";
}

long RegistryStore::read(RegistryRoot root, const std::function<long(const RegistryNode&)>& visit) {
  std::lock_guard<std::mutex> lock(mutex_);
  return visit(current(root).keys);
}

long RegistryStore::write(RegistryRoot root, const std::function<long(RegistryNode&, bool& changed)>& change) {
  std::lock_guard<std::mutex> lock(mutex_);
  Root& state = current(root);
  RegistryNode before = state.keys;
  bool changed = false;
  const long result = change(state.keys, changed);
  if (result != kRegSuccess || !changed) {
    if (result != kRegSuccess) state.keys = std::move(before);
    return result;
  }
  if (root == RegistryRoot::LocalMachine || state.readOnly) {
    state.keys = std::move(before);
    return kRegAccessDenied;
  }
  RegistryFileStamp stamp;
  const int failure =
      replaceRegistryFile(filePathLocked(root), writeRegFile(sectionsOf(state.keys, rootName(root))), stamp);
  if (failure != 0) {
    state.keys = std::move(before);
    return failure == EACCES || failure == EPERM || failure == EROFS ? kRegAccessDenied : kRegIoFailed;
  }
  state.stamp = stamp;
  return kRegSuccess;
}

RegistryStore::Root& RegistryStore::current(RegistryRoot root) {
  Root& state = roots_[static_cast<int>(root)];
  if (!state.loaded || registryFileStamp(filePathLocked(root)) != state.stamp) load(root, state);
  return state;
}

void RegistryStore::load(RegistryRoot root, Root& state) {
  const std::string path = filePathLocked(root);
  state = Root{};
  state.loaded = true;
  std::string bytes;
  const int failure = readRegistryFile(path, bytes, state.stamp);
  if (failure != 0) {
    state.readOnly = true;
    state.stamp = registryFileStamp(path);
    reportUnusable(path, 0, std::string("cannot be read: ") + std::strerror(failure));
    return;
  }
  if (!state.stamp.exists) return;

  std::vector<RegSection> sections;
  RegFileError error;
  const bool parsed = parseRegFile(bytes, sections, error);
  const RegSection* refused = nullptr;
  const bool applied = applySections(state.keys, rootName(root), sections, refused);
  if (parsed && applied) return;
  state.readOnly = true;
  if (!applied) {
    reportUnusable(path, refused->line, "the key is not under " + toUtf8(rootName(root)));
  } else {
    reportUnusable(path, error.line, error.message);
  }
}

}  // namespace kvt1::platform
