// Element event handlers. Attaching calls the handler at once with
// BEHAVIOR_ATTACH, as the library does.
#include "tests/htmlui/engine/stub/StubRecorder.h"

STUB_EXPORT HLDOM_RESULT WINAPI HTMLayoutAttachEventHandlerEx(HELEMENT he, LPELEMENT_EVENT_PROC pep, LPVOID tag,
                                                              UINT subscription) {
  HtmlayoutStubCall& call = stub::record("HTMLayoutAttachEventHandlerEx");
  call.element = he;
  call.pointer = tag;
  call.number = subscription;
  INITIALIZATION_PARAMS params{BEHAVIOR_ATTACH};
  pep(tag, he, HANDLE_INITIALIZATION, &params);
  return HLDOM_OK;
}

STUB_EXPORT HLDOM_RESULT WINAPI HTMLayoutDetachEventHandler(HELEMENT he, LPELEMENT_EVENT_PROC pep, LPVOID tag) {
  HtmlayoutStubCall& call = stub::record("HTMLayoutDetachEventHandler");
  call.element = he;
  call.pointer = tag;
  return HLDOM_OK;
}
