#pragma once
// Where the module file lives, and paths written as LISP string literals.
#include <string>

namespace kvt1 {

struct ModuleLocation {
  std::wstring folder;    // up to and including the last separator
  std::wstring fileName;  // the rest
};

// Splits at the last "\", or at the last "/" when the path holds no "\".
ModuleLocation splitModulePath(const std::wstring& path);

// The text with every "\" doubled, so that it reads back as the same LISP string.
std::wstring doubleBackslashes(const std::wstring& text);

}  // namespace kvt1
