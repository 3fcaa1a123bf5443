#pragma once
// The HTML engine as the dialogs see it: exactly the library's operations
// that the dialog subsystem uses, no more and no fewer. Each is named after
// the library's C function without its "HTMLayout" prefix, with the same
// parameters and results; window-level operations take the window as the
// key of the view. Implemented by the binding of the library's DLL and by
// our own DOM engine.
#include "htmlui/engine/HtmlayoutApi.h"

namespace kvt1::html {

class HtmlEngine {
 public:
  virtual ~HtmlEngine() = default;

  // Page loading and window glue.
  virtual BOOL LoadHtmlEx(HWND hwnd, LPCBYTE html, UINT htmlSize, LPCWSTR baseUrl) = 0;
  virtual VOID SetCallback(HWND hwnd, LPHTMLAYOUT_NOTIFY cb, LPVOID cbParam) = 0;
  virtual BOOL DataReady(HWND hwnd, LPCWSTR uri, LPBYTE data, DWORD dataLength) = 0;
  virtual LRESULT ProcND(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam, BOOL* pbHandled) = 0;
  virtual HLDOM_RESULT WindowDetachEventHandler(HWND hwnd, LPELEMENT_EVENT_PROC pep, LPVOID tag) = 0;
  virtual UINT GetMinWidth(HWND hwnd) = 0;
  virtual UINT GetMinHeight(HWND hwnd, UINT width) = 0;

  // Navigation and selection.
  virtual HLDOM_RESULT GetRootElement(HWND hwnd, HELEMENT* phe) = 0;
  virtual HLDOM_RESULT SelectElements(HELEMENT he, LPCSTR selectors, HTMLayoutElementCallback* cb, LPVOID param) = 0;
  virtual HLDOM_RESULT SelectElementsW(HELEMENT he, LPCWSTR selectors, HTMLayoutElementCallback* cb, LPVOID param) = 0;
  virtual HLDOM_RESULT SelectParent(HELEMENT he, LPCSTR selector, UINT depth, HELEMENT* heFound) = 0;
  virtual HLDOM_RESULT SelectParentW(HELEMENT he, LPCWSTR selector, UINT depth, HELEMENT* heFound) = 0;
  virtual HLDOM_RESULT FindElement(HWND hwnd, POINT pt, HELEMENT* phe) = 0;
  virtual HLDOM_RESULT VisitElements(HELEMENT he, LPCSTR tagName, LPCSTR attributeName, LPCWSTR attributeValue,
                                     HTMLayoutElementCallback* cb, LPVOID param, DWORD depth) = 0;
  virtual HLDOM_RESULT GetParentElement(HELEMENT he, HELEMENT* pParent) = 0;
  virtual HLDOM_RESULT GetNthChild(HELEMENT he, UINT n, HELEMENT* phe) = 0;
  virtual HLDOM_RESULT GetChildrenCount(HELEMENT he, UINT* count) = 0;
  virtual HLDOM_RESULT GetElementIndex(HELEMENT he, LPUINT pIndex) = 0;
  virtual HLDOM_RESULT GetElementType(HELEMENT he, LPCSTR* pType) = 0;
  virtual HLDOM_RESULT GetElementHwnd(HELEMENT he, HWND* pHwnd, BOOL rootWindow) = 0;

  // Geometry and visibility.
  virtual HLDOM_RESULT GetElementLocation(HELEMENT he, LPRECT pLocation, UINT areas) = 0;
  virtual HLDOM_RESULT GetElementIntrinsicWidths(HELEMENT he, INT* pMinWidth, INT* pMaxWidth) = 0;
  virtual HLDOM_RESULT GetElementIntrinsicHeight(HELEMENT he, INT forWidth, INT* pHeight) = 0;
  virtual HLDOM_RESULT IsElementVisible(HELEMENT he, BOOL* pVisible) = 0;
  virtual HLDOM_RESULT GetScrollInfo(HELEMENT he, LPPOINT scrollPos, LPRECT viewRect, LPSIZE contentSize) = 0;
  virtual HLDOM_RESULT SetScrollPos(HELEMENT he, POINT scrollPos, BOOL smooth) = 0;

  // State, attributes and styles.
  virtual HLDOM_RESULT GetElementState(HELEMENT he, UINT* pStateBits) = 0;
  virtual HLDOM_RESULT SetElementState(HELEMENT he, UINT bitsToSet, UINT bitsToClear, BOOL updateView) = 0;
  virtual HLDOM_RESULT GetAttributeByName(HELEMENT he, LPCSTR name, LPCWSTR* pValue) = 0;
  virtual HLDOM_RESULT SetAttributeByName(HELEMENT he, LPCSTR name, LPCWSTR value) = 0;
  virtual HLDOM_RESULT GetStyleAttribute(HELEMENT he, LPCSTR name, LPCWSTR* pValue) = 0;
  virtual HLDOM_RESULT SetStyleAttribute(HELEMENT he, LPCSTR name, LPCWSTR value) = 0;

  // Content.
  virtual HLDOM_RESULT GetElementHtmlCB(HELEMENT he, BOOL outer, HTMLayoutWriterCallbackB* cb, LPVOID cbParam) = 0;
  virtual HLDOM_RESULT SetElementHtml(HELEMENT he, LPCBYTE html, DWORD htmlLength, UINT where) = 0;
  virtual HLDOM_RESULT GetElementInnerTextCB(HELEMENT he, HTMLayoutWriterCallbackW* cb, LPVOID cbParam) = 0;
  virtual HLDOM_RESULT SetElementInnerText16(HELEMENT he, LPCWSTR text, UINT length) = 0;
  virtual HLDOM_RESULT CreateElement(LPCSTR tagName, LPCWSTR textOrNull, HELEMENT* phe) = 0;
  virtual HLDOM_RESULT CloneElement(HELEMENT he, HELEMENT* phe) = 0;
  virtual HLDOM_RESULT InsertElement(HELEMENT he, HELEMENT hParent, UINT index) = 0;
  virtual HLDOM_RESULT DetachElement(HELEMENT he) = 0;
  virtual HLDOM_RESULT DeleteElement(HELEMENT he) = 0;
  virtual HLDOM_RESULT SwapElements(HELEMENT he1, HELEMENT he2) = 0;
  virtual HLDOM_RESULT UpdateElement(HELEMENT he, BOOL remeasure) = 0;
  virtual HLDOM_RESULT UpdateElementEx(HELEMENT he, UINT flags) = 0;

  // Events, behaviours and timers.
  virtual HLDOM_RESULT AttachEventHandlerEx(HELEMENT he, LPELEMENT_EVENT_PROC pep, LPVOID tag, UINT subscription) = 0;
  virtual HLDOM_RESULT DetachEventHandler(HELEMENT he, LPELEMENT_EVENT_PROC pep, LPVOID tag) = 0;
  virtual HLDOM_RESULT SendEvent(HELEMENT he, UINT appEventCode, HELEMENT heSource, UINT_PTR reason, BOOL* handled) = 0;
  virtual HLDOM_RESULT PostEvent(HELEMENT he, UINT appEventCode, HELEMENT heSource, UINT reason) = 0;
  virtual HLDOM_RESULT CallBehaviorMethod(HELEMENT he, METHOD_PARAMS* params) = 0;
  virtual HLDOM_RESULT ControlGetValue(HELEMENT he, VALUE* pVal) = 0;
  virtual HLDOM_RESULT ControlSetValue(HELEMENT he, const VALUE* pVal) = 0;
  virtual HLDOM_RESULT SetTimerEx(HELEMENT he, UINT milliseconds, UINT_PTR timerId) = 0;

  // Popups.
  virtual HLDOM_RESULT ShowPopup(HELEMENT hePopup, HELEMENT heAnchor, UINT placement) = 0;
  virtual HLDOM_RESULT ShowPopupAt(HELEMENT hePopup, POINT pos, UINT mode) = 0;
  virtual HLDOM_RESULT TrackPopupAt(HELEMENT hePopup, POINT posRoot, UINT mode, HELEMENT* pheItem) = 0;
  virtual HLDOM_RESULT HidePopup(HELEMENT he) = 0;

  // Element references.
  virtual HLDOM_RESULT UseElement(HELEMENT he) = 0;
  virtual HLDOM_RESULT UnuseElement(HELEMENT he) = 0;

  // Values.
  virtual UINT ValueInit(VALUE* pval) = 0;
  virtual UINT ValueClear(VALUE* pval) = 0;
  virtual UINT ValueCopy(VALUE* pdst, const VALUE* psrc) = 0;
  virtual UINT ValueCompare(const VALUE* pval1, const VALUE* pval2) = 0;
  virtual UINT ValueIntData(const VALUE* pval, INT* pData) = 0;
  virtual UINT ValueIntDataSet(VALUE* pval, INT data, UINT type, UINT units) = 0;
  virtual UINT ValueFloatDataSet(VALUE* pval, double data, UINT type, UINT units) = 0;
  virtual UINT ValueStringData(const VALUE* pval, LPCWSTR* pChars, UINT* pNumChars) = 0;
  virtual UINT ValueStringDataSet(VALUE* pval, LPCWSTR chars, UINT numChars, UINT units) = 0;
  virtual UINT ValueToString(VALUE* pval, UINT how) = 0;
};

}  // namespace kvt1::html
