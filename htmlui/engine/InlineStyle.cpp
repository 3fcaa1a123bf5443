#include "htmlui/engine/InlineStyle.h"

#include "htmlui/engine/DomAtoms.h"
#include "platform/CaseFolding.h"
#include "platform/Unicode.h"

namespace kvt1::html {
namespace {

std::wstring_view trimmed(std::wstring_view text) {
  const auto space = [](wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n' || c == L'\f'; };
  while (!text.empty() && space(text.front())) text.remove_prefix(1);
  while (!text.empty() && space(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace

StyleDeclarations parseInlineStyle(std::wstring_view text) {
  StyleDeclarations out;
  std::size_t pos = 0;
  while (pos < text.size()) {
    std::size_t end = text.find(L';', pos);
    if (end == std::wstring_view::npos) end = text.size();
    const std::wstring_view declaration = text.substr(pos, end - pos);
    const std::size_t colon = declaration.find(L':');
    if (colon != std::wstring_view::npos) {
      const std::wstring_view name = trimmed(declaration.substr(0, colon));
      const std::wstring_view value = trimmed(declaration.substr(colon + 1));
      if (!name.empty() && !value.empty())
        out.emplace_back(platform::asciiLowerCase(platform::toUtf8(name)), std::wstring(value));
    }
    pos = end + 1;
  }
  return out;
}

std::wstring writeInlineStyle(const StyleDeclarations& declarations) {
  std::wstring out;
  for (const auto& [name, value] : declarations) {
    if (!out.empty()) out += L' ';
    out += platform::fromUtf8(name);
    out += L':';
    out += value;
    out += L';';
  }
  return out;
}

std::optional<std::wstring> effectiveStyle(const Element& element, const std::wstring* inlineStyle,
                                           std::string_view name) {
  const std::string lowered = platform::asciiLowerCase(name);
  for (const auto& [key, value] : element.runtimeStyles)
    if (key == lowered) return value;
  if (inlineStyle == nullptr) return std::nullopt;
  std::optional<std::wstring> found;
  for (auto& [key, value] : parseInlineStyle(*inlineStyle))
    if (key == lowered) found = std::move(value);  // the last declaration wins
  return found;
}

StyleDeclarations mergedStyle(const Element& element, const std::wstring* inlineStyle) {
  StyleDeclarations out = inlineStyle != nullptr ? parseInlineStyle(*inlineStyle) : StyleDeclarations();
  for (const auto& [key, value] : element.runtimeStyles) {
    bool replaced = false;
    for (auto& declaration : out) {
      if (declaration.first == key) {
        declaration.second = value;
        replaced = true;
      }
    }
    if (!replaced) out.emplace_back(key, value);
  }
  return out;
}

}  // namespace kvt1::html
