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
    {STATE_CHECKED, L"kvt1-checked"},   {STATE_CURRENT, L"kvt1-current"}, {STATE_EXPANDED, L"kvt1-expanded"},
    {STATE_COLLAPSED, L"kvt1-collapsed"}, {STATE_DISABLED, L"kvt1-disabled"}, {STATE_FOCUS, L"kvt1-focus"},
    {STATE_HOVER, L"kvt1-hover"},       {STATE_POPUP, L"kvt1-popup"},
};

void appendEscaped(std::wstring& out, const std::wstring& text, bool attribute) {
  for (const wchar_t c : text) {
    switch (c) {
      case L'&': out += L"&amp;"; break;
      case L'<': out += L"&lt;"; break;
      case L'>': out += attribute ? L">" : L"&gt;"; break;
      case L'"': out += attribute ? L"&quot;" : L"\""; break;
      default: out += c;
    }
  }
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
  Writer(const DomTree& tree, const std::map<std::wstring, std::wstring>* imports)
      : imports_(imports), classKey_(tree.atoms().find(L"class")), styleKey_(tree.atoms().find(L"style")) {}

  void element(const Element& e) {
    out += L'<';
    out += platform::fromUtf8(e.tag);
    if (imports_ != nullptr)
      layoutAttributes(e);
    else
      for (const Attribute& a : e.attributes) appendAttribute(out, platform::fromUtf8(a.name), a.value);
    out += L'>';
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
  void layoutAttributes(const Element& e) {
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
    const std::wstring style = writeInlineStyle(mergedStyle(e, e.attributeValue(styleKey_)));
    if (!style.empty()) appendAttribute(out, L"style", style);
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
                             const std::map<std::wstring, std::wstring>& importedStyles) {
  Writer writer(tree, &importedStyles);
  writer.element(root);
  return std::move(writer.out);
}

std::wstring innerText(const Element& element) {
  std::wstring out;
  appendText(out, element);
  return out;
}

}  // namespace kvt1::html
