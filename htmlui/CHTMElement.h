#pragma once
// One element of a page, held with a use reference: copies share the
// element, and the last one to go releases it, so a wrapper stays valid
// after the element left the page. An empty wrapper does nothing and answers
// empty texts. Attribute and style names compare without regard to case.
#include <string>
#include <vector>

#include "htmlui/engine/HtmlayoutApi.h"

namespace kvt1 {

class CHTMElement {
 public:
  CHTMElement() = default;
  explicit CHTMElement(HELEMENT element);
  CHTMElement(const CHTMElement& other);
  CHTMElement(CHTMElement&& other) noexcept;
  CHTMElement& operator=(CHTMElement other) noexcept;
  virtual ~CHTMElement();
  // Drops the use reference; the wrapper is empty afterwards.
  virtual void Release();

  HELEMENT Handle() const { return m_element; }
  bool IsValid() const { return m_element != nullptr; }
  bool operator==(const CHTMElement& other) const { return m_element == other.m_element; }

  std::wstring GetAttribute(const char* name) const;
  void SetAttribute(const char* name, const std::wstring& value) const;
  std::wstring GetStyle(const char* name) const;
  // Sets a style and updates the element, so the change shows at once.
  void SetStyle(const char* name, const std::wstring& value) const;
  UINT GetState() const;
  void SetState(UINT bitsToSet, UINT bitsToClear) const;
  std::wstring GetType() const;
  std::wstring GetText() const;
  void SetText(const std::wstring& text) const;
  std::string GetHtml(bool outer) const;
  void SetHtml(const std::wstring& html, UINT where = SIH_REPLACE_CONTENT) const;

  CHTMElement Parent() const;
  UINT ChildCount() const;
  CHTMElement Child(UINT index) const;
  // The first element within this one (itself included through ":root") that
  // the selector matches; empty when none does or the selector is malformed.
  CHTMElement SelectFirst(const std::wstring& selector) const;
  std::vector<CHTMElement> SelectAll(const std::wstring& selector) const;
  // This element or the nearest ancestor that the selector matches.
  CHTMElement SelectParent(const std::wstring& selector) const;
  HWND Window() const;
  void Update(bool remeasure = false) const;

 private:
  HELEMENT m_element = nullptr;
};

}  // namespace kvt1
