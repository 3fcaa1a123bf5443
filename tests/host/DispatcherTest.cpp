#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/LispFunctions.h"
#include "host/LispServices.h"
#include "online/CHvAutomaticUpdateManager.h"
#include "settings/CHelpTopicMap.h"
#include "settings/ProductKey.h"
#include "settings/SettingsStore.h"
#include "tests/common/HeadlessRecorder.h"
#include "tests/common/TestInstallation.h"
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
    loadUpdateSettings();
  }
  void TearDown() override { host().reset(); }

  static EmulatedHost& host() { return EmulatedHost::instance(); }

  // The update switches afresh from the installation's registry, as at start-up.
  static void loadUpdateSettings() {
    Hv::Http::CHvAutomaticUpdateManager* updates = Hv::Http::CHvAutomaticUpdateManager::Instance();
    *updates = Hv::Http::CHvAutomaticUpdateManager();
    updates->LoadSettings(productKeyPath());
  }

  // Calls a function as the host does and answers its result in LISP notation.
  std::wstring call(const std::wstring& name, std::vector<LispValue> args) {
    const std::optional<int> code = host().functionCode(name);
    EXPECT_TRUE(code.has_value()) << "not defined: " << std::string(name.begin(), name.end());
    host().beginCall(code.value_or(-1), emu::toArgumentList(args));
    dispatchLispCall(services);
    return toLispText(host().endCall());
  }

  testing::TestInstallation installation;
  std::wstring output;
  CHelpTopicMap helpMap;
  SettingsStore settings;
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
      {L"kvt1_GetSettings", {str(L"##120")}, L"", L"\"1\""},
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

TEST_F(Dispatcher, UpdateSwitchKeysAndValuesReadAsNumbersAndAreStoredForTheUser) {
  const auto get = [this](const wchar_t* key) { return call(L"kvt1_GetSettings", {str(key)}); };
  const auto set = [this](const wchar_t* key, const wchar_t* value) {
    return call(L"kvt1_SetSettings", {str(key), str(value)});
  };
  EXPECT_EQ(get(L"120"), L"\"0\"");          // no "##": number 0, whatever the switch
  EXPECT_EQ(set(L"##120", L"yes"), L"(0)");  // no digits: 0 switches off
  EXPECT_EQ(get(L"##120"), L"\"0\"");
  loadUpdateSettings();
  EXPECT_EQ(get(L"##120"), L"\"0\"");

  EXPECT_EQ(set(L"120", L"1"), L"(0)");  // number 0: ignored
  EXPECT_EQ(get(L"##120"), L"\"0\"");
  EXPECT_EQ(set(L"##1##20 days", L" 1st"), L"(0)");  // every "##" removed, leading digits
  EXPECT_EQ(get(L"##12##0"), L"\"1\"");
  loadUpdateSettings();
  EXPECT_EQ(get(L"##120"), L"\"1\"");

  EXPECT_EQ(set(L"##120", L"0"), L"(0)");
  testing::headless().messages.clear();
  EXPECT_EQ(set(L"##120", L"2"), L"(0)");  // a check now (no service answers); the switch stays off
  EXPECT_EQ(testing::headless().messages,
            std::vector<std::wstring>{L"Automatic Updates Notification: No updates were found."});
  EXPECT_EQ(get(L"##120"), L"\"0\"");
  EXPECT_EQ(output, L"");
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
