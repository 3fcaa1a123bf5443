// The manager: consent at start-up, nothing written without it, the run's
// report, the first save, the merge, the due decision and the send.
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

#include "online/JsonText.h"
#include "online/usage/UsageReportSending.h"
#include "online/usage/ZlibText.h"
#include "platform/Guid.h"
#include "platform/OsVersion.h"
#include "platform/Unicode.h"
#include "platform/WideFormat.h"
#include "settings/ProductKey.h"
#include "tests/online/OnlineTestSupport.h"
#include "tests/online/usage/UsageTestSupport.h"

namespace kvt1::testing {
namespace {

// The report in a frame: its 4-byte length, then the zlib stream of its JSON
// text; fails the test when the frame is not that.
Hv::CHvUsageReport framedReport(const std::vector<std::uint8_t>& frame) {
  Hv::CHvUsageReport framed;
  if (frame.size() < 4) {
    ADD_FAILURE() << "a frame of " << frame.size() << " bytes";
    return framed;
  }
  const std::uint32_t length = frame[0] | frame[1] << 8 | frame[2] << 16 | static_cast<std::uint32_t>(frame[3]) << 24;
  EXPECT_EQ(length, frame.size() - 4);
  std::string text;
  Json::Value object;
  EXPECT_TRUE(usage::inflateText(std::string(frame.begin() + 4, frame.end()), text, 1 << 20) &&
              json::parse(text, object) && framed.ReadJson(object));
  return framed;
}

class UsageManager : public ::testing::Test {
 protected:
  UsageManager() : folder(installation.folder() + L"\\Reports"), manager(folder) {}

  std::wstring path() { return folder + L"\\UsageReport_7_30.rpt"; }
  // One whole run of the host application.
  void run(int imports) {
    manager.DecideConsent();
    manager.StartRun();
    for (int i = 0; i < imports; ++i) manager.CountFeature(L"Building::Import");
    manager.EndRun();
  }

  TestInstallation installation;
  std::wstring folder;
  TestUsageManager manager;
};

TEST_F(UsageManager, ConsentComesFromTheUsersValue) {
  manager.DecideConsent();
  EXPECT_TRUE(manager.MustAsk());
  EXPECT_FALSE(manager.IsCollecting());

  const std::pair<std::uint32_t, bool> values[] = {{0, false}, {1, true}, {5, true}, {0xFFFFFFFF, false}};
  for (const auto& [value, collecting] : values) {
    setConsent(installation, value);
    manager.DecideConsent();
    EXPECT_EQ(manager.IsCollecting(), collecting) << value;
    EXPECT_EQ(manager.MustAsk(), value == 0xFFFFFFFF) << value;
  }

  // A value of another type counts as absent.
  setRegistryString(installation, platform::RegistryRoot::CurrentUser, productKeyPath(), L"HVCOLLECTUSAGE", L"1");
  manager.DecideConsent();
  EXPECT_TRUE(manager.MustAsk());
  EXPECT_FALSE(manager.IsCollecting());
}

TEST_F(UsageManager, TheAnswerIsStoredOnlyForOk) {
  std::uint32_t stored = 0;
  manager.DecideConsent();
  EXPECT_FALSE(manager.ApplyConsentResult(kUsageConsentClosed));
  EXPECT_FALSE(manager.ApplyConsentResult(kUsageConsentLater));
  EXPECT_FALSE(readUserDword(productKeyPath(), L"HVCOLLECTUSAGE", stored));
  EXPECT_FALSE(manager.MustAsk());

  EXPECT_FALSE(manager.ApplyConsentResult(kUsageConsentDeclined));
  ASSERT_TRUE(readUserDword(productKeyPath(), L"HVCOLLECTUSAGE", stored));
  EXPECT_EQ(stored, 0u);
  EXPECT_TRUE(manager.ApplyConsentResult(kUsageConsentAgreed));
  ASSERT_TRUE(readUserDword(productKeyPath(), L"HVCOLLECTUSAGE", stored));
  EXPECT_EQ(stored, 1u);
  EXPECT_TRUE(manager.IsCollecting());
}

TEST_F(UsageManager, NothingIsWrittenWithoutConsent) {
  for (const bool declined : {false, true}) {
    if (declined) setConsent(installation, 0);
    run(3);
    manager.IncrementCounter(L"X");
    manager.AddToolUse(L"Tool");
    manager.AddCustomValue(L"Name", L"Value", false);
    EXPECT_EQ(manager.GetReport(), nullptr);
    EXPECT_TRUE(folderEntries(folder).empty());
    std::wstring guid;
    EXPECT_FALSE(readUserString(productKeyPath(), L"HVID", guid));
  }
  // A report already there is not changed either.
  writeBytes(path(), "stored");
  run(3);
  EXPECT_EQ(fileBytes(path()), "stored");
}

TEST_F(UsageManager, TheRunsReportHoldsTheLoginAndTheIdentity) {
  setConsent(installation, 1);
  manager.DecideConsent();
  manager.StartRun();
  manager.AddToolUse(L"Surfaces");
  manager.AddCustomValue(L"Units", L"m", false);
  const Hv::CHvUsageReport* report = manager.GetReport();
  ASSERT_NE(report, nullptr);
  EXPECT_EQ(report->LicenseNum(), 7u);
  EXPECT_EQ(report->Product(), 30u);
  EXPECT_TRUE(report->Eval());
  EXPECT_EQ(report->FilePath(), path());
  platform::Guid guid;
  EXPECT_TRUE(platform::parseGuid(report->Guid(), guid));
  std::wstring stored;
  ASSERT_TRUE(readUserString(productKeyPath(), L"HVID", stored));
  EXPECT_EQ(stored, report->Guid());

  const std::uint32_t version = platform::packedOsVersion();
  ASSERT_EQ(report->Logins().size(), 1u);
  EXPECT_EQ(report->Logins()[0].platform, platform::formatWide(L"TestCAD::x86::%d", static_cast<int>(version)));
  EXPECT_EQ(report->Logins()[0].times, (std::vector<std::uint32_t>{kStart}));
  ASSERT_EQ(report->Custom().size(), 2u);
  EXPECT_EQ(report->Custom()[0].name, L"WinXP");
  EXPECT_EQ(report->Custom()[0].vals[0], platform::osMajorVersion(version) == 5 ? L"Yes" : L"No");
  EXPECT_EQ(report->ToolUses()[0].times, (std::vector<std::uint32_t>{kStart}));
  manager.EndRun();
  EXPECT_EQ(manager.GetReport(), nullptr);
}

TEST_F(UsageManager, TheWorkstationKeepsItsIdentifier) {
  const std::wstring known = L"{0F8FAD5B-D9CB-469F-A165-70867728950E}";
  setRegistryString(installation, platform::RegistryRoot::CurrentUser, productKeyPath(), L"HVID",
                    L"{0f8fad5b-d9cb-469f-a165-70867728950e}");
  setConsent(installation, 1);
  run(0);
  EXPECT_EQ(readStored(path()).Guid(), known);

  // A value that is no GUID is replaced by a new one.
  setRegistryString(installation, platform::RegistryRoot::CurrentUser, productKeyPath(), L"HVID", L"not a guid");
  manager.DecideConsent();
  manager.StartRun();
  const std::wstring made = manager.GetReport()->Guid();
  EXPECT_NE(made, known);
  std::wstring stored;
  ASSERT_TRUE(readUserString(productKeyPath(), L"HVID", stored));
  EXPECT_EQ(stored, made);
}

TEST_F(UsageManager, TheFirstRunIsStoredThirteenDaysOldAndLaterRunsAreMerged) {
  setConsent(installation, 1);
  run(1);
  Hv::CHvUsageReport stored = readStored(path());
  EXPECT_EQ(stored.LastSend(), kStart - 1123200);
  EXPECT_EQ(counterOf(stored, L"Count::Building::Import"), 1);

  manager.now = kStart + 3600;
  run(2);
  EXPECT_TRUE(manager.sent.empty());  // not yet due
  stored = readStored(path());
  EXPECT_EQ(stored.LastSend(), kStart - 1123200);
  EXPECT_EQ(counterOf(stored, L"Count::Building::Import"), 3);
  ASSERT_EQ(stored.Logins().size(), 1u);
  EXPECT_EQ(stored.Logins()[0].times, (std::vector<std::uint32_t>{kStart, kStart + 3600}));
  ASSERT_EQ(stored.Custom().size(), 1u);
  EXPECT_EQ(stored.Custom()[0].vals.size(), 1u);  // "WinXP" without dupes
}

TEST_F(UsageManager, AReportFallsDueAfterTheIntervalAndIsEmptiedWhenSent) {
  setConsent(installation, 1);
  run(2);
  manager.now = kStart + kDay - 1;
  run(0);
  EXPECT_TRUE(manager.sent.empty());

  manager.now = kStart + kDay;  // 14 days after the stored lastSend
  manager.DecideConsent();
  manager.StartRun();
  manager.WaitForSend();
  ASSERT_EQ(manager.sent.size(), 1u);
  const Hv::CHvUsageReport framed = framedReport(manager.sent[0]);
  EXPECT_EQ(framed.LastSend(), kStart + kDay);
  EXPECT_EQ(counterOf(framed, L"Count::Building::Import"), 2);
  EXPECT_EQ(framed.Logins()[0].times.size(), 2u);

  // Sent: the file holds an empty report with the new lastSend, then this run.
  Hv::CHvUsageReport stored = readStored(path());
  EXPECT_EQ(stored.LastSend(), kStart + kDay);
  EXPECT_TRUE(stored.Counters().empty());
  manager.CountFeature(L"203");
  manager.EndRun();
  stored = readStored(path());
  EXPECT_EQ(counterOf(stored, L"Count::Building::Import"), 1);
  EXPECT_EQ(stored.Logins()[0].times, (std::vector<std::uint32_t>{kStart + kDay}));
}

TEST_F(UsageManager, AFailedSendLeavesTheFileAsItWas) {
  setConsent(installation, 1);
  run(2);
  const std::string before = fileBytes(path());
  manager.channelAccepts = false;
  manager.now = kStart + 30 * kDay;
  manager.DecideConsent();
  manager.StartRun();
  manager.WaitForSend();
  EXPECT_EQ(manager.sent.size(), 1u);
  EXPECT_EQ(fileBytes(path()), before);
  manager.EndRun();
  // The next start tries again with all the data.
  manager.channelAccepts = true;
  manager.now += 60;
  manager.DecideConsent();
  manager.StartRun();
  manager.WaitForSend();
  ASSERT_EQ(manager.sent.size(), 2u);
  EXPECT_GT(manager.sent[1].size(), 4u);
  manager.EndRun();
  EXPECT_EQ(readStored(path()).LastSend(), kStart + 30 * kDay + 60);
}

TEST_F(UsageManager, TheMachineCanOnlyShortenTheInterval) {
  setConsent(installation, 1);
  run(0);  // stored lastSend: kStart - 13 days
  setMachineDword(installation, L"DataCollectionInterval", 30);
  manager.now = kStart + kDay - 1;
  run(0);
  EXPECT_TRUE(manager.sent.empty());
  manager.now = kStart + kDay;
  run(0);
  EXPECT_EQ(manager.sent.size(), 1u);

  setMachineDword(installation, L"DataCollectionInterval", 1);  // stored lastSend is now kStart + 1 day
  manager.now = kStart + 2 * kDay - 1;
  run(0);
  EXPECT_EQ(manager.sent.size(), 1u);
  manager.now = kStart + 2 * kDay;
  run(0);
  EXPECT_EQ(manager.sent.size(), 2u);
}

TEST_F(UsageManager, TheUncompressedSwitchWritesPlainJsonThatStaysReadable) {
  setConsent(installation, 1);
  setMachineDword(installation, L"DataCollectionUncompressed", 1);
  run(2);
  const std::string plain = fileBytes(path());
  ASSERT_FALSE(plain.empty());
  EXPECT_EQ(plain.front(), '{');
  setMachineDword(installation, L"DataCollectionUncompressed", 2);  // only exactly 1 counts
  manager.now += 60;
  run(1);
  const std::string compressed = fileBytes(path());
  std::string text;
  EXPECT_TRUE(usage::inflateText(compressed, text, 1 << 20));
  EXPECT_EQ(counterOf(readStored(path()), L"Count::Building::Import"), 3);
}

TEST_F(UsageManager, AnUnreadableReportIsKeptAsideAndANewOneStarted) {
  setConsent(installation, 1);
  writeBytes(path(), "garbage that is no report");
  run(1);  // not due: nothing to send from garbage
  EXPECT_TRUE(manager.sent.empty());
  EXPECT_EQ(fileBytes(path() + L".unreadable"), "garbage that is no report");
  Hv::CHvUsageReport stored = readStored(path());
  EXPECT_EQ(counterOf(stored, L"Count::Building::Import"), 1);
  EXPECT_EQ(stored.LastSend(), kStart - 1123200);

  // A newer format is kept aside the same way, not written over.
  const std::string newer = R"({"UsageReport":{"VER":2}})";
  writeBytes(path(), newer);
  run(1);
  EXPECT_EQ(fileBytes(path() + L".unreadable-2"), newer);
}

TEST_F(UsageManager, WhileTheFileCannotBeSavedTheReportLivesInTheRegistry) {
  setConsent(installation, 1);
  run(1);
  const std::string before = fileBytes(path());
  makeFolderReadOnly(folder, true);
  manager.now += 60;
  run(5);
  EXPECT_EQ(fileBytes(path()), before);
  // An accepted send is remembered: the next start does not send it again,
  // and every run's counts are kept.
  manager.now = kStart + 30 * kDay;
  run(1);
  ASSERT_EQ(manager.sent.size(), 1u);
  manager.now += 60;
  run(1);
  EXPECT_EQ(manager.sent.size(), 1u);
  EXPECT_EQ(fileBytes(path()), before);

  // Once the file can be saved it holds everything, and the registry's copy is gone.
  makeFolderReadOnly(folder, false);
  manager.now += 60;
  run(1);
  EXPECT_EQ(manager.sent.size(), 1u);
  const Hv::CHvUsageReport stored = readStored(path());
  EXPECT_EQ(stored.LastSend(), kStart + 30 * kDay);
  EXPECT_EQ(counterOf(stored, L"Count::Building::Import"), 3);
  EXPECT_EQ(stored.Logins()[0].times.size(), 3u);
  // A copy left in the registry would now be read first, and the count drop.
  manager.now += 60;
  run(0);
  EXPECT_EQ(counterOf(readStored(path()), L"Count::Building::Import"), 3);
}

TEST_F(UsageManager, AReportFolderThatCannotBeCreatedLosesOnlyTheRun) {
  setConsent(installation, 1);
  writeBytes(installation.folder() + L"\\Blocked", "a file");
  manager.folder = installation.folder() + L"\\Blocked\\Reports";
  run(1);
  EXPECT_EQ(fileBytes(installation.folder() + L"\\Blocked"), "a file");
}

// Another host process of the user starts and ends its run while this one
// sends: it finds nothing due, so the report goes once; its run stays in the
// report whether the send is refused (the claim is given back) or taken.
TEST_F(UsageManager, AnotherHostsRunDuringASendIsKeptAndNothingGoesTwice) {
  setConsent(installation, 1);
  run(2);
  const std::int64_t due = kStart + 30 * kDay;
  for (const bool accepts : {false, true}) {
    TestUsageManager other(folder);
    other.now = due + 10;
    manager.now = due + (accepts ? 60 : 0);
    manager.channelAccepts = accepts;
    manager.whileSending = [&other] {
      other.DecideConsent();
      other.StartRun();
      other.CountFeature(L"Regulation::FAA");
      other.EndRun();
    };
    run(1);
    manager.whileSending = nullptr;
    EXPECT_TRUE(other.sent.empty()) << accepts;
  }
  ASSERT_EQ(manager.sent.size(), 2u);
  // The refused round gave the claim back: the taken send held every run before it.
  const Hv::CHvUsageReport framed = framedReport(manager.sent[1]);
  EXPECT_EQ(counterOf(framed, L"Count::Building::Import"), 3);
  EXPECT_EQ(counterOf(framed, L"Count::Regulation::FAA"), 1);
  const Hv::CHvUsageReport stored = readStored(path());
  EXPECT_EQ(stored.LastSend(), due + 60);
  EXPECT_EQ(counterOf(stored, L"Count::Building::Import"), 1);
  EXPECT_EQ(counterOf(stored, L"Count::Regulation::FAA"), 1);
  EXPECT_EQ(stored.Logins()[0].times, (std::vector<std::uint32_t>{due + 10, due + 60}));
}

// Host processes of one user that end their runs at the same moment: each
// run's counts reach the shared report, none is written over.
TEST_F(UsageManager, RunsThatEndTogetherAreAllKept) {
  setConsent(installation, 1);
  run(1);
  constexpr int kHosts = 6;
  constexpr int kRounds = 4;
  for (int round = 0; round < kRounds; ++round) {
    std::vector<std::unique_ptr<TestUsageManager>> hosts;
    for (int i = 0; i < kHosts; ++i) {
      hosts.push_back(std::make_unique<TestUsageManager>(folder));
      hosts.back()->now = manager.now + 60;
      hosts.back()->DecideConsent();
      hosts.back()->StartRun();
      hosts.back()->CountFeature(L"Building::Import");
    }
    std::atomic<int> ready{0};
    std::vector<std::thread> ends;
    for (auto& host : hosts) {
      ends.emplace_back([&ready, &host] {
        ++ready;
        while (ready < kHosts) std::this_thread::yield();
        host->EndRun();
      });
    }
    for (std::thread& end : ends) end.join();
  }
  EXPECT_EQ(counterOf(readStored(path()), L"Count::Building::Import"), 1 + kHosts * kRounds);
}

}  // namespace
}  // namespace kvt1::testing
