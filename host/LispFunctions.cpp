#include "host/LispFunctions.h"

#include "host/LispServices.h"

namespace kvt1 {
namespace {

bool isString(const resbuf* arg) { return arg != nullptr && arg->restype == RTSTR; }
bool isInteger(const resbuf* arg) { return arg != nullptr && arg->restype == RTSHORT; }

// An argument that must be present and a string; prints the matching message otherwise.
bool requireString(const resbuf* arg, const ACHAR* missing, const ACHAR* wrongType) {
  if (arg == nullptr) {
    acutPrintf(missing);
    return false;
  }
  if (!isString(arg)) {
    acutPrintf(wrongType);
    return false;
  }
  return true;
}

bool requireTwoStrings(const resbuf* args) {
  return requireString(args, L"A parameter expected\n", L"First parameter should be string\n") &&
         requireString(args->rbnext, L"Second parameter expected\n", L"Second parameter should be string\n");
}

enum class Outcome {
  NoResult,   // a count failure: LISP sees nil
  List,       // the list (0)
  StringSet,  // kvt1_GetSettings answered with a string
};

Outcome callService(int code, const resbuf* args, CLispServices& services) {
  switch (code) {
    case kLispHelp:
      if (!checkArgCount(args, 1)) return Outcome::NoResult;
      if (!isString(args)) {
        acutPrintf(L"String expected as parameter...\n");
        return Outcome::List;
      }
      services.showHelp(args->resval.rstring);
      return Outcome::List;

    case kLispSplash:
      if (args == nullptr) {
        acutPrintf(L"A parameter expected\n");
        return Outcome::List;
      }
      if (!isInteger(args)) {
        acutPrintf(L"First parameter should be integer\n");
        return Outcome::List;
      }
      // The text that code 2 demands is checked, not used.
      if (args->resval.rint == 2 &&
          !requireString(args->rbnext, L"Second parameter expected\n", L"Second parameter should be string\n")) {
        return Outcome::List;
      }
      services.driveSplash(args->resval.rint);
      return Outcome::List;

    case kLispInfo:
      if (!checkArgCount(args, 0)) return Outcome::NoResult;
      services.showInfo();
      return Outcome::List;

    case kLispSetFunHelp:
      if (!checkArgCount(args, 2)) return Outcome::NoResult;
      if (requireTwoStrings(args)) services.setFunctionHelp(args->resval.rstring, args->rbnext->resval.rstring);
      return Outcome::List;

    case kLispReporting:
      if (!checkArgCount(args, 1)) return Outcome::NoResult;
      if (requireString(args, L"A parameter expected\n", L"First parameter should be string\n")) {
        services.countFeatureUse(args->resval.rstring);
      }
      return Outcome::List;

    case kLispSupport:
      services.openSupportPage();
      return Outcome::List;

    case kLispGetSettings:
      if (!checkArgCount(args, 1)) return Outcome::NoResult;
      if (!requireString(args, L"A parameter expected\n", L"First parameter should be string\n")) return Outcome::List;
      acedRetStr(services.readSetting(args->resval.rstring) ? L"1" : L"0");
      return Outcome::StringSet;

    case kLispSetSettings:
      if (!checkArgCount(args, 2)) return Outcome::NoResult;
      if (requireTwoStrings(args)) services.writeSetting(args->resval.rstring, args->rbnext->resval.rstring);
      return Outcome::List;

    default:
      return Outcome::List;
  }
}

}  // namespace

const std::array<std::wstring, kLispFunctionCount>& lispFunctionNames() {
  static const std::array<std::wstring, kLispFunctionCount> names = {
      L"kvt1_help",      L"kvt1_splash",  L"kvt1_info",        L"kvt1_setfunhelp",
      L"kvt1_reporting", L"kvt1_support", L"kvt1_GetSettings", L"kvt1_SetSettings",
  };
  return names;
}

bool defineLispFunctions() {
  const auto& names = lispFunctionNames();
  for (int code = 0; code < kLispFunctionCount; ++code) {
    if (acedDefun(names[code].c_str(), code) != RTNORM) return false;
  }
  return true;
}

void undefineLispFunctions() {
  const auto& names = lispFunctionNames();
  for (int code = 0; code < kLispFunctionCount; ++code) acedUndef(names[code].c_str(), code);
}

bool checkArgCount(const resbuf* args, int expected) {
  int count = 0;
  for (const resbuf* arg = args; arg != nullptr; arg = arg->rbnext) ++count;
  if (count > expected) {
    acutPrintf(L"More parameters provided\n");
    return false;
  }
  if (count < expected) {
    acutPrintf(L"less parameters provided\n");
    return false;
  }
  return true;
}

void dispatchLispCall(CLispServices& services) {
  const int code = acedGetFunCode();
  const resbuf* args = acedGetArgs();
  if (callService(code, args, services) != Outcome::List) return;

  resbuf* result = acutBuildList(RTSHORT, 0, RTNONE);
  if (result == nullptr) {
    acdbFail(L"Couldn't create list\n");
    return;
  }
  acedRetList(result);
  acutRelRb(result);
}

}  // namespace kvt1
