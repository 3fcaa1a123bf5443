#include "htmlui/engine/StyleImports.h"

#include "htmlui/engine/DomAtoms.h"
#include "platform/CaseFolding.h"

namespace kvt1::html {
namespace {

bool isSpace(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n' || c == L'\f'; }

}  // namespace

std::vector<StyleImport> findStyleImports(std::wstring_view css) {
  std::vector<StyleImport> imports;
  constexpr std::wstring_view kKeyword = L"@import";
  std::size_t pos = 0;
  while ((pos = css.find(L'@', pos)) != std::wstring_view::npos) {
    if (platform::asciiLowerCase(css.substr(pos, kKeyword.size())) != kKeyword) {
      ++pos;
      continue;
    }
    StyleImport rule;
    rule.begin = pos;
    std::size_t p = pos + kKeyword.size();
    while (p < css.size() && isSpace(css[p])) ++p;
    bool inUrl = false;
    if (platform::asciiLowerCase(css.substr(p, 4)) == L"url(") {
      inUrl = true;
      p += 4;
      while (p < css.size() && isSpace(css[p])) ++p;
    }
    wchar_t quote = 0;
    if (p < css.size() && (css[p] == L'"' || css[p] == L'\'')) quote = css[p++];
    const std::size_t start = p;
    while (p < css.size() &&
           (quote != 0 ? css[p] != quote : (inUrl ? css[p] != L')' : !isSpace(css[p]) && css[p] != L';')))
      ++p;
    rule.uri.assign(css.substr(start, p - start));
    const std::size_t semicolon = css.find(L';', p);
    const std::size_t lineEnd = css.find(L'\n', p);
    rule.end = semicolon != std::wstring_view::npos && (lineEnd == std::wstring_view::npos || semicolon < lineEnd)
                   ? semicolon + 1
                   : (lineEnd != std::wstring_view::npos ? lineEnd : css.size());
    pos = rule.end;
    if (!rule.uri.empty()) imports.push_back(std::move(rule));
  }
  return imports;
}

}  // namespace kvt1::html
