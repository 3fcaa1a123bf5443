#include "htmlui/engine/HtmlayoutLibrary.h"

#include <cstring>
#include <type_traits>

namespace kvt1::html {

// Every export is stdcall (WINAPI), as the library declares its API.
struct HtmlayoutLibrary::Exports {
  BOOL(WINAPI* LoadHtmlEx)(HWND, LPCBYTE, UINT, LPCWSTR) = nullptr;
  VOID(WINAPI* SetCallback)(HWND, LPHTMLAYOUT_NOTIFY, LPVOID) = nullptr;
  BOOL(WINAPI* DataReady)(HWND, LPCWSTR, LPBYTE, DWORD) = nullptr;
  LRESULT(WINAPI* ProcND)(HWND, UINT, WPARAM, LPARAM, BOOL*) = nullptr;
  HLDOM_RESULT(WINAPI* WindowDetachEventHandler)(HWND, LPELEMENT_EVENT_PROC, LPVOID) = nullptr;
  UINT(WINAPI* GetMinWidth)(HWND) = nullptr;
  UINT(WINAPI* GetMinHeight)(HWND, UINT) = nullptr;

  HLDOM_RESULT(WINAPI* GetRootElement)(HWND, HELEMENT*) = nullptr;
  HLDOM_RESULT(WINAPI* SelectElements)(HELEMENT, LPCSTR, HTMLayoutElementCallback*, LPVOID) = nullptr;
  HLDOM_RESULT(WINAPI* SelectElementsW)(HELEMENT, LPCWSTR, HTMLayoutElementCallback*, LPVOID) = nullptr;
  HLDOM_RESULT(WINAPI* SelectParent)(HELEMENT, LPCSTR, UINT, HELEMENT*) = nullptr;
  HLDOM_RESULT(WINAPI* SelectParentW)(HELEMENT, LPCWSTR, UINT, HELEMENT*) = nullptr;
  HLDOM_RESULT(WINAPI* FindElement)(HWND, POINT, HELEMENT*) = nullptr;
  HLDOM_RESULT(WINAPI* VisitElements)
  (HELEMENT, LPCSTR, LPCSTR, LPCWSTR, HTMLayoutElementCallback*, LPVOID, DWORD) = nullptr;
  HLDOM_RESULT(WINAPI* GetParentElement)(HELEMENT, HELEMENT*) = nullptr;
  HLDOM_RESULT(WINAPI* GetNthChild)(HELEMENT, UINT, HELEMENT*) = nullptr;
  HLDOM_RESULT(WINAPI* GetChildrenCount)(HELEMENT, UINT*) = nullptr;
  HLDOM_RESULT(WINAPI* GetElementIndex)(HELEMENT, LPUINT) = nullptr;
  HLDOM_RESULT(WINAPI* GetElementType)(HELEMENT, LPCSTR*) = nullptr;
  HLDOM_RESULT(WINAPI* GetElementHwnd)(HELEMENT, HWND*, BOOL) = nullptr;

  HLDOM_RESULT(WINAPI* GetElementLocation)(HELEMENT, LPRECT, UINT) = nullptr;
  HLDOM_RESULT(WINAPI* GetElementIntrinsicWidths)(HELEMENT, INT*, INT*) = nullptr;
  HLDOM_RESULT(WINAPI* GetElementIntrinsicHeight)(HELEMENT, INT, INT*) = nullptr;
  HLDOM_RESULT(WINAPI* IsElementVisible)(HELEMENT, BOOL*) = nullptr;
  HLDOM_RESULT(WINAPI* GetScrollInfo)(HELEMENT, LPPOINT, LPRECT, LPSIZE) = nullptr;
  HLDOM_RESULT(WINAPI* SetScrollPos)(HELEMENT, POINT, BOOL) = nullptr;

  HLDOM_RESULT(WINAPI* GetElementState)(HELEMENT, UINT*) = nullptr;
  HLDOM_RESULT(WINAPI* SetElementState)(HELEMENT, UINT, UINT, BOOL) = nullptr;
  HLDOM_RESULT(WINAPI* GetAttributeByName)(HELEMENT, LPCSTR, LPCWSTR*) = nullptr;
  HLDOM_RESULT(WINAPI* SetAttributeByName)(HELEMENT, LPCSTR, LPCWSTR) = nullptr;
  HLDOM_RESULT(WINAPI* GetStyleAttribute)(HELEMENT, LPCSTR, LPCWSTR*) = nullptr;
  HLDOM_RESULT(WINAPI* SetStyleAttribute)(HELEMENT, LPCSTR, LPCWSTR) = nullptr;

  HLDOM_RESULT(WINAPI* GetElementHtmlCB)(HELEMENT, BOOL, HTMLayoutWriterCallbackB*, LPVOID) = nullptr;
  HLDOM_RESULT(WINAPI* SetElementHtml)(HELEMENT, LPCBYTE, DWORD, UINT) = nullptr;
  HLDOM_RESULT(WINAPI* GetElementInnerTextCB)(HELEMENT, HTMLayoutWriterCallbackW*, LPVOID) = nullptr;
  HLDOM_RESULT(WINAPI* SetElementInnerText16)(HELEMENT, LPCWSTR, UINT) = nullptr;
  HLDOM_RESULT(WINAPI* CreateElement)(LPCSTR, LPCWSTR, HELEMENT*) = nullptr;
  HLDOM_RESULT(WINAPI* CloneElement)(HELEMENT, HELEMENT*) = nullptr;
  HLDOM_RESULT(WINAPI* InsertElement)(HELEMENT, HELEMENT, UINT) = nullptr;
  HLDOM_RESULT(WINAPI* DetachElement)(HELEMENT) = nullptr;
  HLDOM_RESULT(WINAPI* DeleteElement)(HELEMENT) = nullptr;
  HLDOM_RESULT(WINAPI* SwapElements)(HELEMENT, HELEMENT) = nullptr;
  HLDOM_RESULT(WINAPI* UpdateElement)(HELEMENT, BOOL) = nullptr;
  HLDOM_RESULT(WINAPI* UpdateElementEx)(HELEMENT, UINT) = nullptr;

  HLDOM_RESULT(WINAPI* AttachEventHandlerEx)(HELEMENT, LPELEMENT_EVENT_PROC, LPVOID, UINT) = nullptr;
  HLDOM_RESULT(WINAPI* DetachEventHandler)(HELEMENT, LPELEMENT_EVENT_PROC, LPVOID) = nullptr;
  HLDOM_RESULT(WINAPI* SendEvent)(HELEMENT, UINT, HELEMENT, UINT_PTR, BOOL*) = nullptr;
  HLDOM_RESULT(WINAPI* PostEvent)(HELEMENT, UINT, HELEMENT, UINT) = nullptr;
  HLDOM_RESULT(WINAPI* CallBehaviorMethod)(HELEMENT, METHOD_PARAMS*) = nullptr;
  HLDOM_RESULT(WINAPI* ControlGetValue)(HELEMENT, VALUE*) = nullptr;
  HLDOM_RESULT(WINAPI* ControlSetValue)(HELEMENT, const VALUE*) = nullptr;
  HLDOM_RESULT(WINAPI* SetTimerEx)(HELEMENT, UINT, UINT_PTR) = nullptr;

  HLDOM_RESULT(WINAPI* ShowPopup)(HELEMENT, HELEMENT, UINT) = nullptr;
  HLDOM_RESULT(WINAPI* ShowPopupAt)(HELEMENT, POINT, UINT) = nullptr;
  HLDOM_RESULT(WINAPI* TrackPopupAt)(HELEMENT, POINT, UINT, HELEMENT*) = nullptr;
  HLDOM_RESULT(WINAPI* HidePopup)(HELEMENT) = nullptr;

  HLDOM_RESULT(WINAPI* UseElement)(HELEMENT) = nullptr;
  HLDOM_RESULT(WINAPI* UnuseElement)(HELEMENT) = nullptr;

  UINT(WINAPI* ValueInit)(VALUE*) = nullptr;
  UINT(WINAPI* ValueClear)(VALUE*) = nullptr;
  UINT(WINAPI* ValueCopy)(VALUE*, const VALUE*) = nullptr;
  UINT(WINAPI* ValueCompare)(const VALUE*, const VALUE*) = nullptr;
  UINT(WINAPI* ValueIntData)(const VALUE*, INT*) = nullptr;
  UINT(WINAPI* ValueIntDataSet)(VALUE*, INT, UINT, UINT) = nullptr;
  UINT(WINAPI* ValueFloatDataSet)(VALUE*, double, UINT, UINT) = nullptr;
  UINT(WINAPI* ValueStringData)(const VALUE*, LPCWSTR*, UINT*) = nullptr;
  UINT(WINAPI* ValueStringDataSet)(VALUE*, LPCWSTR, UINT, UINT) = nullptr;
  UINT(WINAPI* ValueToString)(VALUE*, UINT) = nullptr;
};

namespace {

using Exports = HtmlayoutLibrary::Exports;

// Stores an export's address in its typed member.
template <auto Member>
void bindExport(Exports& exports, void* address) {
  using Pointer = std::remove_reference_t<decltype(exports.*Member)>;
  exports.*Member = reinterpret_cast<Pointer>(address);
}

enum class Need { required, optional };

struct ExportEntry {
  const char* name;
  Need need;
  void (*bind)(Exports&, void*);
};

// Required: what the dialogs cannot open or run without.
constexpr ExportEntry kExportTable[] = {
    {"HTMLayoutLoadHtmlEx", Need::required, &bindExport<&Exports::LoadHtmlEx>},
    {"HTMLayoutSetCallback", Need::required, &bindExport<&Exports::SetCallback>},
    {"HTMLayoutDataReady", Need::required, &bindExport<&Exports::DataReady>},
    {"HTMLayoutProcND", Need::required, &bindExport<&Exports::ProcND>},
    {"HTMLayoutWindowDetachEventHandler", Need::required, &bindExport<&Exports::WindowDetachEventHandler>},
    {"HTMLayoutGetMinWidth", Need::optional, &bindExport<&Exports::GetMinWidth>},
    {"HTMLayoutGetMinHeight", Need::optional, &bindExport<&Exports::GetMinHeight>},

    {"HTMLayoutGetRootElement", Need::required, &bindExport<&Exports::GetRootElement>},
    {"HTMLayoutSelectElements", Need::required, &bindExport<&Exports::SelectElements>},
    {"HTMLayoutSelectElementsW", Need::required, &bindExport<&Exports::SelectElementsW>},
    {"HTMLayoutSelectParent", Need::required, &bindExport<&Exports::SelectParent>},
    {"HTMLayoutSelectParentW", Need::required, &bindExport<&Exports::SelectParentW>},
    {"HTMLayoutFindElement", Need::optional, &bindExport<&Exports::FindElement>},
    {"HTMLayoutVisitElements", Need::optional, &bindExport<&Exports::VisitElements>},
    {"HTMLayoutGetParentElement", Need::optional, &bindExport<&Exports::GetParentElement>},
    {"HTMLayoutGetNthChild", Need::optional, &bindExport<&Exports::GetNthChild>},
    {"HTMLayoutGetChildrenCount", Need::optional, &bindExport<&Exports::GetChildrenCount>},
    {"HTMLayoutGetElementIndex", Need::optional, &bindExport<&Exports::GetElementIndex>},
    {"HTMLayoutGetElementType", Need::optional, &bindExport<&Exports::GetElementType>},
    {"HTMLayoutGetElementHwnd", Need::optional, &bindExport<&Exports::GetElementHwnd>},

    {"HTMLayoutGetElementLocation", Need::optional, &bindExport<&Exports::GetElementLocation>},
    {"HTMLayoutGetElementIntrinsicWidths", Need::optional, &bindExport<&Exports::GetElementIntrinsicWidths>},
    {"HTMLayoutGetElementIntrinsicHeight", Need::optional, &bindExport<&Exports::GetElementIntrinsicHeight>},
    {"HTMLayoutIsElementVisible", Need::optional, &bindExport<&Exports::IsElementVisible>},
    {"HTMLayoutGetScrollInfo", Need::optional, &bindExport<&Exports::GetScrollInfo>},
    {"HTMLayoutSetScrollPos", Need::optional, &bindExport<&Exports::SetScrollPos>},

    {"HTMLayoutGetElementState", Need::optional, &bindExport<&Exports::GetElementState>},
    {"HTMLayoutSetElementState", Need::optional, &bindExport<&Exports::SetElementState>},
    {"HTMLayoutGetAttributeByName", Need::required, &bindExport<&Exports::GetAttributeByName>},
    {"HTMLayoutSetAttributeByName", Need::required, &bindExport<&Exports::SetAttributeByName>},
    {"HTMLayoutGetStyleAttribute", Need::optional, &bindExport<&Exports::GetStyleAttribute>},
    {"HTMLayoutSetStyleAttribute", Need::optional, &bindExport<&Exports::SetStyleAttribute>},

    {"HTMLayoutGetElementHtmlCB", Need::optional, &bindExport<&Exports::GetElementHtmlCB>},
    {"HTMLayoutSetElementHtml", Need::optional, &bindExport<&Exports::SetElementHtml>},
    {"HTMLayoutGetElementInnerTextCB", Need::optional, &bindExport<&Exports::GetElementInnerTextCB>},
    {"HTMLayoutSetElementInnerText16", Need::optional, &bindExport<&Exports::SetElementInnerText16>},
    {"HTMLayoutCreateElement", Need::optional, &bindExport<&Exports::CreateElement>},
    {"HTMLayoutCloneElement", Need::optional, &bindExport<&Exports::CloneElement>},
    {"HTMLayoutInsertElement", Need::optional, &bindExport<&Exports::InsertElement>},
    {"HTMLayoutDetachElement", Need::optional, &bindExport<&Exports::DetachElement>},
    {"HTMLayoutDeleteElement", Need::optional, &bindExport<&Exports::DeleteElement>},
    {"HTMLayoutSwapElements", Need::optional, &bindExport<&Exports::SwapElements>},
    {"HTMLayoutUpdateElement", Need::optional, &bindExport<&Exports::UpdateElement>},
    {"HTMLayoutUpdateElementEx", Need::optional, &bindExport<&Exports::UpdateElementEx>},

    {"HTMLayoutAttachEventHandlerEx", Need::required, &bindExport<&Exports::AttachEventHandlerEx>},
    {"HTMLayoutDetachEventHandler", Need::required, &bindExport<&Exports::DetachEventHandler>},
    {"HTMLayoutSendEvent", Need::optional, &bindExport<&Exports::SendEvent>},
    {"HTMLayoutPostEvent", Need::optional, &bindExport<&Exports::PostEvent>},
    {"HTMLayoutCallBehaviorMethod", Need::optional, &bindExport<&Exports::CallBehaviorMethod>},
    {"HTMLayoutControlGetValue", Need::optional, &bindExport<&Exports::ControlGetValue>},
    {"HTMLayoutControlSetValue", Need::optional, &bindExport<&Exports::ControlSetValue>},
    {"HTMLayoutSetTimerEx", Need::optional, &bindExport<&Exports::SetTimerEx>},

    {"HTMLayoutShowPopup", Need::optional, &bindExport<&Exports::ShowPopup>},
    {"HTMLayoutShowPopupAt", Need::optional, &bindExport<&Exports::ShowPopupAt>},
    {"HTMLayoutTrackPopupAt", Need::optional, &bindExport<&Exports::TrackPopupAt>},
    {"HTMLayoutHidePopup", Need::optional, &bindExport<&Exports::HidePopup>},

    {"HTMLayout_UseElement", Need::required, &bindExport<&Exports::UseElement>},
    {"HTMLayout_UnuseElement", Need::required, &bindExport<&Exports::UnuseElement>},

    {"ValueInit", Need::optional, &bindExport<&Exports::ValueInit>},
    {"ValueClear", Need::optional, &bindExport<&Exports::ValueClear>},
    {"ValueCopy", Need::optional, &bindExport<&Exports::ValueCopy>},
    {"ValueCompare", Need::optional, &bindExport<&Exports::ValueCompare>},
    {"ValueIntData", Need::optional, &bindExport<&Exports::ValueIntData>},
    {"ValueIntDataSet", Need::optional, &bindExport<&Exports::ValueIntDataSet>},
    {"ValueFloatDataSet", Need::optional, &bindExport<&Exports::ValueFloatDataSet>},
    {"ValueStringData", Need::optional, &bindExport<&Exports::ValueStringData>},
    {"ValueStringDataSet", Need::optional, &bindExport<&Exports::ValueStringDataSet>},
    {"ValueToString", Need::optional, &bindExport<&Exports::ValueToString>},
};

// What a call answers when its export is missing.
constexpr HLDOM_RESULT kDomFailed = HLDOM_OPERATION_FAILED;
constexpr UINT kValueFailed = HV_BAD_PARAMETER;
constexpr BOOL kFailed = FALSE;
constexpr UINT kNothing = 0;

template <typename Function, typename Result, typename... Args>
Result callOr(Function* function, Result missing, Args... args) {
  return function ? function(args...) : missing;
}

}  // namespace

HtmlayoutLibrary::HtmlayoutLibrary(const platform::DynamicLibrary& library) : exports_(new Exports) {
  for (const ExportEntry& entry : kExportTable) {
    if (void* address = library.symbol(entry.name)) {
      entry.bind(*exports_, address);
      continue;
    }
    missing_.emplace_back(entry.name, entry.name + std::strlen(entry.name));
    if (entry.need == Need::required) usable_ = false;
  }
}

HtmlayoutLibrary::~HtmlayoutLibrary() = default;

std::unique_ptr<HtmlEngine> loadHtmlayout(const platform::DynamicLibrary& library) {
  auto engine = std::make_unique<HtmlayoutLibrary>(library);
  if (!engine->usable()) return nullptr;
  return engine;
}

BOOL HtmlayoutLibrary::LoadHtmlEx(HWND hwnd, LPCBYTE html, UINT htmlSize, LPCWSTR baseUrl) {
  return callOr(exports_->LoadHtmlEx, kFailed, hwnd, html, htmlSize, baseUrl);
}

VOID HtmlayoutLibrary::SetCallback(HWND hwnd, LPHTMLAYOUT_NOTIFY cb, LPVOID cbParam) {
  if (exports_->SetCallback) exports_->SetCallback(hwnd, cb, cbParam);
}

BOOL HtmlayoutLibrary::DataReady(HWND hwnd, LPCWSTR uri, LPBYTE data, DWORD dataLength) {
  return callOr(exports_->DataReady, kFailed, hwnd, uri, data, dataLength);
}

LRESULT HtmlayoutLibrary::ProcND(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam, BOOL* pbHandled) {
  if (exports_->ProcND) return exports_->ProcND(hwnd, msg, wParam, lParam, pbHandled);
  // Without the engine the window's own procedure handles the message.
  if (pbHandled) *pbHandled = FALSE;
  return 0;
}

HLDOM_RESULT HtmlayoutLibrary::WindowDetachEventHandler(HWND hwnd, LPELEMENT_EVENT_PROC pep, LPVOID tag) {
  return callOr(exports_->WindowDetachEventHandler, kDomFailed, hwnd, pep, tag);
}

UINT HtmlayoutLibrary::GetMinWidth(HWND hwnd) { return callOr(exports_->GetMinWidth, kNothing, hwnd); }

UINT HtmlayoutLibrary::GetMinHeight(HWND hwnd, UINT width) {
  return callOr(exports_->GetMinHeight, kNothing, hwnd, width);
}

HLDOM_RESULT HtmlayoutLibrary::GetRootElement(HWND hwnd, HELEMENT* phe) {
  return callOr(exports_->GetRootElement, kDomFailed, hwnd, phe);
}

HLDOM_RESULT HtmlayoutLibrary::SelectElements(HELEMENT he, LPCSTR selectors, HTMLayoutElementCallback* cb,
                                              LPVOID param) {
  return callOr(exports_->SelectElements, kDomFailed, he, selectors, cb, param);
}

HLDOM_RESULT HtmlayoutLibrary::SelectElementsW(HELEMENT he, LPCWSTR selectors, HTMLayoutElementCallback* cb,
                                               LPVOID param) {
  return callOr(exports_->SelectElementsW, kDomFailed, he, selectors, cb, param);
}

HLDOM_RESULT HtmlayoutLibrary::SelectParent(HELEMENT he, LPCSTR selector, UINT depth, HELEMENT* heFound) {
  return callOr(exports_->SelectParent, kDomFailed, he, selector, depth, heFound);
}

HLDOM_RESULT HtmlayoutLibrary::SelectParentW(HELEMENT he, LPCWSTR selector, UINT depth, HELEMENT* heFound) {
  return callOr(exports_->SelectParentW, kDomFailed, he, selector, depth, heFound);
}

HLDOM_RESULT HtmlayoutLibrary::FindElement(HWND hwnd, POINT pt, HELEMENT* phe) {
  return callOr(exports_->FindElement, kDomFailed, hwnd, pt, phe);
}

HLDOM_RESULT HtmlayoutLibrary::VisitElements(HELEMENT he, LPCSTR tagName, LPCSTR attributeName, LPCWSTR attributeValue,
                                             HTMLayoutElementCallback* cb, LPVOID param, DWORD depth) {
  return callOr(exports_->VisitElements, kDomFailed, he, tagName, attributeName, attributeValue, cb, param, depth);
}

HLDOM_RESULT HtmlayoutLibrary::GetParentElement(HELEMENT he, HELEMENT* pParent) {
  return callOr(exports_->GetParentElement, kDomFailed, he, pParent);
}

HLDOM_RESULT HtmlayoutLibrary::GetNthChild(HELEMENT he, UINT n, HELEMENT* phe) {
  return callOr(exports_->GetNthChild, kDomFailed, he, n, phe);
}

HLDOM_RESULT HtmlayoutLibrary::GetChildrenCount(HELEMENT he, UINT* count) {
  return callOr(exports_->GetChildrenCount, kDomFailed, he, count);
}

HLDOM_RESULT HtmlayoutLibrary::GetElementIndex(HELEMENT he, LPUINT pIndex) {
  return callOr(exports_->GetElementIndex, kDomFailed, he, pIndex);
}

HLDOM_RESULT HtmlayoutLibrary::GetElementType(HELEMENT he, LPCSTR* pType) {
  return callOr(exports_->GetElementType, kDomFailed, he, pType);
}

HLDOM_RESULT HtmlayoutLibrary::GetElementHwnd(HELEMENT he, HWND* pHwnd, BOOL rootWindow) {
  return callOr(exports_->GetElementHwnd, kDomFailed, he, pHwnd, rootWindow);
}

HLDOM_RESULT HtmlayoutLibrary::GetElementLocation(HELEMENT he, LPRECT pLocation, UINT areas) {
  return callOr(exports_->GetElementLocation, kDomFailed, he, pLocation, areas);
}

HLDOM_RESULT HtmlayoutLibrary::GetElementIntrinsicWidths(HELEMENT he, INT* pMinWidth, INT* pMaxWidth) {
  return callOr(exports_->GetElementIntrinsicWidths, kDomFailed, he, pMinWidth, pMaxWidth);
}

HLDOM_RESULT HtmlayoutLibrary::GetElementIntrinsicHeight(HELEMENT he, INT forWidth, INT* pHeight) {
  return callOr(exports_->GetElementIntrinsicHeight, kDomFailed, he, forWidth, pHeight);
}

HLDOM_RESULT HtmlayoutLibrary::IsElementVisible(HELEMENT he, BOOL* pVisible) {
  return callOr(exports_->IsElementVisible, kDomFailed, he, pVisible);
}

HLDOM_RESULT HtmlayoutLibrary::GetScrollInfo(HELEMENT he, LPPOINT scrollPos, LPRECT viewRect, LPSIZE contentSize) {
  return callOr(exports_->GetScrollInfo, kDomFailed, he, scrollPos, viewRect, contentSize);
}

HLDOM_RESULT HtmlayoutLibrary::SetScrollPos(HELEMENT he, POINT scrollPos, BOOL smooth) {
  return callOr(exports_->SetScrollPos, kDomFailed, he, scrollPos, smooth);
}

HLDOM_RESULT HtmlayoutLibrary::GetElementState(HELEMENT he, UINT* pStateBits) {
  return callOr(exports_->GetElementState, kDomFailed, he, pStateBits);
}

HLDOM_RESULT HtmlayoutLibrary::SetElementState(HELEMENT he, UINT bitsToSet, UINT bitsToClear, BOOL updateView) {
  return callOr(exports_->SetElementState, kDomFailed, he, bitsToSet, bitsToClear, updateView);
}

HLDOM_RESULT HtmlayoutLibrary::GetAttributeByName(HELEMENT he, LPCSTR name, LPCWSTR* pValue) {
  return callOr(exports_->GetAttributeByName, kDomFailed, he, name, pValue);
}

HLDOM_RESULT HtmlayoutLibrary::SetAttributeByName(HELEMENT he, LPCSTR name, LPCWSTR value) {
  return callOr(exports_->SetAttributeByName, kDomFailed, he, name, value);
}

HLDOM_RESULT HtmlayoutLibrary::GetStyleAttribute(HELEMENT he, LPCSTR name, LPCWSTR* pValue) {
  return callOr(exports_->GetStyleAttribute, kDomFailed, he, name, pValue);
}

HLDOM_RESULT HtmlayoutLibrary::SetStyleAttribute(HELEMENT he, LPCSTR name, LPCWSTR value) {
  return callOr(exports_->SetStyleAttribute, kDomFailed, he, name, value);
}

HLDOM_RESULT HtmlayoutLibrary::GetElementHtmlCB(HELEMENT he, BOOL outer, HTMLayoutWriterCallbackB* cb, LPVOID cbParam) {
  return callOr(exports_->GetElementHtmlCB, kDomFailed, he, outer, cb, cbParam);
}

HLDOM_RESULT HtmlayoutLibrary::SetElementHtml(HELEMENT he, LPCBYTE html, DWORD htmlLength, UINT where) {
  return callOr(exports_->SetElementHtml, kDomFailed, he, html, htmlLength, where);
}

HLDOM_RESULT HtmlayoutLibrary::GetElementInnerTextCB(HELEMENT he, HTMLayoutWriterCallbackW* cb, LPVOID cbParam) {
  return callOr(exports_->GetElementInnerTextCB, kDomFailed, he, cb, cbParam);
}

HLDOM_RESULT HtmlayoutLibrary::SetElementInnerText16(HELEMENT he, LPCWSTR text, UINT length) {
  return callOr(exports_->SetElementInnerText16, kDomFailed, he, text, length);
}

HLDOM_RESULT HtmlayoutLibrary::CreateElement(LPCSTR tagName, LPCWSTR textOrNull, HELEMENT* phe) {
  return callOr(exports_->CreateElement, kDomFailed, tagName, textOrNull, phe);
}

HLDOM_RESULT HtmlayoutLibrary::CloneElement(HELEMENT he, HELEMENT* phe) {
  return callOr(exports_->CloneElement, kDomFailed, he, phe);
}

HLDOM_RESULT HtmlayoutLibrary::InsertElement(HELEMENT he, HELEMENT hParent, UINT index) {
  return callOr(exports_->InsertElement, kDomFailed, he, hParent, index);
}

HLDOM_RESULT HtmlayoutLibrary::DetachElement(HELEMENT he) { return callOr(exports_->DetachElement, kDomFailed, he); }

HLDOM_RESULT HtmlayoutLibrary::DeleteElement(HELEMENT he) { return callOr(exports_->DeleteElement, kDomFailed, he); }

HLDOM_RESULT HtmlayoutLibrary::SwapElements(HELEMENT he1, HELEMENT he2) {
  return callOr(exports_->SwapElements, kDomFailed, he1, he2);
}

HLDOM_RESULT HtmlayoutLibrary::UpdateElement(HELEMENT he, BOOL remeasure) {
  return callOr(exports_->UpdateElement, kDomFailed, he, remeasure);
}

HLDOM_RESULT HtmlayoutLibrary::UpdateElementEx(HELEMENT he, UINT flags) {
  return callOr(exports_->UpdateElementEx, kDomFailed, he, flags);
}

HLDOM_RESULT HtmlayoutLibrary::AttachEventHandlerEx(HELEMENT he, LPELEMENT_EVENT_PROC pep, LPVOID tag,
                                                    UINT subscription) {
  return callOr(exports_->AttachEventHandlerEx, kDomFailed, he, pep, tag, subscription);
}

HLDOM_RESULT HtmlayoutLibrary::DetachEventHandler(HELEMENT he, LPELEMENT_EVENT_PROC pep, LPVOID tag) {
  return callOr(exports_->DetachEventHandler, kDomFailed, he, pep, tag);
}

HLDOM_RESULT HtmlayoutLibrary::SendEvent(HELEMENT he, UINT appEventCode, HELEMENT heSource, UINT_PTR reason,
                                         BOOL* handled) {
  return callOr(exports_->SendEvent, kDomFailed, he, appEventCode, heSource, reason, handled);
}

HLDOM_RESULT HtmlayoutLibrary::PostEvent(HELEMENT he, UINT appEventCode, HELEMENT heSource, UINT reason) {
  return callOr(exports_->PostEvent, kDomFailed, he, appEventCode, heSource, reason);
}

HLDOM_RESULT HtmlayoutLibrary::CallBehaviorMethod(HELEMENT he, METHOD_PARAMS* params) {
  return callOr(exports_->CallBehaviorMethod, kDomFailed, he, params);
}

HLDOM_RESULT HtmlayoutLibrary::ControlGetValue(HELEMENT he, VALUE* pVal) {
  return callOr(exports_->ControlGetValue, kDomFailed, he, pVal);
}

HLDOM_RESULT HtmlayoutLibrary::ControlSetValue(HELEMENT he, const VALUE* pVal) {
  return callOr(exports_->ControlSetValue, kDomFailed, he, pVal);
}

HLDOM_RESULT HtmlayoutLibrary::SetTimerEx(HELEMENT he, UINT milliseconds, UINT_PTR timerId) {
  return callOr(exports_->SetTimerEx, kDomFailed, he, milliseconds, timerId);
}

HLDOM_RESULT HtmlayoutLibrary::ShowPopup(HELEMENT hePopup, HELEMENT heAnchor, UINT placement) {
  return callOr(exports_->ShowPopup, kDomFailed, hePopup, heAnchor, placement);
}

HLDOM_RESULT HtmlayoutLibrary::ShowPopupAt(HELEMENT hePopup, POINT pos, UINT mode) {
  return callOr(exports_->ShowPopupAt, kDomFailed, hePopup, pos, mode);
}

HLDOM_RESULT HtmlayoutLibrary::TrackPopupAt(HELEMENT hePopup, POINT posRoot, UINT mode, HELEMENT* pheItem) {
  return callOr(exports_->TrackPopupAt, kDomFailed, hePopup, posRoot, mode, pheItem);
}

HLDOM_RESULT HtmlayoutLibrary::HidePopup(HELEMENT he) { return callOr(exports_->HidePopup, kDomFailed, he); }

HLDOM_RESULT HtmlayoutLibrary::UseElement(HELEMENT he) { return callOr(exports_->UseElement, kDomFailed, he); }

HLDOM_RESULT HtmlayoutLibrary::UnuseElement(HELEMENT he) { return callOr(exports_->UnuseElement, kDomFailed, he); }

UINT HtmlayoutLibrary::ValueInit(VALUE* pval) { return callOr(exports_->ValueInit, kValueFailed, pval); }

UINT HtmlayoutLibrary::ValueClear(VALUE* pval) { return callOr(exports_->ValueClear, kValueFailed, pval); }

UINT HtmlayoutLibrary::ValueCopy(VALUE* pdst, const VALUE* psrc) {
  return callOr(exports_->ValueCopy, kValueFailed, pdst, psrc);
}

UINT HtmlayoutLibrary::ValueCompare(const VALUE* pval1, const VALUE* pval2) {
  return callOr(exports_->ValueCompare, kValueFailed, pval1, pval2);
}

UINT HtmlayoutLibrary::ValueIntData(const VALUE* pval, INT* pData) {
  return callOr(exports_->ValueIntData, kValueFailed, pval, pData);
}

UINT HtmlayoutLibrary::ValueIntDataSet(VALUE* pval, INT data, UINT type, UINT units) {
  return callOr(exports_->ValueIntDataSet, kValueFailed, pval, data, type, units);
}

UINT HtmlayoutLibrary::ValueFloatDataSet(VALUE* pval, double data, UINT type, UINT units) {
  return callOr(exports_->ValueFloatDataSet, kValueFailed, pval, data, type, units);
}

UINT HtmlayoutLibrary::ValueStringData(const VALUE* pval, LPCWSTR* pChars, UINT* pNumChars) {
  return callOr(exports_->ValueStringData, kValueFailed, pval, pChars, pNumChars);
}

UINT HtmlayoutLibrary::ValueStringDataSet(VALUE* pval, LPCWSTR chars, UINT numChars, UINT units) {
  return callOr(exports_->ValueStringDataSet, kValueFailed, pval, chars, numChars, units);
}

UINT HtmlayoutLibrary::ValueToString(VALUE* pval, UINT how) {
  return callOr(exports_->ValueToString, kValueFailed, pval, how);
}

}  // namespace kvt1::html
