#pragma once
// The keys and values of one registry root in memory. Key and value names
// compare without case and keep the case they were created with; subkeys stay
// ordered by name without case, the order in which the registry enumerates them.
#include <string>
#include <vector>

#include "platform/RegFile.h"

namespace kvt1::platform {

struct RegistryNode {
  std::wstring name;
  std::vector<RegValue> values;        // in the order they were first set
  std::vector<RegistryNode> children;  // ordered by name without case
};

using RegistryPath = std::vector<std::wstring>;

// Key names between "\"; empty parts (doubled or outer separators) are skipped.
RegistryPath splitRegistryPath(const std::wstring& path);

const RegistryNode* findNode(const RegistryNode& root, const RegistryPath& path);
RegistryNode* findNode(RegistryNode& root, const RegistryPath& path);
// The node at path, with any missing keys on the way; created tells whether the last one was new.
RegistryNode& createNode(RegistryNode& root, const RegistryPath& path, bool& created);
// Removes the key at a non-empty path with everything below it; false when there is none.
bool removeNode(RegistryNode& root, const RegistryPath& path);

const RegValue* findValue(const RegistryNode& node, const std::wstring& name);
// Replaces the value of that name (keeping its place and spelling) or appends it.
void setNodeValue(RegistryNode& node, RegValue value);
bool removeNodeValue(RegistryNode& node, const std::wstring& name);

// Copies source's values and subkeys into destination, replacing values of the same names.
void mergeNode(RegistryNode& destination, const RegistryNode& source);

// A root from the blocks of its file, applied in order. Blocks of other roots
// are refused: the failing block is returned through failed, and the tree
// holds the blocks before it.
bool applySections(RegistryNode& root, const std::wstring& rootName, const std::vector<RegSection>& sections,
                   const RegSection*& failed);
// The blocks of a root for its file: every key below the root, parents first,
// and the root itself when it holds values.
std::vector<RegSection> sectionsOf(const RegistryNode& root, const std::wstring& rootName);

}  // namespace kvt1::platform
