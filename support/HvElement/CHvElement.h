#pragma once
// The common base of the geometry elements.
#include <string>

namespace kvt1 {

class CHvElement {
 public:
  virtual ~CHvElement() = default;

  // Appends the element's diagnostic text; elements dumped one after another
  // follow each other in the same text.
  virtual void Dump(std::wstring& text) const = 0;
};

}  // namespace kvt1
