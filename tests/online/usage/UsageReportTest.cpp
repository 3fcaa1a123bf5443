// The report's JSON members, how bad members are read, merging and feature names.
#include <gtest/gtest.h>

#include <limits>

#include "online/JsonText.h"
#include "online/usage/CHvUsageReport.h"
#include "online/usage/FeatureCodes.h"
#include "online/usage/UsageReportSending.h"
#include "online/usage/UsageReportStore.h"
#include "online/usage/ZlibText.h"
#include "platform/Unicode.h"
#include "tests/online/OnlineTestSupport.h"
#include "tests/online/usage/UsageTestSupport.h"

namespace kvt1::testing {
namespace {

Hv::CHvUsageReport sampleReport() {
  Hv::CHvUsageReport report;
  report.SetLastSend(1400000000);
  report.SetLicenseNum(4000000000u);
  report.SetProduct(30);
  report.SetGuid(L"{0F8FAD5B-D9CB-469F-A165-70867728950E}");
  report.SetEval(true);
  report.AddLogin(L"AutoCAD 2018::x86::170393861", 100);
  report.AddLogin(L"AutoCAD 2018::x86::170393861", 200);
  report.AddToolUse(L"Surfaces", 150);
  report.AddToolUse(L"Gel\u00e4nde", 160);
  report.AddCustomValue(L"WinXP", L"No", false);
  report.AddCustomValue(L"Layers", L"A", true);
  report.AddCustomValue(L"Layers", L"A", true);
  report.AddCount(L"Count::Building::Import", 2);
  return report;
}

bool readText(const std::string& text, Hv::CHvUsageReport& report) { return usage::readReportFileText(text, report); }

Json::Value reportObject(const Hv::CHvUsageReport& report) {
  json::OrderedObject ordered;
  report.WriteJson(ordered);
  Json::Value object;
  EXPECT_TRUE(json::parse(ordered.text(), object)) << ordered.text();
  return object;
}

TEST(UsageReportJson, WritesEveryMemberUnderItsName) {
  const Json::Value object = reportObject(sampleReport());
  EXPECT_EQ(object["VER"].asInt(), 1);
  EXPECT_EQ(object["LastSend"].asUInt(), 1400000000u);
  EXPECT_EQ(object["LicenseNum"].asUInt(), 4000000000u);
  EXPECT_EQ(object["Product"].asUInt(), 30u);
  EXPECT_EQ(object["Guid"].asString(), "{0F8FAD5B-D9CB-469F-A165-70867728950E}");
  EXPECT_TRUE(object["Eval"].asBool());
  EXPECT_EQ(object["Logins"]["Num"].asInt(), 1);
  EXPECT_EQ(object["Logins"]["0_Platform"].asString(), "AutoCAD 2018::x86::170393861");
  EXPECT_EQ(object["Logins"]["0_Times"].size(), 2u);
  EXPECT_EQ(object["Logins"]["0_Times"][1].asUInt(), 200u);
  EXPECT_EQ(object["ToolUses"]["Num"].asInt(), 2);
  EXPECT_EQ(object["ToolUses"]["1_Tool"].asString(), "Gel\xc3\xa4nde");
  EXPECT_EQ(object["ToolUses"]["1_Times"][0].asUInt(), 160u);
  EXPECT_EQ(object["Custom"]["Num"].asInt(), 2);
  EXPECT_EQ(object["Custom"]["0_Name"].asString(), "WinXP");
  EXPECT_FALSE(object["Custom"]["0_Dupes"].asBool());
  EXPECT_TRUE(object["Custom"]["1_Dupes"].asBool());
  EXPECT_EQ(object["Custom"]["1_Vals"].size(), 2u);  // kept twice: dupes allowed
  EXPECT_EQ(object["Counters"]["0_Name"].asString(), "Count::Building::Import");
  EXPECT_EQ(object["Counters"]["0_Ct"].asInt(), 2);
  // Nothing beyond the listed members.
  EXPECT_EQ(object.size(), 10u);
  EXPECT_EQ(object["Logins"].size(), 3u);
}

// The member names of a JSON text, at every depth, in the order they appear.
std::vector<std::string> memberNames(const std::string& text) {
  std::vector<std::string> names;
  for (std::size_t quote = text.find('"'); quote != std::string::npos; quote = text.find('"', quote + 1)) {
    const std::size_t end = text.find('"', quote + 1);
    if (end == std::string::npos) break;
    if (end + 1 < text.size() && text[end + 1] == ':') names.push_back(text.substr(quote + 1, end - quote - 1));
    quote = end;
  }
  return names;
}

TEST(UsageReportJson, TheFileAndTheFrameKeepTheMembersInTheirOrder) {
  Hv::CHvUsageReport report = sampleReport();
  // Eleven counters: "10_Name" comes after "9_Ct", not after "1_Ct".
  for (int i = 1; i <= 10; ++i) report.AddCount(L"Count::" + std::to_wstring(i), i);
  std::vector<std::string> expected = {"VER",    "LastSend",   "LicenseNum", "Product",  "Guid",   "Eval",    "Logins",
                                       "Num",    "0_Platform", "0_Times",    "ToolUses", "Num",    "0_Tool",  "0_Times",
                                       "1_Tool", "1_Times",    "Custom",     "Num",      "0_Name", "0_Dupes", "0_Vals",
                                       "1_Name", "1_Dupes",    "1_Vals",     "Counters", "Num"};
  for (int i = 0; i <= 10; ++i) {
    expected.push_back(std::to_string(i) + "_Name");
    expected.push_back(std::to_string(i) + "_Ct");
  }

  std::vector<std::string> inFile = {"UsageReport"};
  inFile.insert(inFile.end(), expected.begin(), expected.end());
  EXPECT_EQ(memberNames(usage::reportFileText(report)), inFile);

  const std::vector<std::uint8_t> frame = usage::frameReport(report);
  std::string framed;
  ASSERT_TRUE(usage::inflateText(std::string(frame.begin() + 4, frame.end()), framed, 1 << 20));
  EXPECT_EQ(memberNames(framed), expected);
}

TEST(UsageReportJson, ReadsBackWhatItWrote) {
  const Hv::CHvUsageReport original = sampleReport();
  Hv::CHvUsageReport read;
  ASSERT_TRUE(readText(usage::reportFileText(original), read));
  EXPECT_EQ(read.LastSend(), original.LastSend());
  EXPECT_EQ(read.LicenseNum(), original.LicenseNum());
  EXPECT_EQ(read.Guid(), original.Guid());
  EXPECT_TRUE(read.Eval());
  ASSERT_EQ(read.Logins().size(), 1u);
  EXPECT_EQ(read.Logins()[0].times, (std::vector<std::uint32_t>{100, 200}));
  ASSERT_EQ(read.ToolUses().size(), 2u);
  EXPECT_EQ(read.ToolUses()[1].tool, L"Gel\u00e4nde");
  ASSERT_EQ(read.Custom().size(), 2u);
  EXPECT_EQ(read.Custom()[1].vals, (std::vector<std::wstring>{L"A", L"A"}));
  EXPECT_EQ(read.Counters()[0].count, 2);
}

TEST(UsageReportJson, ANewerFormatIsRejectedWhole) {
  Hv::CHvUsageReport report = sampleReport();
  EXPECT_FALSE(readText(R"({"UsageReport":{"VER":2,"LastSend":5,"Counters":{"Num":0}}})", report));
  EXPECT_FALSE(readText(R"({"UsageReport":{"VER":1e30}})", report));
  EXPECT_EQ(report.LastSend(), 1400000000u);  // untouched
  EXPECT_EQ(report.Logins().size(), 1u);
  // A report without "VER", or not an object, or no report at all.
  EXPECT_TRUE(readText(R"({"UsageReport":{"LastSend":5}})", report));
  EXPECT_EQ(report.LastSend(), 5u);
  EXPECT_TRUE(report.Logins().empty());
  EXPECT_FALSE(readText(R"({"UsageReport":[1,2]})", report));
  EXPECT_FALSE(readText(R"({"Other":{}})", report));
  EXPECT_FALSE(readText(R"([])", report));
}

TEST(UsageReportJson, BadMembersReadAsEmptyOrZero) {
  Hv::CHvUsageReport report;
  ASSERT_TRUE(readText(R"({"UsageReport":{"VER":1,"LastSend":-5,"LicenseNum":99999999999,"Product":"30","Guid":7,
      "Eval":1,
      "Logins":{"Num":2147483647,"0_Platform":"P","0_Times":[1,-1,4294967295,4294967296,2.5,"3",null,2]},
      "ToolUses":{"Num":-3,"0_Tool":"T","0_Times":[1]},
      "Custom":{"Num":5,"0_Name":"C","0_Dupes":"yes","0_Vals":["a",1,"b"],"3_Name":"D"},
      "Counters":{"Num":4,"0_Name":"N","0_Ct":-4,"1_Name":"M","1_Ct":99999999999,"2_Name":"K","2_Ct":12}}})",
                       report));
  EXPECT_EQ(report.LastSend(), 0u);
  EXPECT_EQ(report.LicenseNum(), 0u);
  EXPECT_EQ(report.Product(), 0u);
  EXPECT_EQ(report.Guid(), L"");
  EXPECT_FALSE(report.Eval());
  // "Num" far beyond the records: only records that exist are read.
  ASSERT_EQ(report.Logins().size(), 1u);
  EXPECT_EQ(report.Logins()[0].times, (std::vector<std::uint32_t>{1, 4294967295u, 2}));
  EXPECT_TRUE(report.ToolUses().empty());
  ASSERT_EQ(report.Custom().size(), 2u);
  EXPECT_FALSE(report.Custom()[0].dupes);
  EXPECT_EQ(report.Custom()[0].vals, (std::vector<std::wstring>{L"a", L"b"}));
  EXPECT_EQ(report.Custom()[1].name, L"D");
  ASSERT_EQ(report.Counters().size(), 3u);
  EXPECT_EQ(report.Counters()[0].count, 0);
  EXPECT_EQ(report.Counters()[1].count, 0);
  EXPECT_EQ(report.Counters()[2].count, 12);
}

TEST(UsageReportRecords, RecordsJoinByNameAndCustomValuesRespectDupes) {
  Hv::CHvUsageReport report;
  report.AddCustomValue(L"KVTVer", L"1.1.0", false);
  report.AddCustomValue(L"KVTVer", L"1.1.0", true);  // the record keeps its first flag
  report.AddCustomValue(L"KVTVer", L"1.2.0", false);
  ASSERT_EQ(report.Custom().size(), 1u);
  EXPECT_EQ(report.Custom()[0].vals, (std::vector<std::wstring>{L"1.1.0", L"1.2.0"}));

  report.AddCount(L"C", std::numeric_limits<std::int32_t>::max() - 1);
  report.AddCount(L"C", 5);
  EXPECT_EQ(report.Counters()[0].count, std::numeric_limits<std::int32_t>::max());
}

TEST(UsageReportRecords, MergeAppendsTimesAddsCountsAndJoinsCustomValuesAndRemoveTakesThemOut) {
  Hv::CHvUsageReport stored = sampleReport();
  Hv::CHvUsageReport run;
  run.SetLastSend(99);
  run.AddLogin(L"AutoCAD 2018::x86::170393861", 300);
  run.AddLogin(L"AutoCAD 2017::x86::1", 301);
  run.AddToolUse(L"Surfaces", 310);
  run.AddCustomValue(L"WinXP", L"No", false);
  run.AddCustomValue(L"WinXP", L"Yes", false);
  run.AddCustomValue(L"Layers", L"A", true);
  run.AddCount(L"Count::Building::Import", 3);
  run.AddCount(L"Count::Regulation::FAA", 1);

  stored.Merge(run);
  EXPECT_EQ(stored.LastSend(), 1400000000u);
  ASSERT_EQ(stored.Logins().size(), 2u);
  EXPECT_EQ(stored.Logins()[0].times, (std::vector<std::uint32_t>{100, 200, 300}));
  EXPECT_EQ(stored.Logins()[1].platform, L"AutoCAD 2017::x86::1");
  EXPECT_EQ(stored.ToolUses()[0].times, (std::vector<std::uint32_t>{150, 310}));
  EXPECT_EQ(stored.Custom()[0].vals, (std::vector<std::wstring>{L"No", L"Yes"}));
  EXPECT_EQ(stored.Custom()[1].vals.size(), 3u);
  EXPECT_EQ(stored.Counters()[0].count, 5);
  EXPECT_EQ(stored.Counters()[1].name, L"Count::Regulation::FAA");

  // Taking the sample out again leaves exactly what the run added.
  Hv::CHvUsageReport added = stored;
  added.Remove(sampleReport());
  ASSERT_EQ(added.Logins().size(), 2u);
  EXPECT_EQ(added.Logins()[0].times, (std::vector<std::uint32_t>{300}));
  EXPECT_EQ(added.Logins()[1].times, (std::vector<std::uint32_t>{301}));
  ASSERT_EQ(added.ToolUses().size(), 1u);
  EXPECT_EQ(added.ToolUses()[0].times, (std::vector<std::uint32_t>{310}));
  ASSERT_EQ(added.Custom().size(), 2u);
  EXPECT_EQ(added.Custom()[0].vals, (std::vector<std::wstring>{L"Yes"}));
  EXPECT_EQ(added.Custom()[1].vals, (std::vector<std::wstring>{L"A"}));
  ASSERT_EQ(added.Counters().size(), 2u);
  EXPECT_EQ(added.Counters()[0].count, 3);
  EXPECT_EQ(added.LastSend(), 1400000000u);
  // Taking out more than is there empties records and drops them; no count goes below zero.
  added.Remove(stored);
  EXPECT_TRUE(added.Logins().empty() && added.ToolUses().empty() && added.Custom().empty() && added.Counters().empty());

  stored.Clear();
  EXPECT_TRUE(stored.Logins().empty() && stored.ToolUses().empty() && stored.Custom().empty() &&
              stored.Counters().empty());
  EXPECT_EQ(stored.Guid(), L"{0F8FAD5B-D9CB-469F-A165-70867728950E}");
  EXPECT_EQ(stored.LastSend(), 1400000000u);
}

TEST(UsageFeatureCodes, CodesAndNamesGiveCounterNames) {
  EXPECT_EQ(Hv::FeatureCounterName(L"203"), L"Count::Building::Import");
  EXPECT_EQ(Hv::FeatureCounterName(L"404"), L"Count::Regulation::Canada");
  EXPECT_EQ(Hv::FeatureCounterName(L"101"), L"Count::Settings::Imperial");
  EXPECT_EQ(Hv::FeatureCounterName(L"Building::Import"), L"Count::Building::Import");
  EXPECT_EQ(Hv::FeatureCounterName(L"999"), L"Count::999");
  EXPECT_EQ(Hv::FeatureCounterName(L"0203"), L"Count::0203");
  EXPECT_EQ(Hv::FeatureName(302), std::wstring(L"Heightfield::Filter"));
  EXPECT_EQ(Hv::FeatureName(0), nullptr);
}

// The demo session counts features as the LISP application does: by a feature
// code or a feature name, so the counter is "Count::" and a known feature.
TEST(FeatureNames, TheDemoCountsKnownFeatures) {
  std::wstring known;
  for (int code = 0; code < 1000; ++code) {
    if (const wchar_t* name = Hv::FeatureName(code)) known += L"|Count::" + std::wstring(name) + L"|";
  }
  const std::string script = fileBytes(programFolder() + L"/demo.lsp");
  ASSERT_FALSE(script.empty());
  const std::string call = "(kvt1_reporting \"";
  int counted = 0;
  for (std::size_t at = script.find(call); at != std::string::npos; at = script.find(call, at + 1)) {
    const std::size_t begin = at + call.size();
    const std::string key = script.substr(begin, script.find('"', begin) - begin);
    const std::wstring counter = Hv::FeatureCounterName(platform::fromUtf8(key));
    EXPECT_NE(known.find(L"|" + counter + L"|"), std::wstring::npos) << key;
    ++counted;
  }
  EXPECT_GT(counted, 0);
}

}  // namespace
}  // namespace kvt1::testing
