#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/LispFunctions.h"
#include "host/LispServices.h"
#include "settings/CHelpTopicMap.h"
#include "settings/CSettingsStore.h"
#include "tools/kvt1-host/core/EmulatedHost.h"
#include "tools/kvt1-host/core/ResultBuffers.h"

namespace kvt1 {
namespace {

using emu::EmulatedHost;
using emu::LispValue;

class Dispatcher : public ::testing::Test {
 protected:
  void SetUp() override {
    host().reset();
    host().setOutput([this](const std::wstring& text) { output += text; });
    host().openDocument();
    ASSERT_TRUE(defineLispFunctions());
  }
  void TearDown() override { host().reset(); }

  static EmulatedHost& host() { return EmulatedHost::instance(); }

  // Calls a function as the host does and answers its result in LISP notation.
  std::wstring call(const std::wstring& name, std::vector<LispValue> args) {
    const std::optional<int> code = host().functionCode(name);
    EXPECT_TRUE(code.has_value()) << "not defined: " << std::string(name.begin(), name.end());
    host().beginCall(code.value_or(-1), emu::toArgumentList(args));
    dispatchLispCall(services);
    return toLispText(host().endCall());
  }

  std::wstring output;
  CHelpTopicMap helpMap;
  CSettingsStore settings;
  CLispServices services{helpMap, settings};
};

LispValue str(const wchar_t* text) { return LispValue::fromString(text); }
LispValue num(int value) { return LispValue::fromInteger(value); }

TEST_F(Dispatcher, DefinesTheEightFunctionsWithTheirTableCodes) {
  const auto& names = lispFunctionNames();
  for (int code = 0; code < kLispFunctionCount; ++code) EXPECT_EQ(host().functionCode(names[code]), code);
  EXPECT_EQ(names[kLispGetSettings], L"kvt1_GetSettings");

  undefineLispFunctions();
  for (const std::wstring& name : names) EXPECT_FALSE(host().functionCode(name).has_value());
}

struct CallCase {
  const wchar_t* function;
  std::vector<LispValue> args;
  const wchar_t* printed;
  const wchar_t* result;
};

TEST_F(Dispatcher, ChecksArgumentsWithTheirMessagesAndOutcomes) {
  const std::vector<CallCase> cases = {
      // A count failure returns nil; a type failure prints and still returns (0).
      {L"kvt1_help", {}, L"less parameters provided\n", L"nil"},
      {L"kvt1_help", {num(5)}, L"String expected as parameter...\n", L"(0)"},
      {L"kvt1_help", {str(L"a"), str(L"b")}, L"More parameters provided\n", L"nil"},
      {L"kvt1_help", {str(L"Main")}, L"", L"(0)"},
      {L"kvt1_splash", {}, L"A parameter expected\n", L"(0)"},
      {L"kvt1_splash", {str(L"x")}, L"First parameter should be integer\n", L"(0)"},
      {L"kvt1_splash", {num(2)}, L"Second parameter expected\n", L"(0)"},
      {L"kvt1_splash", {num(2), num(7)}, L"Second parameter should be string\n", L"(0)"},
      {L"kvt1_splash", {num(2), str(L"text")}, L"", L"(0)"},
      {L"kvt1_splash", {num(1), num(7), num(8)}, L"", L"(0)"},  // extra arguments ignored
      {L"kvt1_info", {num(1)}, L"More parameters provided\n", L"nil"},
      {L"kvt1_info", {}, L"", L"(0)"},
      {L"kvt1_setfunhelp", {str(L"f")}, L"less parameters provided\n", L"nil"},
      {L"kvt1_setfunhelp", {num(1), str(L"k")}, L"First parameter should be string\n", L"(0)"},
      {L"kvt1_setfunhelp", {str(L"f"), num(1)}, L"Second parameter should be string\n", L"(0)"},
      {L"kvt1_reporting", {num(3)}, L"First parameter should be string\n", L"(0)"},
      {L"kvt1_reporting", {str(L"Count::Tool")}, L"", L"(0)"},
      {L"kvt1_support", {num(1), num(2), num(3)}, L"", L"(0)"},  // arguments not checked
      {L"kvt1_GetSettings", {}, L"less parameters provided\n", L"nil"},
      {L"kvt1_GetSettings", {num(1)}, L"First parameter should be string\n", L"(0)"},
      {L"kvt1_GetSettings", {str(L"##120")}, L"", L"\"0\""},
      {L"kvt1_SetSettings", {str(L"##120")}, L"less parameters provided\n", L"nil"},
      {L"kvt1_SetSettings", {str(L"##120"), LispValue::nil()}, L"Second parameter should be string\n", L"(0)"},
      {L"kvt1_SetSettings", {str(L"##120"), str(L"1")}, L"", L"(0)"},
  };
  for (const CallCase& c : cases) {
    output.clear();
    const std::wstring result = call(c.function, c.args);
    SCOPED_TRACE(std::string(c.function, c.function + std::wcslen(c.function)));
    EXPECT_EQ(output, c.printed);
    EXPECT_EQ(result, c.result);
  }
}

TEST_F(Dispatcher, TypeTestsLookAtTheTypeCodeOnly) {
  // A long integer is not the short integer the splash demands.
  output.clear();
  EXPECT_EQ(call(L"kvt1_splash", {num(100000)}), L"(0)");
  EXPECT_EQ(output, L"First parameter should be integer\n");
}

TEST_F(Dispatcher, AnUnknownCodeDoesNothingAndAnswersZeroList) {
  host().beginCall(kLispFunctionCount, nullptr);
  dispatchLispCall(services);
  EXPECT_EQ(toLispText(host().endCall()), L"(0)");
  EXPECT_EQ(output, L"");
}

TEST_F(Dispatcher, CountsArgumentsOfAnyType) {
  EXPECT_TRUE(checkArgCount(nullptr, 0));
  resbuf* args = emu::toArgumentList({num(1), LispValue::list({num(1), num(2)}), str(L"s")});
  // A nested list counts as its opening, items and closing buffers.
  EXPECT_TRUE(checkArgCount(args, 6));
  EXPECT_FALSE(checkArgCount(args, 7));
  EXPECT_FALSE(checkArgCount(args, 5));
  emu::releaseList(args);
  EXPECT_EQ(output, L"less parameters provided\nMore parameters provided\n");
}

}  // namespace
}  // namespace kvt1
