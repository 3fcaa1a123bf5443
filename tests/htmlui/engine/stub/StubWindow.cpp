// Page loading and window glue.
#include "tests/htmlui/engine/stub/StubRecorder.h"

STUB_EXPORT BOOL WINAPI HTMLayoutLoadHtmlEx(HWND hwnd, LPCBYTE html, UINT htmlSize, LPCWSTR baseUrl) {
  HtmlayoutStubCall& call = stub::record("HTMLayoutLoadHtmlEx");
  call.hwnd = hwnd;
  stub::copyText(call.name, reinterpret_cast<const char*>(html), htmlSize);
  call.number = htmlSize;
  stub::copyText(call.text, baseUrl);
  return htmlSize > 0 ? TRUE : FALSE;
}

STUB_EXPORT VOID WINAPI HTMLayoutSetCallback(HWND hwnd, LPHTMLAYOUT_NOTIFY cb, LPVOID cbParam) {
  HtmlayoutStubCall& call = stub::record("HTMLayoutSetCallback");
  call.hwnd = hwnd;
  call.pointer = cbParam;
}

STUB_EXPORT BOOL WINAPI HTMLayoutDataReady(HWND hwnd, LPCWSTR uri, LPBYTE data, DWORD dataLength) {
  HtmlayoutStubCall& call = stub::record("HTMLayoutDataReady");
  call.hwnd = hwnd;
  stub::copyText(call.text, uri);
  stub::copyText(call.name, reinterpret_cast<const char*>(data), dataLength);
  call.number = dataLength;
  return TRUE;
}

// Handles every message and answers its lParam.
STUB_EXPORT LRESULT WINAPI HTMLayoutProcND(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam, BOOL* pbHandled) {
  HtmlayoutStubCall& call = stub::record("HTMLayoutProcND");
  call.hwnd = hwnd;
  call.number = msg;
  call.pointer = reinterpret_cast<const void*>(wParam);
  *pbHandled = TRUE;
  return lParam;
}

STUB_EXPORT HLDOM_RESULT WINAPI HTMLayoutWindowDetachEventHandler(HWND hwnd, LPELEMENT_EVENT_PROC pep, LPVOID tag) {
  HtmlayoutStubCall& call = stub::record("HTMLayoutWindowDetachEventHandler");
  call.hwnd = hwnd;
  call.pointer = tag;
  return HLDOM_OK;
}
