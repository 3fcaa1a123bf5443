// libFuzzer target: any bytes as a dialog page: its page tags filled (a tag
// may bring its own text back), cut after "</html>", parsed into the
// engine's tree, and queried with a selector the input may carry after a
// line "//".
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "htmlui/HTMPage.h"
#include "htmlui/engine/CssSelector.h"
#include "htmlui/engine/DomTree.h"
#include "htmlui/engine/HtmlParser.h"
#include "platform/CodePage.h"
#include "platform/TextDecoding.h"

namespace {

// The page's elements in document order, with their descendants.
void visit(const kvt1::html::Element& element, const kvt1::html::Selector& selector, std::size_t& matches) {
  if (selector.matches(element, nullptr)) ++matches;
  for (const kvt1::html::Node& node : element.children) {
    if (node.element != nullptr) visit(*node.element, selector, matches);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t split = input.find("\n//");
  std::wstring page = kvt1::platform::decodeText(input.substr(0, split), kvt1::platform::kCodePageUtf8);
  const std::wstring selectorText =
      split == std::string_view::npos
          ? std::wstring(L"div > b, [status=\"checked\"], :root *")
          : kvt1::platform::decodeText(input.substr(split + 3), kvt1::platform::kCodePageUtf8);

  kvt1::substitutePageTags(page,
                           [](const std::wstring& tag) { return tag.size() % 3 == 0 ? L"<[" + tag + L"]>" : tag; });
  page = kvt1::cutAfterHtmlEnd(std::move(page));

  kvt1::html::DomTree tree;
  kvt1::html::Element* root = tree.create("html");
  tree.insert(*root, 0, kvt1::html::parseHtml(page, tree));
  const std::optional<kvt1::html::Selector> selector = kvt1::html::Selector::compile(selectorText, tree.atoms());
  if (!selector) return 0;
  std::size_t matches = 0;
  visit(*root, *selector, matches);
  if (matches > tree.size()) __builtin_trap();
  return 0;
}
