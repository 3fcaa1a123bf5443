#pragma once
// The stub's call log, as its exported functions fill it.
#include "tests/htmlui/engine/stub/HtmlayoutStub.h"

#define STUB_EXPORT extern "C" __declspec(dllexport)

namespace stub {

// A new, zeroed entry for a call of function (a scratch entry once the log is full).
HtmlayoutStubCall& record(const char* function);

// Copies as much of the text as fits, always terminated; null gives an empty text.
void copyText(char (&target)[64], const char* text, UINT length);
void copyText(char (&target)[64], const char* text);
void copyText(wchar_t (&target)[64], const wchar_t* text, UINT length);
void copyText(wchar_t (&target)[64], const wchar_t* text);

}  // namespace stub
