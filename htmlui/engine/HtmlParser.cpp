#include "htmlui/engine/HtmlParser.h"

#include <cwctype>
#include <initializer_list>
#include <string>

#include "platform/CaseFolding.h"
#include "platform/Unicode.h"
#include "text/XmlEntities.h"

namespace kvt1::html {
namespace {

bool isSpace(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\n' || c == L'\r' || c == L'\f'; }

bool isNameChar(wchar_t c) {
  return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || (c >= L'0' && c <= L'9') || c == L'_' || c == L'-' ||
         c == L':' || c > 0x7F;
}

bool isLetter(wchar_t c) { return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z'); }

bool oneOf(const std::string& tag, std::initializer_list<const char*> names) {
  for (const char* name : names)
    if (tag == name) return true;
  return false;
}

std::wstring decoded(std::wstring_view raw) {
  std::wstring out;
  out.reserve(raw.size());
  appendXmlDecoded(out, raw);
  return out;
}

// Which open element a new tag closes (with everything opened inside it),
// and which open elements shield it.
struct ImpliedEnd {
  std::initializer_list<const char*> tags;
  std::initializer_list<const char*> closes;
  std::initializer_list<const char*> stops;
};

const ImpliedEnd kImpliedEnds[] = {
    {{"li"}, {"li"}, {"ul", "ol", "menu", "dir"}},
    {{"option"}, {"option"}, {"select", "datalist", "optgroup"}},
    {{"optgroup"}, {"optgroup"}, {"select"}},
    {{"tr"}, {"tr"}, {"table", "tbody", "thead", "tfoot"}},
    {{"td", "th"}, {"td", "th"}, {"tr", "table"}},
    {{"thead", "tbody", "tfoot"}, {"thead", "tbody", "tfoot"}, {"table"}},
    {{"dt", "dd"}, {"dt", "dd"}, {"dl"}},
    {{"p", "div", "ul", "ol", "menu", "table", "form", "pre", "h1", "h2", "h3", "h4", "h5", "h6", "dl"},
     {"p"},
     {"div", "li", "td", "th", "table", "body", "html", "form", "menu", "ul", "ol", "button"}},
};

class Parser {
 public:
  Parser(std::wstring_view text, DomTree& tree) : text_(text), tree_(tree) {}

  std::vector<Node> run() {
    while (pos_ < text_.size()) {
      const std::size_t lt = text_.find(L'<', pos_);
      if (lt == std::wstring_view::npos) {
        appendText(decoded(text_.substr(pos_)));
        break;
      }
      if (lt > pos_) appendText(decoded(text_.substr(pos_, lt - pos_)));
      pos_ = lt;
      const wchar_t next = lt + 1 < text_.size() ? text_[lt + 1] : 0;
      if (text_.compare(lt, 4, L"<!--") == 0) {
        skipPast(L"-->", lt + 4);
      } else if (next == L'!' || next == L'?') {
        skipPast(L">", lt + 2);
      } else if (next == L'/') {
        endTag();
      } else if (isLetter(next)) {
        startTag();
      } else {
        appendText(L"<");
        ++pos_;
      }
    }
    return std::move(top_);
  }

 private:
  void skipPast(std::wstring_view marker, std::size_t from) {
    const std::size_t at = text_.find(marker, from);
    pos_ = at == std::wstring_view::npos ? text_.size() : at + marker.size();
  }

  void appendNode(Node node) {
    std::vector<Node>& into = open_.empty() ? top_ : open_.back()->children;
    if (node.element == nullptr && !into.empty() && into.back().element == nullptr) {
      into.back().text += node.text;
      return;
    }
    if (open_.empty())
      top_.push_back(std::move(node));
    else
      tree_.append(*open_.back(), std::move(node));
  }

  void appendText(std::wstring text) {
    if (!text.empty()) appendNode(Node{nullptr, std::move(text)});
  }

  std::wstring_view readWhile(std::size_t& p, bool (*accept)(wchar_t)) {
    const std::size_t start = p;
    while (p < text_.size() && accept(text_[p])) ++p;
    return text_.substr(start, p - start);
  }

  void skipSpaces(std::size_t& p) {
    while (p < text_.size() && isSpace(text_[p])) ++p;
  }

  bool atTagEnd(std::size_t p) const {
    return p >= text_.size() || text_[p] == L'>' || (text_[p] == L'/' && p + 1 < text_.size() && text_[p + 1] == L'>');
  }

  // A shorthand token after ".", "#" or "|": up to a space, the tag's end or the next shorthand.
  std::wstring_view readShorthand(std::size_t& p) {
    const std::size_t start = p;
    while (p < text_.size() && !isSpace(text_[p]) && !atTagEnd(p) && text_[p] != L'.' && text_[p] != L'#' &&
           text_[p] != L'|' && text_[p] != L'(')
      ++p;
    return text_.substr(start, p - start);
  }

  void addAttribute(Element& element, const std::string& name, const std::wstring& value) {
    if (name.empty()) return;
    if (platform::asciiEqualsIgnoringCase(name, "class")) {
      const std::wstring* existing = tree_.attributeValue(element, "class");
      if (existing != nullptr) {
        if (value.empty()) return;
        tree_.setAttribute(element, "class", existing->empty() ? value : *existing + L" " + value);
        return;
      }
    } else if (tree_.attributeValue(element, name) != nullptr) {
      return;  // the first of two equal names counts
    }
    tree_.setAttribute(element, name, value);
  }

  void readAttributes(Element& element, std::size_t& p, bool& selfClosed) {
    for (;;) {
      skipSpaces(p);
      if (p >= text_.size()) return;
      const wchar_t c = text_[p];
      if (c == L'>') {
        ++p;
        return;
      }
      if (c == L'/') {
        if (p + 1 < text_.size() && text_[p + 1] == L'>') {
          selfClosed = true;
          p += 2;
          return;
        }
        ++p;
        continue;
      }
      if (c == L'.' || c == L'#' || c == L'|') {
        ++p;
        const std::wstring token = decoded(readShorthand(p));
        if (token.empty()) continue;
        addAttribute(element, c == L'.' ? "class" : c == L'#' ? "id" : "type", token);
        continue;
      }
      if (c == L'(') {
        const std::size_t close = text_.find(L')', p + 1);
        const std::size_t end = close == std::wstring_view::npos ? text_.size() : close;
        addAttribute(element, "name", decoded(text_.substr(p + 1, end - p - 1)));
        p = close == std::wstring_view::npos ? end : end + 1;
        continue;
      }
      const std::size_t nameStart = p;
      while (p < text_.size() && !isSpace(text_[p]) && text_[p] != L'=' && !atTagEnd(p)) ++p;
      if (p == nameStart) {
        ++p;  // a stray "=": skipped
        continue;
      }
      const std::string name = platform::toUtf8(text_.substr(nameStart, p - nameStart));
      std::size_t afterName = p;
      skipSpaces(afterName);
      if (afterName >= text_.size() || text_[afterName] != L'=') {
        addAttribute(element, name, std::wstring());
        continue;
      }
      p = afterName + 1;
      skipSpaces(p);
      std::wstring_view raw;
      if (p < text_.size() && (text_[p] == L'"' || text_[p] == L'\'')) {
        const std::size_t close = text_.find(text_[p], p + 1);
        const std::size_t end = close == std::wstring_view::npos ? text_.size() : close;
        raw = text_.substr(p + 1, end - p - 1);
        p = close == std::wstring_view::npos ? end : end + 1;
      } else {
        const std::size_t start = p;
        while (p < text_.size() && !isSpace(text_[p]) && text_[p] != L'>') ++p;
        raw = text_.substr(start, p - start);
      }
      addAttribute(element, name, decoded(raw));
    }
  }

  void closeImplied(const std::string& tag) {
    for (const ImpliedEnd& rule : kImpliedEnds) {
      if (!oneOf(tag, rule.tags)) continue;
      for (std::size_t i = open_.size(); i-- > 0;) {
        const std::string& open = open_[i]->tag;
        if (oneOf(open, rule.closes)) {
          open_.resize(i);
          break;
        }
        if (oneOf(open, rule.stops)) break;
      }
    }
  }

  void startTag() {
    std::size_t p = pos_ + 1;
    const std::string tag = platform::asciiLowerCase(platform::toUtf8(readWhile(p, isNameChar)));
    closeImplied(tag);
    if (open_.size() >= kMaxNesting) open_.pop_back();
    Element* element = tree_.create(tag);
    bool selfClosed = false;
    readAttributes(*element, p, selfClosed);
    pos_ = p;
    appendNode(Node{element, {}});
    if (selfClosed || isVoidElement(tag)) return;
    if (isRawTextElement(tag)) {
      readRawText(*element, tag);
      return;
    }
    open_.push_back(element);
  }

  void readRawText(Element& element, const std::string& tag) {
    const std::wstring closing = L"</" + platform::fromUtf8(tag);
    std::size_t end = pos_;
    for (;;) {
      end = text_.find(L"</", end);
      if (end == std::wstring_view::npos) break;
      if (platform::asciiLowerCase(text_.substr(end, closing.size())) == closing) break;
      end += 2;
    }
    const std::size_t contentEnd = end == std::wstring_view::npos ? text_.size() : end;
    std::wstring_view raw = text_.substr(pos_, contentEnd - pos_);
    std::wstring content = tag == "textarea" ? decoded(raw) : std::wstring(raw);
    if (!content.empty()) tree_.append(element, Node{nullptr, std::move(content)});
    if (end == std::wstring_view::npos)
      pos_ = text_.size();
    else
      skipPast(L">", end);
  }

  void endTag() {
    std::size_t p = pos_ + 2;
    const std::string tag = platform::asciiLowerCase(platform::toUtf8(readWhile(p, isNameChar)));
    skipPast(L">", p);
    if (tag.empty()) return;
    for (std::size_t i = open_.size(); i-- > 0;) {
      if (open_[i]->tag == tag) {
        open_.resize(i);
        return;
      }
    }
  }

  std::wstring_view text_;
  DomTree& tree_;
  std::size_t pos_ = 0;
  std::vector<Node> top_;
  std::vector<Element*> open_;
};

}  // namespace

std::vector<Node> parseHtml(std::wstring_view text, DomTree& tree) { return Parser(text, tree).run(); }

bool isVoidElement(std::string_view tag) {
  return tag == "br" || tag == "img" || tag == "input" || tag == "hr" || tag == "meta" || tag == "link";
}

bool isRawTextElement(std::string_view tag) { return tag == "style" || tag == "script" || tag == "textarea"; }

}  // namespace kvt1::html
