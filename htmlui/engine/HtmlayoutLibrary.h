#pragma once
// The HTML engine as the library htmlayout.dll provides it: every operation
// forwards to the DLL's export of the same name. Exports are looked up by
// their plain names (undecorated even for stdcall on 32-bit Windows). An
// operation whose export is missing fails without calling anything.
// Windows only.
#include <memory>
#include <string>
#include <vector>

#include "htmlui/engine/HtmlEngine.h"
#include "platform/DynamicLibrary.h"

namespace kvt1::html {

class HtmlayoutLibrary : public HtmlEngine {
 public:
  // Looks every export up in library, which the caller keeps loaded for the
  // lifetime of this object. A library that is not loaded leaves them all missing.
  explicit HtmlayoutLibrary(const platform::DynamicLibrary& library);
  ~HtmlayoutLibrary() override;
  HtmlayoutLibrary(const HtmlayoutLibrary&) = delete;
  HtmlayoutLibrary& operator=(const HtmlayoutLibrary&) = delete;

  // Whether every export was found; otherwise missing() names those that were not.
  bool complete() const { return missing_.empty(); }
  const std::vector<std::wstring>& missing() const { return missing_; }
  // Whether the exports that the dialogs cannot do without were all found.
  bool usable() const { return usable_; }

  BOOL LoadHtmlEx(HWND hwnd, LPCBYTE html, UINT htmlSize, LPCWSTR baseUrl) override;
  VOID SetCallback(HWND hwnd, LPHTMLAYOUT_NOTIFY cb, LPVOID cbParam) override;
  BOOL DataReady(HWND hwnd, LPCWSTR uri, LPBYTE data, DWORD dataLength) override;
  LRESULT ProcND(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam, BOOL* pbHandled) override;
  HLDOM_RESULT WindowDetachEventHandler(HWND hwnd, LPELEMENT_EVENT_PROC pep, LPVOID tag) override;
  UINT GetMinWidth(HWND hwnd) override;
  UINT GetMinHeight(HWND hwnd, UINT width) override;

  HLDOM_RESULT GetRootElement(HWND hwnd, HELEMENT* phe) override;
  HLDOM_RESULT SelectElements(HELEMENT he, LPCSTR selectors, HTMLayoutElementCallback* cb, LPVOID param) override;
  HLDOM_RESULT SelectElementsW(HELEMENT he, LPCWSTR selectors, HTMLayoutElementCallback* cb, LPVOID param) override;
  HLDOM_RESULT SelectParent(HELEMENT he, LPCSTR selector, UINT depth, HELEMENT* heFound) override;
  HLDOM_RESULT SelectParentW(HELEMENT he, LPCWSTR selector, UINT depth, HELEMENT* heFound) override;
  HLDOM_RESULT FindElement(HWND hwnd, POINT pt, HELEMENT* phe) override;
  HLDOM_RESULT VisitElements(HELEMENT he, LPCSTR tagName, LPCSTR attributeName, LPCWSTR attributeValue,
                             HTMLayoutElementCallback* cb, LPVOID param, DWORD depth) override;
  HLDOM_RESULT GetParentElement(HELEMENT he, HELEMENT* pParent) override;
  HLDOM_RESULT GetNthChild(HELEMENT he, UINT n, HELEMENT* phe) override;
  HLDOM_RESULT GetChildrenCount(HELEMENT he, UINT* count) override;
  HLDOM_RESULT GetElementIndex(HELEMENT he, LPUINT pIndex) override;
  HLDOM_RESULT GetElementType(HELEMENT he, LPCSTR* pType) override;
  HLDOM_RESULT GetElementHwnd(HELEMENT he, HWND* pHwnd, BOOL rootWindow) override;

  HLDOM_RESULT GetElementLocation(HELEMENT he, LPRECT pLocation, UINT areas) override;
  HLDOM_RESULT GetElementIntrinsicWidths(HELEMENT he, INT* pMinWidth, INT* pMaxWidth) override;
  HLDOM_RESULT GetElementIntrinsicHeight(HELEMENT he, INT forWidth, INT* pHeight) override;
  HLDOM_RESULT IsElementVisible(HELEMENT he, BOOL* pVisible) override;
  HLDOM_RESULT GetScrollInfo(HELEMENT he, LPPOINT scrollPos, LPRECT viewRect, LPSIZE contentSize) override;
  HLDOM_RESULT SetScrollPos(HELEMENT he, POINT scrollPos, BOOL smooth) override;

  HLDOM_RESULT GetElementState(HELEMENT he, UINT* pStateBits) override;
  HLDOM_RESULT SetElementState(HELEMENT he, UINT bitsToSet, UINT bitsToClear, BOOL updateView) override;
  HLDOM_RESULT GetAttributeByName(HELEMENT he, LPCSTR name, LPCWSTR* pValue) override;
  HLDOM_RESULT SetAttributeByName(HELEMENT he, LPCSTR name, LPCWSTR value) override;
  HLDOM_RESULT GetStyleAttribute(HELEMENT he, LPCSTR name, LPCWSTR* pValue) override;
  HLDOM_RESULT SetStyleAttribute(HELEMENT he, LPCSTR name, LPCWSTR value) override;

  HLDOM_RESULT GetElementHtmlCB(HELEMENT he, BOOL outer, HTMLayoutWriterCallbackB* cb, LPVOID cbParam) override;
  HLDOM_RESULT SetElementHtml(HELEMENT he, LPCBYTE html, DWORD htmlLength, UINT where) override;
  HLDOM_RESULT GetElementInnerTextCB(HELEMENT he, HTMLayoutWriterCallbackW* cb, LPVOID cbParam) override;
  HLDOM_RESULT SetElementInnerText16(HELEMENT he, LPCWSTR text, UINT length) override;
  HLDOM_RESULT CreateElement(LPCSTR tagName, LPCWSTR textOrNull, HELEMENT* phe) override;
  HLDOM_RESULT CloneElement(HELEMENT he, HELEMENT* phe) override;
  HLDOM_RESULT InsertElement(HELEMENT he, HELEMENT hParent, UINT index) override;
  HLDOM_RESULT DetachElement(HELEMENT he) override;
  HLDOM_RESULT DeleteElement(HELEMENT he) override;
  HLDOM_RESULT SwapElements(HELEMENT he1, HELEMENT he2) override;
  HLDOM_RESULT UpdateElement(HELEMENT he, BOOL remeasure) override;
  HLDOM_RESULT UpdateElementEx(HELEMENT he, UINT flags) override;

  HLDOM_RESULT AttachEventHandlerEx(HELEMENT he, LPELEMENT_EVENT_PROC pep, LPVOID tag, UINT subscription) override;
  HLDOM_RESULT DetachEventHandler(HELEMENT he, LPELEMENT_EVENT_PROC pep, LPVOID tag) override;
  HLDOM_RESULT SendEvent(HELEMENT he, UINT appEventCode, HELEMENT heSource, UINT_PTR reason, BOOL* handled) override;
  HLDOM_RESULT PostEvent(HELEMENT he, UINT appEventCode, HELEMENT heSource, UINT reason) override;
  HLDOM_RESULT CallBehaviorMethod(HELEMENT he, METHOD_PARAMS* params) override;
  HLDOM_RESULT ControlGetValue(HELEMENT he, VALUE* pVal) override;
  HLDOM_RESULT ControlSetValue(HELEMENT he, const VALUE* pVal) override;
  HLDOM_RESULT SetTimerEx(HELEMENT he, UINT milliseconds, UINT_PTR timerId) override;

  HLDOM_RESULT ShowPopup(HELEMENT hePopup, HELEMENT heAnchor, UINT placement) override;
  HLDOM_RESULT ShowPopupAt(HELEMENT hePopup, POINT pos, UINT mode) override;
  HLDOM_RESULT TrackPopupAt(HELEMENT hePopup, POINT posRoot, UINT mode, HELEMENT* pheItem) override;
  HLDOM_RESULT HidePopup(HELEMENT he) override;

  HLDOM_RESULT UseElement(HELEMENT he) override;
  HLDOM_RESULT UnuseElement(HELEMENT he) override;

  UINT ValueInit(VALUE* pval) override;
  UINT ValueClear(VALUE* pval) override;
  UINT ValueCopy(VALUE* pdst, const VALUE* psrc) override;
  UINT ValueCompare(const VALUE* pval1, const VALUE* pval2) override;
  UINT ValueIntData(const VALUE* pval, INT* pData) override;
  UINT ValueIntDataSet(VALUE* pval, INT data, UINT type, UINT units) override;
  UINT ValueFloatDataSet(VALUE* pval, double data, UINT type, UINT units) override;
  UINT ValueStringData(const VALUE* pval, LPCWSTR* pChars, UINT* pNumChars) override;
  UINT ValueStringDataSet(VALUE* pval, LPCWSTR chars, UINT numChars, UINT units) override;
  UINT ValueToString(VALUE* pval, UINT how) override;

  // The library's exports as typed pointers; null where an export is missing.
  struct Exports;

 private:
  std::unique_ptr<Exports> exports_;
  std::vector<std::wstring> missing_;
  bool usable_ = true;
};

// The engine of a loaded htmlayout.dll, or null when the library is not
// loaded or lacks an export that the dialogs cannot do without: page loading
// and window glue (LoadHtmlEx, SetCallback, DataReady, ProcND), the root
// element, selection (SelectElements, SelectElementsW, SelectParent,
// SelectParentW), attributes (Get/SetAttributeByName), element references
// (HTMLayout_UseElement, HTMLayout_UnuseElement) and event handlers
// (AttachEventHandlerEx, DetachEventHandler, WindowDetachEventHandler).
std::unique_ptr<HtmlEngine> loadHtmlayout(const platform::DynamicLibrary& library);

}  // namespace kvt1::html
