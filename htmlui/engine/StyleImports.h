#pragma once
// The "@import" rules of a style sheet: where each stands and what it names.
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kvt1::html {

struct StyleImport {
  std::size_t begin = 0;  // the "@" of "@import"
  std::size_t end = 0;    // just after the rule's ";" (or where the rule stops)
  std::wstring uri;
};

// Both forms: @import url(x); @import url("x"); @import "x";
std::vector<StyleImport> findStyleImports(std::wstring_view css);

}  // namespace kvt1::html
