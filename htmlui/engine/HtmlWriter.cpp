#include "htmlui/engine/HtmlWriter.h"

#include "htmlui/engine/HtmlParser.h"
#include "htmlui/engine/InlineStyle.h"
#include "htmlui/engine/StyleImports.h"
#include "platform/Unicode.h"

namespace kvt1::html {
namespace {

// Imported sheets may import others; deeper chains are left as rules.
constexpr int kMaxImportDepth = 4;

struct StateClass {
  UINT bit;
  const wchar_t* name;
};

const StateClass kStateClasses[] = {
    {STATE_CHECKED, L"kvt1-checked"},     {STATE_CURRENT, L"kvt1-current"},   {STATE_EXPANDED, L"kvt1-expanded"},
    {STATE_COLLAPSED, L"kvt1-collapsed"}, {STATE_DISABLED, L"kvt1-disabled"}, {STATE_FOCUS, L"kvt1-focus"},
    {STATE_HOVER, L"kvt1-hover"},         {STATE_POPUP, L"kvt1-popup"},
};

void appendEscaped(std::wstring& out, const std::wstring& text, bool attribute) {
  for (const wchar_t c : text) {
    switch (c) {
      case L'&':
        out += L"&amp;";
        break;
      case L'<':
        out += L"&lt;";
        break;
      case L'>':
        out += attribute ? L">" : L"&gt;";
        break;
      case L'"':
        out += attribute ? L"&quot;" : L"\"";
        break;
      default:
        out += c;
    }
  }
}

void setDeclaration(StyleDeclarations& style, const char* name, std::wstring value) {
  for (auto& declaration : style) {
    if (declaration.first == name) {
      declaration.second = std::move(value);
      return;
    }
  }
  style.emplace_back(name, std::move(value));
}

const std::wstring* declaration(const StyleDeclarations& style, const char* name) {
  for (const auto& [key, value] : style)
    if (key == name) return &value;
  return nullptr;
}

// The colour of "color-schema(colour,...)"; empty for any other value.
std::wstring schemaColour(const std::wstring& transformation) {
  const std::wstring prefix = L"color-schema(";
  if (transformation.compare(0, prefix.size(), prefix) != 0) return {};
  const std::size_t end = transformation.find_first_of(L",)", prefix.size());
  return end == std::wstring::npos ? std::wstring() : transformation.substr(prefix.size(), end - prefix.size());
}

// What litehtml does not know, written as what it draws; returns the colour
// of a swatch to draw before the content, or empty.
std::wstring layoutStyle(StyleDeclarations& style, const std::map<std::uint32_t, POINT>* popups, std::uint32_t node) {
  if (popups != nullptr) {
    const auto placed = popups->find(node);
    if (placed != popups->end()) {
      setDeclaration(style, "position", L"absolute");
      setDeclaration(style, "left", std::to_wstring(placed->second.x) + L"px");
      setDeclaration(style, "top", std::to_wstring(placed->second.y) + L"px");
    }
  }
  const std::wstring* transformation = declaration(style, "foreground-image-transformation");
  const std::wstring swatch = transformation != nullptr ? schemaColour(*transformation) : std::wstring();
  const std::wstring* image = declaration(style, "foreground-image");
  if (swatch.empty() && image != nullptr && declaration(style, "background-image") == nullptr) {
    const std::wstring url = *image;  // a copy: adding declarations may move the one image points to
    setDeclaration(style, "background-image", url);
    setDeclaration(style, "background-repeat", L"no-repeat");
    setDeclaration(style, "background-position", L"4px 50%");
  }
  return swatch;
}

void appendAttribute(std::wstring& out, const std::wstring& name, const std::wstring& value) {
  out += L' ';
  out += name;
  out += L"=\"";
  appendEscaped(out, value, true);
  out += L'"';
}

class Writer {
 public:
  Writer(const DomTree& tree, const std::map<std::wstring, std::wstring>* imports,
         const std::map<std::uint32_t, POINT>* popups = nullptr)
      : imports_(imports),
        popups_(popups),
        classKey_(tree.atoms().find(L"class")),
        styleKey_(tree.atoms().find(L"style")) {}

  void element(const Element& e) {
    out += L'<';
    out += platform::fromUtf8(e.tag);
    std::wstring swatch;
    if (imports_ != nullptr)
      swatch = layoutAttributes(e);
    else
      for (const Attribute& a : e.attributes) appendAttribute(out, platform::fromUtf8(a.name), a.value);
    out += L'>';
    if (!swatch.empty()) {
      out += L"<span class=\"kvt1-swatch\"";
      appendAttribute(out, L"style", L"background-color:" + swatch + L";");
      out += L"></span>";
    }
    if (isVoidElement(e.tag)) return;
    content(e);
    out += L"</";
    out += platform::fromUtf8(e.tag);
    out += L'>';
  }

  void content(const Element& e) {
    const bool raw = e.tag == "style" || e.tag == "script";
    for (const Node& node : e.children) {
      if (node.element != nullptr)
        element(*node.element);
      else if (raw && imports_ != nullptr && e.tag == "style")
        styleText(node.text, 0);
      else if (raw)
        out += node.text;
      else
        appendEscaped(out, node.text, false);
    }
  }

  std::wstring out;

 private:
  std::wstring layoutAttributes(const Element& e) {
    appendAttribute(out, L"kvt1-node", std::to_wstring(e.number));
    for (const Attribute& a : e.attributes)
      if (a.key != classKey_ && a.key != styleKey_) appendAttribute(out, platform::fromUtf8(a.name), a.value);
    std::wstring classes;
    if (const std::wstring* given = e.attributeValue(classKey_)) classes = *given;
    for (const StateClass& state : kStateClasses) {
      if ((e.state & state.bit) == 0) continue;
      if (!classes.empty()) classes += L' ';
      classes += state.name;
    }
    if (!classes.empty()) appendAttribute(out, L"class", classes);
    StyleDeclarations declarations = mergedStyle(e, e.attributeValue(styleKey_));
    const std::wstring swatch = layoutStyle(declarations, popups_, e.number);
    const std::wstring style = writeInlineStyle(declarations);
    if (!style.empty()) appendAttribute(out, L"style", style);
    return swatch;
  }

  void styleText(const std::wstring& css, int depth) {
    std::size_t pos = 0;
    for (const StyleImport& rule : findStyleImports(css)) {
      const auto imported = imports_->find(rule.uri);
      if (imported == imports_->end() || depth >= kMaxImportDepth) continue;
      out.append(css, pos, rule.begin - pos);
      styleText(imported->second, depth + 1);
      pos = rule.end;
    }
    out.append(css, pos, std::wstring::npos);
  }

  const std::map<std::wstring, std::wstring>* imports_;
  const std::map<std::uint32_t, POINT>* popups_;
  Atom classKey_;
  Atom styleKey_;
};

void appendText(std::wstring& out, const Element& e) {
  if (e.tag == "style" || e.tag == "script") return;
  for (const Node& node : e.children) {
    if (node.element != nullptr)
      appendText(out, *node.element);
    else
      out += node.text;
  }
}

}  // namespace

std::wstring writeOuterHtml(const Element& element, const DomTree& tree) {
  Writer writer(tree, nullptr);
  writer.element(element);
  return std::move(writer.out);
}

std::wstring writeInnerHtml(const Element& element, const DomTree& tree) {
  Writer writer(tree, nullptr);
  writer.content(element);
  return std::move(writer.out);
}

std::wstring writeLayoutHtml(const Element& root, const DomTree& tree,
                             const std::map<std::wstring, std::wstring>& importedStyles,
                             const std::map<std::uint32_t, POINT>* popupPositions) {
  Writer writer(tree, &importedStyles, popupPositions);
  writer.element(root);
  return std::move(writer.out);
}

std::wstring innerText(const Element& element) {
  std::wstring out;
  appendText(out, element);
  return out;
}

}  // namespace kvt1::html
