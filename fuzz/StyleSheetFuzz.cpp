// libFuzzer target: any text as a style sheet: its rules, each rule's
// selectors compiled, its declarations written back as an inline style that
// reads again to the same declarations.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "htmlui/engine/CssSelector.h"
#include "htmlui/engine/DomAtoms.h"
#include "htmlui/engine/InlineStyle.h"
#include "htmlui/engine/StyleRules.h"
#include "platform/Unicode.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::wstring css = kvt1::platform::fromUtf8(std::string_view(reinterpret_cast<const char*>(data), size));
  kvt1::html::AtomTable atoms;
  for (const kvt1::html::StyleRule& rule : kvt1::html::parseStyleRules(css)) {
    kvt1::html::Selector::compileInterned(rule.selectors, atoms);
    const std::wstring written = kvt1::html::writeInlineStyle(rule.declarations);
    if (kvt1::html::writeInlineStyle(kvt1::html::parseInlineStyle(written)) != written) __builtin_trap();
  }
  kvt1::html::parseInlineStyle(css);
  return 0;
}
