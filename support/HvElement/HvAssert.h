#pragma once
// Assertions of the geometry classes. A report names the failed condition,
// the source and the line. The default handler writes
// "Assertion failed: <condition>, file <source>, line <line>" on the standard
// error stream and stops the program. A handler that returns (as the tests'
// do) lets the failed operation give up and report failure instead.
#include <string>

namespace kvt1 {

using HvAssertionHandler = void (*)(const wchar_t* condition, const wchar_t* source, int line);

// Installs handler (nullptr: the default) and returns the one it replaces.
HvAssertionHandler SetHvAssertionHandler(HvAssertionHandler handler);

void ReportHvAssertion(const wchar_t* condition, const wchar_t* source, int line);

// The text the default handler writes, without line end.
std::wstring FormatHvAssertion(const wchar_t* condition, const wchar_t* source, int line);

}  // namespace kvt1
