// Navigation, selection, attributes and element references. The stub keeps
// one attribute: the last one set.
#include <cstring>
#include <initializer_list>

#include "tests/htmlui/engine/stub/StubRecorder.h"

namespace {

char g_attributeName[64];
wchar_t g_attributeValue[64];

// Offers the stub's two elements to cb until it asks to stop.
void enumerate(HTMLayoutElementCallback* cb, LPVOID param) {
  for (std::uintptr_t element : {kStubFirst, kStubSecond}) {
    if (cb(stubElement(element), param)) return;
  }
}

}  // namespace

STUB_EXPORT HLDOM_RESULT WINAPI HTMLayoutGetRootElement(HWND hwnd, HELEMENT* phe) {
  HtmlayoutStubCall& call = stub::record("HTMLayoutGetRootElement");
  call.hwnd = hwnd;
  *phe = stubElement(kStubRoot);
  return HLDOM_OK;
}

STUB_EXPORT HLDOM_RESULT WINAPI HTMLayoutFindElement(HWND hwnd, POINT pt, HELEMENT* phe) {
  HtmlayoutStubCall& call = stub::record("HTMLayoutFindElement");
  call.hwnd = hwnd;
  call.point = pt;
  *phe = stubElement(kStubSecond);
  return HLDOM_OK;
}

STUB_EXPORT HLDOM_RESULT WINAPI HTMLayoutSelectElements(HELEMENT he, LPCSTR selectors, HTMLayoutElementCallback* cb,
                                                        LPVOID param) {
  HtmlayoutStubCall& call = stub::record("HTMLayoutSelectElements");
  call.element = he;
  stub::copyText(call.name, selectors);
  call.pointer = param;
  enumerate(cb, param);
  return HLDOM_OK;
}

STUB_EXPORT HLDOM_RESULT WINAPI HTMLayoutSelectElementsW(HELEMENT he, LPCWSTR selectors, HTMLayoutElementCallback* cb,
                                                         LPVOID param) {
  HtmlayoutStubCall& call = stub::record("HTMLayoutSelectElementsW");
  call.element = he;
  stub::copyText(call.text, selectors);
  call.pointer = param;
  enumerate(cb, param);
  return HLDOM_OK;
}

STUB_EXPORT HLDOM_RESULT WINAPI HTMLayoutSelectParent(HELEMENT he, LPCSTR selector, UINT depth, HELEMENT* heFound) {
  HtmlayoutStubCall& call = stub::record("HTMLayoutSelectParent");
  call.element = he;
  stub::copyText(call.name, selector);
  call.number = depth;
  *heFound = stubElement(kStubRoot);
  return HLDOM_OK;
}

STUB_EXPORT HLDOM_RESULT WINAPI HTMLayoutSelectParentW(HELEMENT he, LPCWSTR selector, UINT depth, HELEMENT* heFound) {
  HtmlayoutStubCall& call = stub::record("HTMLayoutSelectParentW");
  call.element = he;
  stub::copyText(call.text, selector);
  call.number = depth;
  *heFound = stubElement(kStubRoot);
  return HLDOM_OK;
}

STUB_EXPORT HLDOM_RESULT WINAPI HTMLayoutGetAttributeByName(HELEMENT he, LPCSTR name, LPCWSTR* pValue) {
  HtmlayoutStubCall& call = stub::record("HTMLayoutGetAttributeByName");
  call.element = he;
  stub::copyText(call.name, name);
  *pValue = std::strcmp(name, g_attributeName) == 0 ? g_attributeValue : nullptr;
  return HLDOM_OK;
}

STUB_EXPORT HLDOM_RESULT WINAPI HTMLayoutSetAttributeByName(HELEMENT he, LPCSTR name, LPCWSTR value) {
  HtmlayoutStubCall& call = stub::record("HTMLayoutSetAttributeByName");
  call.element = he;
  stub::copyText(call.name, name);
  stub::copyText(call.text, value);
  stub::copyText(g_attributeName, name);
  stub::copyText(g_attributeValue, value);
  return HLDOM_OK;
}

STUB_EXPORT HLDOM_RESULT WINAPI HTMLayout_UseElement(HELEMENT he) {
  stub::record("HTMLayout_UseElement").element = he;
  return he ? HLDOM_OK : HLDOM_INVALID_HANDLE;
}

STUB_EXPORT HLDOM_RESULT WINAPI HTMLayout_UnuseElement(HELEMENT he) {
  stub::record("HTMLayout_UnuseElement").element = he;
  return he ? HLDOM_OK : HLDOM_INVALID_HANDLE;
}
