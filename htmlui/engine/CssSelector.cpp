#include "htmlui/engine/CssSelector.h"

#include <algorithm>
#include <bitset>

#include "platform/CaseFolding.h"

namespace kvt1::html {
namespace {

using Compound = Selector::Compound;
using Complex = Selector::Complex;
using Op = Selector::Op;

bool isSpace(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n' || c == L'\f'; }

bool isIdentChar(wchar_t c) {
  return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || (c >= L'0' && c <= L'9') || c == L'_' || c == L'-' ||
         c > 0x7F;
}

struct StatePseudo {
  const wchar_t* name;
  UINT bit;
};

const StatePseudo kStatePseudos[] = {
    {L"checked", STATE_CHECKED},     {L"current", STATE_CURRENT},   {L"expanded", STATE_EXPANDED},
    {L"collapsed", STATE_COLLAPSED}, {L"disabled", STATE_DISABLED}, {L"focus", STATE_FOCUS},
    {L"popup", STATE_POPUP},         {L"hover", STATE_HOVER},
};

class Compiler {
 public:
  Compiler(std::wstring_view text, const AtomTable& atoms, AtomTable* interning)
      : text_(text), atoms_(atoms), interning_(interning) {}

  bool list(std::vector<Complex>& out) {
    for (;;) {
      skipSpaces();
      Complex complex;
      if (!parseComplex(complex)) return false;
      out.push_back(std::move(complex));
      skipSpaces();
      if (pos_ >= text_.size()) return true;
      if (text_[pos_] != L',') return false;
      ++pos_;
    }
  }

 private:
  void skipSpaces() {
    while (pos_ < text_.size() && isSpace(text_[pos_])) ++pos_;
  }

  bool at(wchar_t c) const { return pos_ < text_.size() && text_[pos_] == c; }

  // The atom of a name; without interning, kNoAtom for a name never seen.
  Atom atomOf(std::wstring_view name) const {
    return interning_ != nullptr ? interning_->intern(name) : atoms_.find(name);
  }

  std::wstring_view ident() {
    const std::size_t start = pos_;
    while (pos_ < text_.size() && isIdentChar(text_[pos_])) ++pos_;
    return text_.substr(start, pos_ - start);
  }

  bool parseComplex(Complex& complex) {
    Compound first;
    if (!parseCompound(first)) return false;
    complex.compounds.push_back(std::move(first));
    for (;;) {
      const std::size_t before = pos_;
      skipSpaces();
      if (pos_ >= text_.size() || at(L',')) return true;
      bool child = false;
      if (at(L'>')) {
        child = true;
        ++pos_;
        skipSpaces();
      } else if (pos_ == before) {
        return false;
      }
      Compound next;
      if (!parseCompound(next)) return false;
      complex.child.push_back(child);
      complex.compounds.push_back(std::move(next));
    }
  }

  bool parseCompound(Compound& c) {
    bool any = false;
    if (at(L'*')) {
      ++pos_;
      any = true;
    } else if (pos_ < text_.size() && isIdentChar(text_[pos_])) {
      c.tag = atomOf(platform::asciiLowerCase(ident()));
      if (c.tag == kNoAtom) c.impossible = true;
      any = true;
    }
    for (;;) {
      if (at(L'#') || at(L'.')) {
        const bool isId = at(L'#');
        ++pos_;
        const std::wstring_view name = ident();
        if (name.empty()) return false;
        const Atom atom = atomOf(name);
        if (atom == kNoAtom) c.impossible = true;
        if (isId) {
          if (c.hasId && c.id != atom) c.impossible = true;
          c.hasId = true;
          c.id = atom;
        } else {
          c.classes.push_back(atom);
          c.classMask |= atomBit(atom);
        }
      } else if (at(L'[')) {
        if (!parseAttribute(c)) return false;
      } else if (at(L':')) {
        if (!parsePseudo(c)) return false;
      } else {
        return any;
      }
      any = true;
    }
  }

  bool parseAttribute(Compound& c) {
    ++pos_;
    skipSpaces();
    const std::wstring_view name = ident();
    if (name.empty()) return false;
    Selector::AttributeTest test;
    test.key = atomOf(platform::asciiLowerCase(name));
    if (test.key == kNoAtom) c.impossible = true;
    c.attributeMask |= atomBit(test.key);
    skipSpaces();
    if (!at(L']')) {
      if (at(L'=')) {
        test.op = Op::Equals;
        ++pos_;
      } else if (pos_ + 1 < text_.size() && text_[pos_ + 1] == L'=') {
        switch (text_[pos_]) {
          case L'~':
            test.op = Op::Includes;
            break;
          case L'^':
            test.op = Op::Prefix;
            break;
          case L'$':
            test.op = Op::Suffix;
            break;
          case L'*':
            test.op = Op::Contains;
            break;
          default:
            return false;
        }
        pos_ += 2;
      } else {
        return false;
      }
      skipSpaces();
      if (at(L'"') || at(L'\'')) {
        const wchar_t quote = text_[pos_];
        const std::size_t close = text_.find(quote, pos_ + 1);
        if (close == std::wstring_view::npos) return false;
        test.value.assign(text_.substr(pos_ + 1, close - pos_ - 1));
        pos_ = close + 1;
      } else {
        const std::size_t start = pos_;
        while (pos_ < text_.size() && !isSpace(text_[pos_]) && text_[pos_] != L']' && text_[pos_] != L'[' &&
               text_[pos_] != L'"' && text_[pos_] != L'\'')
          ++pos_;
        if (pos_ == start) return false;
        test.value.assign(text_.substr(start, pos_ - start));
      }
      skipSpaces();
      if (!at(L']')) return false;
    }
    ++pos_;
    c.attributes.push_back(std::move(test));
    return true;
  }

  bool parsePseudo(Compound& c) {
    ++pos_;
    const std::wstring name = platform::asciiLowerCase(ident());
    if (name == L"root") {
      c.root = true;
    } else if (name == L"first-child") {
      c.firstChild = true;
    } else if (name == L"last-child") {
      c.lastChild = true;
    } else if (name == L"not") {
      if (!at(L'(')) return false;
      ++pos_;
      skipSpaces();
      Compound negated;
      if (!parseCompound(negated)) return false;
      skipSpaces();
      if (!at(L')')) return false;
      ++pos_;
      c.negations.push_back(std::move(negated));
    } else {
      for (const StatePseudo& state : kStatePseudos) {
        if (name == state.name) {
          c.states |= state.bit;
          return true;
        }
      }
      return false;
    }
    return true;
  }

  std::wstring_view text_;
  const AtomTable& atoms_;
  AtomTable* interning_;
  std::size_t pos_ = 0;
};

bool hasWord(const std::wstring& text, const std::wstring& word) {
  if (word.empty()) return false;
  std::size_t pos = 0;
  while ((pos = text.find(word, pos)) != std::wstring::npos) {
    const bool startOk = pos == 0 || isSpace(text[pos - 1]);
    const std::size_t end = pos + word.size();
    if (startOk && (end == text.size() || isSpace(text[end]))) return true;
    pos = end;
  }
  return false;
}

bool attributeMatches(const Selector::AttributeTest& test, const Element& e) {
  const std::wstring* value = e.attributeValue(test.key);
  if (value == nullptr) return false;
  const std::wstring& want = test.value;
  switch (test.op) {
    case Op::Exists:
      return true;
    case Op::Equals:
      return *value == want;
    case Op::Includes:
      return hasWord(*value, want);
    case Op::Prefix:
      return !want.empty() && value->compare(0, want.size(), want) == 0;
    case Op::Suffix:
      return !want.empty() && value->size() >= want.size() &&
             value->compare(value->size() - want.size(), want.size(), want) == 0;
    case Op::Contains:
      return !want.empty() && value->find(want) != std::wstring::npos;
  }
  return false;
}

// The tests that need the element itself: states, attribute values, place
// among siblings, the scope and negations.
bool elementPartMatches(const Compound& c, const Element& e, const Element* scope);

bool compoundMatches(const Compound& c, const Element& e, const Element* scope) {
  if (c.impossible) return false;
  if (c.tag != kNoAtom && e.tagAtom != c.tag) return false;
  if (c.hasId && e.idAtom != c.id) return false;
  for (const Atom cls : c.classes) {
    bool found = false;
    for (const Atom own : e.classes) found = found || own == cls;
    if (!found) return false;
  }
  return elementPartMatches(c, e, scope);
}

bool elementPartMatches(const Compound& c, const Element& e, const Element* scope) {
  if ((e.state & c.states) != c.states) return false;
  for (const Selector::AttributeTest& test : c.attributes)
    if (!attributeMatches(test, e)) return false;
  if (c.root && &e != scope) return false;
  if (c.firstChild && (e.parent == nullptr || e.parent->elementChild(0) != &e)) return false;
  if (c.lastChild) {
    if (e.parent == nullptr) return false;
    const Element* last = nullptr;
    for (const Node& n : e.parent->children)
      if (n.element != nullptr) last = n.element;
    if (last != &e) return false;
  }
  for (const Compound& negated : c.negations)
    if (compoundMatches(negated, e, scope)) return false;
  return true;
}

bool needsElement(const Compound& c) {
  return c.states != 0 || !c.attributes.empty() || c.root || c.firstChild || c.lastChild || !c.negations.empty();
}

bool compoundMatches(const Compound& c, const OrderEntry& entry, const Element* scope) {
  if (c.impossible) return false;
  if (c.tag != kNoAtom && entry.tagAtom != c.tag) return false;
  if (c.hasId && entry.idAtom != c.id) return false;
  if ((c.classMask & ~entry.classMask) != 0 || (c.attributeMask & ~entry.attributeMask) != 0) return false;
  for (const Atom cls : c.classes)
    if (!entry.hasClass(cls)) return false;
  return !needsElement(c) || elementPartMatches(c, *entry.element, scope);
}

bool complexMatches(const Complex& complex, std::size_t index, const Element& e, const Element* scope) {
  if (!compoundMatches(complex.compounds[index], e, scope)) return false;
  if (index == 0) return true;
  if (complex.child[index - 1]) return e.parent != nullptr && complexMatches(complex, index - 1, *e.parent, scope);
  for (const Element* p = e.parent; p != nullptr; p = p->parent)
    if (complexMatches(complex, index - 1, *p, scope)) return true;
  return false;
}

// Ancestors are walked through the order's parent indexes. An order covers
// one whole tree, so every ancestor of an entry is in it.
bool complexMatches(const Complex& complex, std::size_t index, const OrderEntry* order, std::uint32_t at,
                    const Element* scope) {
  if (!compoundMatches(complex.compounds[index], order[at], scope)) return false;
  if (index == 0) return true;
  std::uint32_t parent = order[at].parent;
  if (complex.child[index - 1])
    return parent != OrderEntry::kNoParent && complexMatches(complex, index - 1, order, parent, scope);
  for (; parent != OrderEntry::kNoParent; parent = order[parent].parent)
    if (complexMatches(complex, index - 1, order, parent, scope)) return true;
  return false;
}

// Ids count in the hundreds, classes, attribute tests and pseudo-classes in
// the tens, types in ones; a negation counts as what it holds.
int specificityOf(const Compound& c) {
  int specificity = (c.hasId ? 100 : 0) + (c.tag != kNoAtom ? 1 : 0);
  specificity += 10 * static_cast<int>(c.classes.size() + c.attributes.size() + std::bitset<32>(c.states).count());
  specificity += 10 * ((c.root ? 1 : 0) + (c.firstChild ? 1 : 0) + (c.lastChild ? 1 : 0));
  for (const Compound& negated : c.negations) specificity += specificityOf(negated);
  return specificity;
}

}  // namespace

std::optional<Selector> Selector::compile(std::wstring_view text, const AtomTable& atoms) {
  Selector selector;
  if (!Compiler(text, atoms, nullptr).list(selector.alternatives_)) return std::nullopt;
  return selector;
}

std::optional<Selector> Selector::compileInterned(std::wstring_view text, AtomTable& atoms) {
  Selector selector;
  if (!Compiler(text, atoms, &atoms).list(selector.alternatives_)) return std::nullopt;
  return selector;
}

bool Selector::rejects(const OrderEntry& entry) const {
  for (const Complex& complex : alternatives_) {
    const Compound& c = complex.compounds.back();
    if (c.impossible || (c.tag != kNoAtom && c.tag != entry.tagAtom) || (c.hasId && c.id != entry.idAtom)) continue;
    if ((c.classMask & ~entry.classMask) != 0 || (c.attributeMask & ~entry.attributeMask) != 0) continue;
    return false;
  }
  return true;
}

bool Selector::matches(const Element& element, const Element* scope) const {
  for (const Complex& complex : alternatives_)
    if (complexMatches(complex, complex.compounds.size() - 1, element, scope)) return true;
  return false;
}

int Selector::matchSpecificity(const Element& element, const Element* scope) const {
  int best = -1;
  for (const Complex& complex : alternatives_) {
    if (!complexMatches(complex, complex.compounds.size() - 1, element, scope)) continue;
    int specificity = 0;
    for (const Compound& c : complex.compounds) specificity += specificityOf(c);
    best = std::max(best, specificity);
  }
  return best;
}

bool Selector::matches(const OrderEntry* order, std::uint32_t index, const Element* scope) const {
  for (const Complex& complex : alternatives_)
    if (complexMatches(complex, complex.compounds.size() - 1, order, index, scope)) return true;
  return false;
}

}  // namespace kvt1::html
