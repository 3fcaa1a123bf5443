#include "platform/Registry.h"

#include <cstring>

#include "platform/posix/RegistryStore.h"

namespace kvt1::platform {
namespace {

// What a RegistryKey holds: where the key is, not the key itself, so that it
// outlives the key being deleted or the file being read again.
struct OpenKey {
  RegistryRoot root;
  RegistryPath path;
  RegistryAccess access;
};

const OpenKey* keyOf(void* handle) { return static_cast<const OpenKey*>(handle); }

RegistryStore& store() { return RegistryStore::instance(); }

RegistryPath joined(RegistryPath base, const RegistryPath& sub) {
  base.insert(base.end(), sub.begin(), sub.end());
  return base;
}

long openBelow(RegistryRoot root, const RegistryPath& base, const RegistryPath& sub, RegistryAccess access) {
  if (root == RegistryRoot::LocalMachine && access == RegistryAccess::Full) return kRegAccessDenied;
  return store().read(root, [&](const RegistryNode& keys) {
    const RegistryNode* node = findNode(keys, base);
    if (node == nullptr) return kRegKeyDeleted;
    return findNode(*node, sub) != nullptr ? kRegSuccess : kRegFileNotFound;
  });
}

// mayCreate: whether the parent allows new subkeys (a root always does; a
// key opened for reading does not).
long createBelow(RegistryRoot root, const RegistryPath& base, const RegistryPath& sub, RegistryAccess access,
                 bool mayCreate, bool* created) {
  if (created != nullptr) *created = false;
  if (root == RegistryRoot::LocalMachine && access == RegistryAccess::Full) return kRegAccessDenied;
  return store().write(root, [&](RegistryNode& keys, bool& changed) {
    RegistryNode* node = findNode(keys, base);
    if (node == nullptr) return kRegKeyDeleted;
    if (findNode(*node, sub) != nullptr) return kRegSuccess;
    if (!mayCreate) return kRegAccessDenied;
    createNode(*node, sub, changed);
    if (created != nullptr) *created = true;
    return kRegSuccess;
  });
}

}  // namespace

long RegistryKey::open(RegistryRoot root, const std::wstring& path, RegistryAccess access, RegistryKey& out) {
  const RegistryPath sub = splitRegistryPath(path);
  const long result = openBelow(root, {}, sub, access);
  if (result != kRegSuccess) return result;
  out.close();
  out.handle_ = new OpenKey{root, sub, access};
  return kRegSuccess;
}

long RegistryKey::create(RegistryRoot root, const std::wstring& path, RegistryAccess access, RegistryKey& out,
                         bool* created) {
  const RegistryPath sub = splitRegistryPath(path);
  const long result = createBelow(root, {}, sub, access, true, created);
  if (result != kRegSuccess) return result;
  out.close();
  out.handle_ = new OpenKey{root, sub, access};
  return kRegSuccess;
}

long RegistryKey::openSubKey(const std::wstring& path, RegistryAccess access, RegistryKey& out) const {
  const OpenKey* key = keyOf(handle_);
  if (key == nullptr) return kRegInvalidHandle;
  const RegistryPath sub = splitRegistryPath(path);
  const long result = openBelow(key->root, key->path, sub, access);
  if (result != kRegSuccess) return result;
  out.close();
  out.handle_ = new OpenKey{key->root, joined(key->path, sub), access};
  return kRegSuccess;
}

long RegistryKey::createSubKey(const std::wstring& path, RegistryAccess access, RegistryKey& out, bool* created) const {
  const OpenKey* key = keyOf(handle_);
  if (key == nullptr) return kRegInvalidHandle;
  const RegistryPath sub = splitRegistryPath(path);
  const long result = createBelow(key->root, key->path, sub, access, key->access == RegistryAccess::Full, created);
  if (result != kRegSuccess) return result;
  out.close();
  out.handle_ = new OpenKey{key->root, joined(key->path, sub), access};
  return kRegSuccess;
}

long RegistryKey::queryValue(const std::wstring& name, std::uint32_t& type, void* data, std::uint32_t& size) const {
  const OpenKey* key = keyOf(handle_);
  if (key == nullptr) return kRegInvalidHandle;
  return store().read(key->root, [&](const RegistryNode& keys) {
    const RegistryNode* node = findNode(keys, key->path);
    if (node == nullptr) return kRegKeyDeleted;
    const RegValue* value = findValue(*node, name);
    if (value == nullptr) return kRegFileNotFound;
    type = value->type;
    const auto needed = static_cast<std::uint32_t>(value->data.size());
    const std::uint32_t room = size;
    size = needed;
    if (data == nullptr) return kRegSuccess;
    if (room < needed) return kRegMoreData;
    if (needed > 0) std::memcpy(data, value->data.data(), needed);
    return kRegSuccess;
  });
}

long RegistryKey::setValue(const std::wstring& name, std::uint32_t type, const void* data, std::uint32_t size) {
  const OpenKey* key = keyOf(handle_);
  if (key == nullptr) return kRegInvalidHandle;
  if (key->access != RegistryAccess::Full) return kRegAccessDenied;
  if (data == nullptr && size > 0) return kRegInvalidParameter;
  RegValue value;
  value.name = name;
  value.type = type;
  const auto* bytes = static_cast<const unsigned char*>(data);
  // String data is whole wchar_t units; a broken last unit is not kept.
  if (isRegStringType(type)) size -= size % sizeof(wchar_t);
  if (size > 0) value.data.assign(bytes, bytes + size);
  return store().write(key->root, [&](RegistryNode& keys, bool& changed) {
    RegistryNode* node = findNode(keys, key->path);
    if (node == nullptr) return kRegKeyDeleted;
    setNodeValue(*node, std::move(value));
    changed = true;
    return kRegSuccess;
  });
}

long RegistryKey::enumSubKey(std::uint32_t index, std::wstring& name) const {
  const OpenKey* key = keyOf(handle_);
  if (key == nullptr) return kRegInvalidHandle;
  return store().read(key->root, [&](const RegistryNode& keys) {
    const RegistryNode* node = findNode(keys, key->path);
    if (node == nullptr) return kRegKeyDeleted;
    if (index >= node->children.size()) return kRegNoMoreItems;
    name = node->children[index].name;
    return kRegSuccess;
  });
}

long RegistryKey::subKeyCount(std::uint32_t& count) const {
  const OpenKey* key = keyOf(handle_);
  if (key == nullptr) return kRegInvalidHandle;
  return store().read(key->root, [&](const RegistryNode& keys) {
    const RegistryNode* node = findNode(keys, key->path);
    if (node == nullptr) return kRegKeyDeleted;
    count = static_cast<std::uint32_t>(node->children.size());
    return kRegSuccess;
  });
}

long RegistryKey::copyTree(const std::wstring& subKey, RegistryKey& destination) const {
  const OpenKey* key = keyOf(handle_);
  const OpenKey* target = keyOf(destination.handle_);
  if (key == nullptr || target == nullptr) return kRegInvalidHandle;
  if (target->access != RegistryAccess::Full) return kRegAccessDenied;
  // A copy first, so that a tree copied into itself stays finite.
  RegistryNode source;
  const long result = store().read(key->root, [&](const RegistryNode& keys) {
    const RegistryNode* node = findNode(keys, key->path);
    if (node == nullptr) return kRegKeyDeleted;
    const RegistryNode* found = findNode(*node, splitRegistryPath(subKey));
    if (found == nullptr) return kRegFileNotFound;
    source = *found;
    return kRegSuccess;
  });
  if (result != kRegSuccess) return result;
  return store().write(target->root, [&](RegistryNode& keys, bool& changed) {
    RegistryNode* node = findNode(keys, target->path);
    if (node == nullptr) return kRegKeyDeleted;
    mergeNode(*node, source);
    changed = true;
    return kRegSuccess;
  });
}

// An empty subKey empties this key (values and subkeys) and keeps it, as
// RegDeleteTreeW does without a subkey name.
long RegistryKey::deleteTree(const std::wstring& subKey) {
  const OpenKey* key = keyOf(handle_);
  if (key == nullptr) return kRegInvalidHandle;
  if (key->access != RegistryAccess::Full) return kRegAccessDenied;
  const RegistryPath sub = splitRegistryPath(subKey);
  return store().write(key->root, [&](RegistryNode& keys, bool& changed) {
    RegistryNode* node = findNode(keys, key->path);
    if (node == nullptr) return kRegKeyDeleted;
    if (sub.empty()) {
      changed = !node->values.empty() || !node->children.empty();
      node->values.clear();
      node->children.clear();
      return kRegSuccess;
    }
    if (!removeNode(keys, joined(key->path, sub))) return kRegFileNotFound;
    changed = true;
    return kRegSuccess;
  });
}

void RegistryKey::close() {
  delete keyOf(handle_);
  handle_ = nullptr;
}

}  // namespace kvt1::platform
