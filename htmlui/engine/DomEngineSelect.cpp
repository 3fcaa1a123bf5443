// Finding elements: selectors, parents by selector, and the tag and
// attribute walk.
#include <algorithm>
#include <string_view>

#include "htmlui/engine/CssSelector.h"
#include "htmlui/engine/DomEngine.h"
#include "platform/CaseFolding.h"
#include "platform/Unicode.h"

namespace kvt1::html {
namespace {

// "*" any run, "?" any one character.
template <class Char>
bool wildcardMatch(std::basic_string_view<Char> pattern, std::basic_string_view<Char> text) {
  std::size_t p = 0, t = 0, star = std::basic_string_view<Char>::npos, resume = 0;
  while (t < text.size()) {
    if (p < pattern.size() && (pattern[p] == Char('?') || pattern[p] == text[t])) {
      ++p;
      ++t;
    } else if (p < pattern.size() && pattern[p] == Char('*')) {
      star = p++;
      resume = t;
    } else if (star != std::basic_string_view<Char>::npos) {
      p = star + 1;
      t = ++resume;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == Char('*')) ++p;
  return p == pattern.size();
}

std::vector<std::string> tagList(LPCSTR tagNames) {
  std::vector<std::string> tags;
  if (tagNames == nullptr) return tags;
  std::string_view rest(tagNames);
  while (!rest.empty()) {
    const std::size_t comma = rest.find(',');
    std::string_view tag = rest.substr(0, comma);
    while (!tag.empty() && tag.front() == ' ') tag.remove_prefix(1);
    while (!tag.empty() && tag.back() == ' ') tag.remove_suffix(1);
    if (!tag.empty()) tags.push_back(platform::asciiLowerCase(tag));
    if (comma == std::string_view::npos) break;
    rest.remove_prefix(comma + 1);
  }
  return tags;
}

}  // namespace

HLDOM_RESULT DomEngine::select(HELEMENT he, const std::wstring& selectors, HTMLayoutElementCallback* cb, LPVOID param) {
  Element* scope = element(he);
  if (scope == nullptr) return HLDOM_INVALID_HANDLE;
  if (cb == nullptr) return HLDOM_INVALID_PARAMETER;
  const std::optional<Selector> selector = Selector::compile(selectors, tree_.atoms());
  if (!selector) return HLDOM_INVALID_PARAMETER;
  std::vector<std::pair<Element*, std::uint32_t>> found;
  const std::vector<OrderEntry>& order = tree_.order(*scope->top());
  for (std::uint32_t i = scope->orderIndex + 1; i < scope->orderEnd; ++i) {
    if (!selector->rejects(order[i]) && selector->matches(order.data(), i, scope))
      found.emplace_back(order[i].element, order[i].element->number);
  }
  // Elements are only ever destroyed with a change of structure: until a
  // callback makes one, the pointers found are still the elements.
  const std::uint64_t structure = tree_.structureVersion();
  for (const auto& [pointer, number] : found) {
    Element* e = tree_.structureVersion() == structure ? pointer : tree_.find(number);
    if (e != nullptr && cb(toHandle(e), param)) break;
  }
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::SelectElements(HELEMENT he, LPCSTR selectors, HTMLayoutElementCallback* cb, LPVOID param) {
  if (selectors == nullptr) return element(he) == nullptr ? HLDOM_INVALID_HANDLE : HLDOM_INVALID_PARAMETER;
  return select(he, platform::fromUtf8(selectors), cb, param);
}

HLDOM_RESULT DomEngine::SelectElementsW(HELEMENT he, LPCWSTR selectors, HTMLayoutElementCallback* cb, LPVOID param) {
  if (selectors == nullptr) return element(he) == nullptr ? HLDOM_INVALID_HANDLE : HLDOM_INVALID_PARAMETER;
  return select(he, selectors, cb, param);
}

HLDOM_RESULT DomEngine::selectParent(HELEMENT he, const std::wstring& text, UINT depth, HELEMENT* heFound) {
  Element* e = element(he);
  if (e == nullptr) return HLDOM_INVALID_HANDLE;
  if (heFound == nullptr) return HLDOM_INVALID_PARAMETER;
  *heFound = nullptr;
  const std::optional<Selector> selector = Selector::compile(text, tree_.atoms());
  if (!selector) return HLDOM_INVALID_PARAMETER;
  const Element* scope = e->top();
  UINT level = 0;
  for (Element* p = e; p != nullptr && (depth == 0 || level < depth); p = p->parent, ++level) {
    if (selector->matches(*p, scope)) {
      *heFound = toHandle(p);
      break;
    }
  }
  return HLDOM_OK;
}

HLDOM_RESULT DomEngine::SelectParent(HELEMENT he, LPCSTR selector, UINT depth, HELEMENT* heFound) {
  if (selector == nullptr) return element(he) == nullptr ? HLDOM_INVALID_HANDLE : HLDOM_INVALID_PARAMETER;
  return selectParent(he, platform::fromUtf8(selector), depth, heFound);
}

HLDOM_RESULT DomEngine::SelectParentW(HELEMENT he, LPCWSTR selector, UINT depth, HELEMENT* heFound) {
  if (selector == nullptr) return element(he) == nullptr ? HLDOM_INVALID_HANDLE : HLDOM_INVALID_PARAMETER;
  return selectParent(he, selector, depth, heFound);
}

HLDOM_RESULT DomEngine::VisitElements(HELEMENT he, LPCSTR tagName, LPCSTR attributeName, LPCWSTR attributeValue,
                                      HTMLayoutElementCallback* cb, LPVOID param, DWORD depth) {
  Element* root = element(he);
  if (root == nullptr) return HLDOM_INVALID_HANDLE;
  if (cb == nullptr) return HLDOM_INVALID_PARAMETER;
  const std::vector<std::string> tags = tagList(tagName);
  const std::string attributePattern =
      attributeName != nullptr ? platform::asciiLowerCase(attributeName) : std::string();
  const std::wstring_view valuePattern = attributeValue != nullptr ? attributeValue : L"";
  const auto matches = [&](const Element& e) {
    if (!tags.empty() && std::find(tags.begin(), tags.end(), e.tag) == tags.end()) return false;
    if (attributeName == nullptr) return true;
    for (const Attribute& a : e.attributes) {
      if (!wildcardMatch<char>(attributePattern, platform::asciiLowerCase(a.name))) continue;
      if (attributeValue == nullptr || wildcardMatch<wchar_t>(valuePattern, a.value)) return true;
    }
    return false;
  };
  std::vector<std::uint32_t> found;
  forEachDescendant(*root, [&](Element& e, std::size_t level) {
    if (matches(e)) found.push_back(e.number);
    return depth == 0 || level < depth;
  });
  for (const std::uint32_t n : found) {
    Element* e = tree_.find(n);
    if (e != nullptr && cb(toHandle(e), param)) break;
  }
  return HLDOM_OK;
}

}  // namespace kvt1::html
