// The report file: zlib or plain JSON on disk, what is not a report, saves
// that fail part-way, and a reader that is not ours.
#include <gtest/gtest.h>

#include <cstdlib>

#include "online/usage/UsageReportStore.h"
#include "online/usage/ZlibText.h"
#include "platform/SaveFaults.h"
#include "platform/Unicode.h"
#include "tests/common/TestInstallation.h"
#include "tests/online/usage/UsageTestSupport.h"

#ifndef _WIN32
#include <signal.h>
#include <sys/resource.h>
#endif

namespace kvt1::testing {
namespace {

using usage::ReportLoad;
using usage::UsageReportStore;

class UsageReportStoreTest : public ::testing::Test {
 protected:
  UsageReportStoreTest() : path(installation.folder() + L"\\Reports\\UsageReport_0_30.rpt") {
    report.AddLogin(L"TestCAD::x86::5", 1000);
    report.AddToolUse(L"Surfaces", 1001);
    report.AddCount(L"Count::Building::Import", 2);
    report.SetGuid(L"{0F8FAD5B-D9CB-469F-A165-70867728950E}");
    writeBytes(installation.folder() + L"\\Reports\\keep", "");
  }

  ReportLoad load(Hv::CHvUsageReport& into) const { return UsageReportStore().Load(path, into); }

  TestInstallation installation;
  std::wstring path;
  Hv::CHvUsageReport report;
};

TEST_F(UsageReportStoreTest, SavesAZlibStreamAndPlainTextAndReadsBoth) {
  ASSERT_TRUE(UsageReportStore().Save(path, report, true));
  std::string text;
  ASSERT_TRUE(usage::inflateText(fileBytes(path), text, 1 << 20));
  EXPECT_EQ(text, usage::reportFileText(report));
  Hv::CHvUsageReport read;
  ASSERT_EQ(load(read), ReportLoad::Loaded);
  EXPECT_EQ(read.ToolUses()[0].times[0], 1001u);
  EXPECT_EQ(read.FilePath(), path);

  ASSERT_TRUE(UsageReportStore().Save(path, report, false));
  EXPECT_EQ(fileBytes(path), usage::reportFileText(report));
  ASSERT_EQ(load(read), ReportLoad::Loaded);
  EXPECT_EQ(counterOf(read, L"Count::Building::Import"), 2);
  // No temporary file is left beside the report.
  EXPECT_EQ(folderEntries(installation.folder() + L"\\Reports"),
            (std::vector<std::string>{"UsageReport_0_30.rpt", "keep"}));
}

TEST_F(UsageReportStoreTest, AHandWrittenPlainReportIsRead) {
  writeBytes(path,
             "{ \"UsageReport\" : {\n  \"VER\" : 1, \"LastSend\" : 1234,\n"
             "  \"Counters\" : { \"Num\" : 1, \"0_Name\" : \"Count::Regulation::ICAO\", \"0_Ct\" : 9 } } }\n");
  Hv::CHvUsageReport read;
  ASSERT_EQ(load(read), ReportLoad::Loaded);
  EXPECT_EQ(read.LastSend(), 1234u);
  EXPECT_EQ(counterOf(read, L"Count::Regulation::ICAO"), 9);
}

TEST_F(UsageReportStoreTest, WhatIsNoReportIsUnreadableAndLeftAlone) {
  Hv::CHvUsageReport read;
  EXPECT_EQ(load(read), ReportLoad::Missing);

  const std::string whole = usage::deflateText(usage::reportFileText(report));
  const std::string bad[] = {
      whole.substr(0, whole.size() / 2),            // truncated stream
      whole + "trailing",                           // bytes after the stream
      usage::deflateText("this is not JSON"),       // a stream of something else
      "\x78\x9c garbage \xff\xfe",                  // garbage with a zlib header
      "",                                           // empty
      R"({"UsageReport":{"VER":2,"LastSend":5}})",  // a newer format
      usage::deflateText(R"({"UsageReport":{"VER":2}})"),
      std::string(100, '['),                                                     // unfinished JSON
      usage::reportFileText(report) + std::string(usage::kMaxReportBytes, ' '),  // beyond the size bound
      usage::deflateText(usage::reportFileText(report) +
                         std::string(usage::kMaxReportBytes, ' ')),  // inflates beyond it
  };
  for (const std::string& bytes : bad) {
    writeBytes(path, bytes);
    EXPECT_EQ(load(read), ReportLoad::Unreadable) << bytes.size();
    EXPECT_EQ(fileBytes(path), bytes);
  }
}

TEST_F(UsageReportStoreTest, KeepingAsideNeverOverwrites) {
  writeBytes(path, "first");
  const UsageReportStore store;
  EXPECT_EQ(store.KeepAside(path), path + L".unreadable");
  writeBytes(path, "second");
  EXPECT_EQ(store.KeepAside(path), path + L".unreadable-2");
  EXPECT_EQ(fileBytes(path + L".unreadable"), "first");
  EXPECT_EQ(fileBytes(path + L".unreadable-2"), "second");
  EXPECT_EQ(store.KeepAside(path), L"");  // nothing left to move
}

// A full disk, a flush that fails, a target that cannot be replaced: the
// save says so, and the report it would replace stays whole and readable.
TEST_F(UsageReportStoreTest, ASaveThatFailsAtAnyStepLeavesThePreviousReport) {
  ASSERT_TRUE(UsageReportStore().Save(path, report, true));
  const std::string before = fileBytes(path);
  Hv::CHvUsageReport bigger = report;
  bigger.AddCount(L"Count::Regulation::FAA", 1);
  for (const platform::SaveStep step :
       {platform::SaveStep::Write, platform::SaveStep::Flush, platform::SaveStep::Replace}) {
    for (const bool compressed : {true, false}) {
      platform::armSaveFault(step);
      EXPECT_FALSE(UsageReportStore().Save(path, bigger, compressed)) << static_cast<int>(step);
      platform::disarmSaveFaults();
      EXPECT_EQ(fileBytes(path), before);
      Hv::CHvUsageReport read;
      EXPECT_EQ(UsageReportStore().Load(path, read), ReportLoad::Loaded);
      EXPECT_EQ(folderEntries(installation.folder() + L"\\Reports"),
                (std::vector<std::string>{"UsageReport_0_30.rpt", "keep"}));
    }
  }
  EXPECT_TRUE(UsageReportStore().Save(path, bigger, true));  // the next save goes through
}

TEST_F(UsageReportStoreTest, AFolderThatCannotBeWrittenFailsTheSave) {
  // A file stands where the report folder should be.
  writeBytes(installation.folder() + L"\\Blocked", "a file");
  EXPECT_FALSE(UsageReportStore().Save(installation.folder() + L"\\Blocked\\UsageReport_0_30.rpt", report, true));
}

#ifndef _WIN32
// A real full disk: the process may write no file beyond 64 bytes, so the
// system refuses the save's writes itself.
TEST_F(UsageReportStoreTest, AFullDiskLeavesThePreviousReport) {
  ASSERT_TRUE(UsageReportStore().Save(path, report, false));
  const std::string before = fileBytes(path);
  Hv::CHvUsageReport bigger = report;
  for (int i = 0; i < 1000; ++i) bigger.AddToolUse(L"Tool", 2000 + i);

  rlimit original{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &original), 0);
  const auto oldHandler = signal(SIGXFSZ, SIG_IGN);
  rlimit small = original;
  small.rlim_cur = 64;
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  const bool saved = UsageReportStore().Save(path, bigger, false);
  setrlimit(RLIMIT_FSIZE, &original);
  signal(SIGXFSZ, oldHandler);

  EXPECT_FALSE(saved);
  EXPECT_EQ(fileBytes(path), before);
  EXPECT_EQ(folderEntries(installation.folder() + L"\\Reports"),
            (std::vector<std::string>{"UsageReport_0_30.rpt", "keep"}));
}

// Python's zlib and json read what the module wrote, and see the same content.
TEST_F(UsageReportStoreTest, AnIndependentReaderSeesTheSameReport) {
  if (std::system("python3 -c 'import zlib, json' 2>/dev/null") != 0) GTEST_SKIP() << "python3 is not available";
  report.AddToolUse(L"Gel\u00e4nde", 1002);
  ASSERT_TRUE(UsageReportStore().Save(path, report, true));
  const std::string native = platform::toUtf8(path.substr(0, path.find(L'\\'))) + "/Reports/UsageReport_0_30.rpt";
  const std::string command =
      "python3 -c 'import zlib, json, sys; r = json.loads(zlib.decompress(open(sys.argv[1], \"rb\").read()))"
      "[\"UsageReport\"]; sys.exit(0 if r[\"VER\"] == 1 and r[\"ToolUses\"][\"Num\"] == 2 and "
      "r[\"ToolUses\"][\"1_Tool\"] == \"Gel\\u00e4nde\" and r[\"ToolUses\"][\"0_Times\"] == [1001] and "
      "r[\"Counters\"][\"0_Ct\"] == 2 and r[\"Logins\"][\"0_Platform\"] == \"TestCAD::x86::5\" and "
      "r[\"Guid\"] == \"{0F8FAD5B-D9CB-469F-A165-70867728950E}\" else 1)' '" +
      native + "'";
  EXPECT_EQ(std::system(command.c_str()), 0) << command;
}
#endif

TEST(UsageReportSize, AMillionToolUseTimesAreReadBack) {
  TestInstallation installation;
  const std::wstring path = installation.folder() + L"\\UsageReport_0_30.rpt";
  Hv::CHvUsageReport report;
  for (std::uint32_t i = 0; i < 1000000; ++i) report.AddToolUse(L"Surfaces", 1500000000u + i);
  ASSERT_TRUE(UsageReportStore().Save(path, report, true));
  Hv::CHvUsageReport read;
  ASSERT_EQ(UsageReportStore().Load(path, read), ReportLoad::Loaded);
  ASSERT_EQ(read.ToolUses().size(), 1u);
  EXPECT_EQ(read.ToolUses()[0].times, report.ToolUses()[0].times);
}

TEST(UsageZlibText, InflatingStopsAtTheLimit) {
  const std::string text(100000, 'a');
  std::string out = "untouched";
  EXPECT_FALSE(usage::inflateText(usage::deflateText(text), out, 99999));
  EXPECT_EQ(out, "untouched");
  EXPECT_TRUE(usage::inflateText(usage::deflateText(text), out, 100000));
  EXPECT_EQ(out, text);
}

}  // namespace
}  // namespace kvt1::testing
