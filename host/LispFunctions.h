#pragma once
// The module's LISP-callable functions: their table, their definition per
// document, and the dispatcher that checks a call's arguments and answers it.
#include <array>
#include <string>

#include "host/arx/Arx.h"

namespace kvt1 {

class CLispServices;

// A function's code is its index in the table; the host hands it back on each call.
enum LispFunctionCode {
  kLispHelp = 0,
  kLispSplash = 1,
  kLispInfo = 2,
  kLispSetFunHelp = 3,
  kLispReporting = 4,
  kLispSupport = 5,
  kLispGetSettings = 6,
  kLispSetSettings = 7,
};
constexpr int kLispFunctionCount = 8;

const std::array<std::wstring, kLispFunctionCount>& lispFunctionNames();

// Defines the functions in table order for the current document; stops at,
// and reports, the first the host refuses.
bool defineLispFunctions();
void undefineLispFunctions();

// Compares the length of the argument list with expected; prints
// "More parameters provided" or "less parameters provided" when they differ.
bool checkArgCount(const resbuf* args, int expected);

// Answers the LISP call in progress (code and arguments from the host).
void dispatchLispCall(CLispServices& services);

}  // namespace kvt1
