#include "platform/posix/RegistryTree.h"

#include <algorithm>

#include "platform/CaseFolding.h"

namespace kvt1::platform {
namespace {

std::vector<RegistryNode>::iterator lowerChild(RegistryNode& node, const std::wstring& name) {
  return std::lower_bound(
      node.children.begin(), node.children.end(), name,
      [](const RegistryNode& child, const std::wstring& key) { return lessIgnoringCase(child.name, key); });
}

RegistryNode* findChild(RegistryNode& node, const std::wstring& name) {
  const auto at = lowerChild(node, name);
  return at != node.children.end() && equalsIgnoringCase(at->name, name) ? &*at : nullptr;
}

void appendSections(const RegistryNode& node, const std::wstring& path, std::vector<RegSection>& sections) {
  for (const RegistryNode& child : node.children) {
    RegSection section;
    section.path = path + L"\\" + child.name;
    section.values = child.values;
    sections.push_back(section);
    appendSections(child, section.path, sections);
  }
}

bool applySection(RegistryNode& root, const std::wstring& rootName, const RegSection& section) {
  RegistryPath path = splitRegistryPath(section.path);
  if (path.empty() || !equalsIgnoringCase(path.front(), rootName)) return false;
  path.erase(path.begin());
  if (section.remove) {
    if (path.empty()) return false;
    removeNode(root, path);
    return true;
  }
  bool created = false;
  RegistryNode& node = createNode(root, path, created);
  for (const RegValue& value : section.values) {
    if (value.remove) {
      removeNodeValue(node, value.name);
    } else {
      setNodeValue(node, value);
    }
  }
  return true;
}

}  // namespace

RegistryPath splitRegistryPath(const std::wstring& path) {
  RegistryPath parts;
  std::size_t start = 0;
  while (start <= path.size()) {
    std::size_t end = path.find(L'\\', start);
    if (end == std::wstring::npos) end = path.size();
    if (end > start) parts.push_back(path.substr(start, end - start));
    start = end + 1;
  }
  return parts;
}

RegistryNode* findNode(RegistryNode& root, const RegistryPath& path) {
  RegistryNode* node = &root;
  for (const std::wstring& name : path) {
    node = findChild(*node, name);
    if (node == nullptr) return nullptr;
  }
  return node;
}

const RegistryNode* findNode(const RegistryNode& root, const RegistryPath& path) {
  return findNode(const_cast<RegistryNode&>(root), path);
}

RegistryNode& createNode(RegistryNode& root, const RegistryPath& path, bool& created) {
  created = false;
  RegistryNode* node = &root;
  for (const std::wstring& name : path) {
    RegistryNode* child = findChild(*node, name);
    created = child == nullptr;
    if (created) {
      RegistryNode fresh;
      fresh.name = name;
      child = &*node->children.insert(lowerChild(*node, name), std::move(fresh));
    }
    node = child;
  }
  return *node;
}

bool removeNode(RegistryNode& root, const RegistryPath& path) {
  if (path.empty()) return false;
  RegistryNode* parent = findNode(root, RegistryPath(path.begin(), path.end() - 1));
  if (parent == nullptr) return false;
  const auto at = lowerChild(*parent, path.back());
  if (at == parent->children.end() || !equalsIgnoringCase(at->name, path.back())) return false;
  parent->children.erase(at);
  return true;
}

const RegValue* findValue(const RegistryNode& node, const std::wstring& name) {
  for (const RegValue& value : node.values) {
    if (equalsIgnoringCase(value.name, name)) return &value;
  }
  return nullptr;
}

void setNodeValue(RegistryNode& node, RegValue value) {
  value.remove = false;
  RegValue* existing = const_cast<RegValue*>(findValue(node, value.name));
  if (existing == nullptr) {
    node.values.push_back(std::move(value));
    return;
  }
  existing->type = value.type;
  existing->data = std::move(value.data);
}

bool removeNodeValue(RegistryNode& node, const std::wstring& name) {
  const auto at = std::find_if(node.values.begin(), node.values.end(),
                               [&name](const RegValue& value) { return equalsIgnoringCase(value.name, name); });
  if (at == node.values.end()) return false;
  node.values.erase(at);
  return true;
}

void mergeNode(RegistryNode& destination, const RegistryNode& source) {
  for (const RegValue& value : source.values) setNodeValue(destination, value);
  for (const RegistryNode& child : source.children) {
    bool created = false;
    mergeNode(createNode(destination, {child.name}, created), child);
  }
}

bool applySections(RegistryNode& root, const std::wstring& rootName, const std::vector<RegSection>& sections,
                   const RegSection*& failed) {
  failed = nullptr;
  for (const RegSection& section : sections) {
    if (!applySection(root, rootName, section)) {
      failed = &section;
      return false;
    }
  }
  return true;
}

std::vector<RegSection> sectionsOf(const RegistryNode& root, const std::wstring& rootName) {
  std::vector<RegSection> sections;
  if (!root.values.empty()) {
    RegSection section;
    section.path = rootName;
    section.values = root.values;
    sections.push_back(section);
  }
  appendSections(root, rootName, sections);
  return sections;
}

}  // namespace kvt1::platform
