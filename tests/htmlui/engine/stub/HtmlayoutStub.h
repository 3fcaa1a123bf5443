#pragma once
// The stand-in for htmlayout.dll that the binding's tests load: it exports a
// subset of the library's functions under their plain names, with the
// library's calling convention, and logs every call with its arguments. The
// tests read the log through the exports HtmlayoutStubCalls and HtmlayoutStubClear.
#include <cstdint>

#include "htmlui/engine/HtmlayoutApi.h"

// One call as the stub saw it; fields that the function has no use for stay zero.
struct HtmlayoutStubCall {
  char function[48];
  HWND hwnd;
  HELEMENT element;
  char name[64];        // narrow text: selector, attribute or tag name, page bytes
  wchar_t text[64];     // wide text: attribute value, selector, URL
  UINT number;          // size, depth, subscription, message or units
  const void* pointer;  // tag, callback parameter or data
  POINT point;
};

struct HtmlayoutStubLog {
  UINT count;  // calls made since the last clear; only the first kCapacity are kept
  static constexpr UINT kCapacity = 32;
  HtmlayoutStubCall calls[kCapacity];
};

typedef const HtmlayoutStubLog*(WINAPI HtmlayoutStubCallsFunction)();
typedef void(WINAPI HtmlayoutStubClearFunction)();

// Elements the stub hands out: the root, and the two that every selection finds.
constexpr std::uintptr_t kStubRoot = 0x1000;
constexpr std::uintptr_t kStubFirst = 0x1100;
constexpr std::uintptr_t kStubSecond = 0x1200;

inline HELEMENT stubElement(std::uintptr_t value) { return reinterpret_cast<HELEMENT>(value); }
