// A few value functions. A string value points at the stub's own copy of
// the characters; a float value keeps the double's bits.
#include <cstring>

#include "tests/htmlui/engine/stub/StubRecorder.h"

namespace {
wchar_t g_chars[64];
}

STUB_EXPORT UINT WINAPI ValueInit(VALUE* pval) {
  stub::record("ValueInit").pointer = pval;
  *pval = VALUE();
  return HV_OK;
}

STUB_EXPORT UINT WINAPI ValueStringDataSet(VALUE* pval, LPCWSTR chars, UINT numChars, UINT units) {
  HtmlayoutStubCall& call = stub::record("ValueStringDataSet");
  stub::copyText(call.text, chars, numChars);
  call.number = units;
  if (numChars >= sizeof g_chars / sizeof g_chars[0]) return HV_BAD_PARAMETER;
  stub::copyText(g_chars, chars, numChars);
  pval->t = T_STRING;
  pval->u = units;
  pval->d = numChars;
  return HV_OK;
}

STUB_EXPORT UINT WINAPI ValueStringData(const VALUE* pval, LPCWSTR* pChars, UINT* pNumChars) {
  stub::record("ValueStringData").pointer = pval;
  if (pval->t != T_STRING) return HV_INCOMPATIBLE_TYPE;
  *pChars = g_chars;
  *pNumChars = static_cast<UINT>(pval->d);
  return HV_OK;
}

STUB_EXPORT UINT WINAPI ValueFloatDataSet(VALUE* pval, double data, UINT type, UINT units) {
  HtmlayoutStubCall& call = stub::record("ValueFloatDataSet");
  call.number = type;
  pval->t = type;
  pval->u = units;
  std::memcpy(&pval->d, &data, sizeof data);
  return HV_OK;
}
