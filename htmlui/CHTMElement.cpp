#include "htmlui/CHTMElement.h"

#include <utility>

#include "htmlui/HTMEngine.h"
#include "platform/Unicode.h"

namespace kvt1 {
namespace {

html::HtmlEngine* engineFor(HELEMENT element) { return element ? GetHtmlEngine() : nullptr; }

void HLCALLBACK collectBytes(LPCBYTE bytes, UINT length, LPVOID param) {
  static_cast<std::string*>(param)->append(reinterpret_cast<const char*>(bytes), length);
}

void HLCALLBACK collectText(LPCWSTR text, UINT length, LPVOID param) {
  static_cast<std::wstring*>(param)->append(text, length);
}

BOOL HLCALLBACK collectFirst(HELEMENT element, LPVOID param) {
  *static_cast<CHTMElement*>(param) = CHTMElement(element);
  return TRUE;
}

BOOL HLCALLBACK collectAll(HELEMENT element, LPVOID param) {
  static_cast<std::vector<CHTMElement>*>(param)->emplace_back(element);
  return FALSE;
}

}  // namespace

CHTMElement::CHTMElement(HELEMENT element) : m_element(element) {
  if (html::HtmlEngine* engine = engineFor(m_element)) {
    if (engine->UseElement(m_element) != HLDOM_OK) m_element = nullptr;
  }
}

CHTMElement::CHTMElement(const CHTMElement& other) : CHTMElement(other.m_element) {}

CHTMElement::CHTMElement(CHTMElement&& other) noexcept : m_element(std::exchange(other.m_element, nullptr)) {}

CHTMElement& CHTMElement::operator=(CHTMElement other) noexcept {
  std::swap(m_element, other.m_element);
  return *this;
}

CHTMElement::~CHTMElement() { Release(); }

void CHTMElement::Release() {
  if (html::HtmlEngine* engine = engineFor(m_element)) engine->UnuseElement(m_element);
  m_element = nullptr;
}

std::wstring CHTMElement::GetAttribute(const char* name) const {
  LPCWSTR value = nullptr;
  html::HtmlEngine* engine = engineFor(m_element);
  if (engine == nullptr || engine->GetAttributeByName(m_element, name, &value) != HLDOM_OK || value == nullptr)
    return {};
  return value;
}

void CHTMElement::SetAttribute(const char* name, const std::wstring& value) const {
  if (html::HtmlEngine* engine = engineFor(m_element)) engine->SetAttributeByName(m_element, name, value.c_str());
}

std::wstring CHTMElement::GetStyle(const char* name) const {
  LPCWSTR value = nullptr;
  html::HtmlEngine* engine = engineFor(m_element);
  if (engine == nullptr || engine->GetStyleAttribute(m_element, name, &value) != HLDOM_OK || value == nullptr)
    return {};
  return value;
}

void CHTMElement::SetStyle(const char* name, const std::wstring& value) const {
  html::HtmlEngine* engine = engineFor(m_element);
  if (engine == nullptr) return;
  engine->SetStyleAttribute(m_element, name, value.c_str());
  engine->UpdateElement(m_element, TRUE);
}

UINT CHTMElement::GetState() const {
  UINT state = 0;
  if (html::HtmlEngine* engine = engineFor(m_element)) engine->GetElementState(m_element, &state);
  return state;
}

void CHTMElement::SetState(UINT bitsToSet, UINT bitsToClear) const {
  if (html::HtmlEngine* engine = engineFor(m_element)) engine->SetElementState(m_element, bitsToSet, bitsToClear, TRUE);
}

std::wstring CHTMElement::GetType() const {
  LPCSTR type = nullptr;
  html::HtmlEngine* engine = engineFor(m_element);
  if (engine == nullptr || engine->GetElementType(m_element, &type) != HLDOM_OK || type == nullptr) return {};
  return platform::fromUtf8(type);
}

std::wstring CHTMElement::GetText() const {
  std::wstring text;
  if (html::HtmlEngine* engine = engineFor(m_element)) engine->GetElementInnerTextCB(m_element, &collectText, &text);
  return text;
}

void CHTMElement::SetText(const std::wstring& text) const {
  html::HtmlEngine* engine = engineFor(m_element);
  if (engine == nullptr) return;
  engine->SetElementInnerText16(m_element, text.c_str(), static_cast<UINT>(text.size()));
  engine->UpdateElement(m_element, TRUE);
}

std::string CHTMElement::GetHtml(bool outer) const {
  std::string html;
  if (html::HtmlEngine* engine = engineFor(m_element)) {
    engine->GetElementHtmlCB(m_element, outer ? TRUE : FALSE, &collectBytes, &html);
  }
  return html;
}

void CHTMElement::SetHtml(const std::wstring& html, UINT where) const {
  html::HtmlEngine* engine = engineFor(m_element);
  if (engine == nullptr) return;
  const std::string bytes = platform::toUtf8(html);
  engine->SetElementHtml(m_element, reinterpret_cast<LPCBYTE>(bytes.data()), static_cast<DWORD>(bytes.size()), where);
  engine->UpdateElement(m_element, TRUE);
}

CHTMElement CHTMElement::Parent() const {
  HELEMENT parent = nullptr;
  html::HtmlEngine* engine = engineFor(m_element);
  if (engine == nullptr || engine->GetParentElement(m_element, &parent) != HLDOM_OK) return {};
  return CHTMElement(parent);
}

UINT CHTMElement::ChildCount() const {
  UINT count = 0;
  if (html::HtmlEngine* engine = engineFor(m_element)) engine->GetChildrenCount(m_element, &count);
  return count;
}

CHTMElement CHTMElement::Child(UINT index) const {
  HELEMENT child = nullptr;
  html::HtmlEngine* engine = engineFor(m_element);
  if (engine == nullptr || engine->GetNthChild(m_element, index, &child) != HLDOM_OK) return {};
  return CHTMElement(child);
}

CHTMElement CHTMElement::SelectFirst(const std::wstring& selector) const {
  CHTMElement found;
  if (html::HtmlEngine* engine = engineFor(m_element)) {
    engine->SelectElementsW(m_element, selector.c_str(), &collectFirst, &found);
  }
  return found;
}

std::vector<CHTMElement> CHTMElement::SelectAll(const std::wstring& selector) const {
  std::vector<CHTMElement> found;
  if (html::HtmlEngine* engine = engineFor(m_element)) {
    engine->SelectElementsW(m_element, selector.c_str(), &collectAll, &found);
  }
  return found;
}

CHTMElement CHTMElement::SelectParent(const std::wstring& selector) const {
  HELEMENT found = nullptr;
  html::HtmlEngine* engine = engineFor(m_element);
  if (engine == nullptr || engine->SelectParentW(m_element, selector.c_str(), 0, &found) != HLDOM_OK) return {};
  return CHTMElement(found);
}

HWND CHTMElement::Window() const {
  HWND window = nullptr;
  if (html::HtmlEngine* engine = engineFor(m_element)) engine->GetElementHwnd(m_element, &window, TRUE);
  return window;
}

void CHTMElement::Update(bool remeasure) const {
  if (html::HtmlEngine* engine = engineFor(m_element)) engine->UpdateElement(m_element, remeasure ? TRUE : FALSE);
}

}  // namespace kvt1
