#include "tests/htmlui/engine/stub/StubRecorder.h"

#include <cstring>
#include <cwchar>

namespace stub {
namespace {

HtmlayoutStubLog g_log;
HtmlayoutStubCall g_scratch;

template <typename Char, std::size_t Size>
void copyChars(Char (&target)[Size], const Char* text, std::size_t length) {
  if (!text) length = 0;
  const std::size_t count = length < Size - 1 ? length : Size - 1;
  if (count > 0) std::memcpy(target, text, count * sizeof(Char));
  target[count] = 0;
}

}  // namespace

HtmlayoutStubCall& record(const char* function) {
  HtmlayoutStubCall& call = g_log.count < HtmlayoutStubLog::kCapacity ? g_log.calls[g_log.count] : g_scratch;
  ++g_log.count;
  call = HtmlayoutStubCall();
  std::strncpy(call.function, function, sizeof call.function - 1);
  return call;
}

void copyText(char (&target)[64], const char* text, UINT length) { copyChars(target, text, length); }

void copyText(char (&target)[64], const char* text) { copyChars(target, text, text ? std::strlen(text) : 0); }

void copyText(wchar_t (&target)[64], const wchar_t* text, UINT length) { copyChars(target, text, length); }

void copyText(wchar_t (&target)[64], const wchar_t* text) { copyChars(target, text, text ? std::wcslen(text) : 0); }

}  // namespace stub

STUB_EXPORT const HtmlayoutStubLog* WINAPI HtmlayoutStubCalls() { return &stub::g_log; }

STUB_EXPORT void WINAPI HtmlayoutStubClear() { stub::g_log.count = 0; }
