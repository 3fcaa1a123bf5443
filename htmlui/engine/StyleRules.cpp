#include "htmlui/engine/StyleRules.h"

#include <algorithm>

namespace kvt1::html {
namespace {

bool isSpace(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n' || c == L'\f'; }

std::wstring withoutComments(std::wstring_view css) {
  std::wstring out;
  out.reserve(css.size());
  std::size_t pos = 0;
  while (pos < css.size()) {
    const std::size_t open = css.find(L"/*", pos);
    out.append(css.substr(pos, open == std::wstring_view::npos ? std::wstring_view::npos : open - pos));
    if (open == std::wstring_view::npos) break;
    const std::size_t close = css.find(L"*/", open + 2);
    if (close == std::wstring_view::npos) break;
    out += L' ';
    pos = close + 2;
  }
  return out;
}

// Just after the "}" that closes the block opened at open; the end when none does.
std::size_t blockEnd(std::wstring_view css, std::size_t open) {
  int depth = 0;
  for (std::size_t pos = open; pos < css.size(); ++pos) {
    if (css[pos] == L'{') ++depth;
    if (css[pos] == L'}' && --depth == 0) return pos + 1;
  }
  return css.size();
}

std::wstring_view trimmed(std::wstring_view text) {
  while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && isSpace(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace

std::vector<StyleRule> parseStyleRules(std::wstring_view sheet) {
  const std::wstring text = withoutComments(sheet);
  const std::wstring_view css(text);
  std::vector<StyleRule> rules;
  std::size_t pos = 0;
  while (pos < css.size()) {
    while (pos < css.size() && (isSpace(css[pos]) || css[pos] == L'}' || css[pos] == L';')) ++pos;
    if (pos >= css.size()) break;
    const std::size_t open = css.find(L'{', pos);
    if (css[pos] == L'@') {
      const std::size_t semicolon = css.find(L';', pos);
      if (semicolon != std::wstring_view::npos && (open == std::wstring_view::npos || semicolon < open))
        pos = semicolon + 1;
      else
        pos = open == std::wstring_view::npos ? css.size() : blockEnd(css, open);
      continue;
    }
    if (open == std::wstring_view::npos) break;
    const std::size_t close = std::min(css.find(L'}', open), css.size());
    StyleRule rule{std::wstring(trimmed(css.substr(pos, open - pos))),
                   parseInlineStyle(css.substr(open + 1, close - open - 1))};
    if (!rule.selectors.empty() && !rule.declarations.empty()) rules.push_back(std::move(rule));
    pos = close == css.size() ? close : close + 1;
  }
  return rules;
}

}  // namespace kvt1::html
