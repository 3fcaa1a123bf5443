// The report channel against the local service on 127.0.0.1: the frame that
// arrives, a service that fails, and unload while a send hangs.
#include <gtest/gtest.h>

#include <chrono>

#include "online/CHvAutomaticUpdateManager.h"
#include "online/CHvHttpClientManager.h"
#include "online/JsonText.h"
#include "online/ModuleUpdateCheck.h"
#include "online/usage/UsageReportUpload.h"
#include "online/usage/ZlibText.h"
#include "platform/Unicode.h"
#include "settings/ProductKey.h"
#include "tests/online/OnlineTestSupport.h"
#include "tests/online/usage/UsageTestSupport.h"
#include "tools/kvt1-update-service/UpdateService.h"

namespace kvt1::testing {
namespace {

// The test manager with the module's own channel.
class UploadingManager : public TestUsageManager {
 public:
  using TestUsageManager::TestUsageManager;
  usage::ReportChannel GetReportChannel() override {
    return [url = usage::usageUploadUrl()](const std::vector<std::uint8_t>& buffer) {
      return usage::uploadReport(url, 30, buffer);
    };
  }
};

class UsageUpload : public ::testing::Test {
 protected:
  UsageUpload() : manager(installation.folder() + L"\\Reports") {}

  void SetUp() override {
    ASSERT_TRUE(service.start());
    const std::string host = service.hostAndPort();
    setRegistryString(installation, platform::RegistryRoot::LocalMachine, productKeyPath(), L"CheckUpdateUrl",
                      std::wstring(host.begin(), host.end()));
    setRegistryString(installation, platform::RegistryRoot::LocalMachine, productKeyPath(), L"UsageReportUrl",
                      uploadUrl());
    loadUpdateServices(programFolder());
    setConsent(installation, 1);
    // A stored report that is due at the next start.
    run();
    manager.now = kStart + 30 * kDay;
  }
  void TearDown() override {
    manager.WaitForSend();
    releaseUpdateServices();
    setProcessEnvironment("KVT1_HTTP_TIMEOUT_MS", nullptr);
  }

  void run() {
    manager.DecideConsent();
    manager.StartRun();
    manager.CountFeature(L"Building::Import");
    manager.EndRun();
  }
  std::wstring path() { return installation.folder() + L"\\Reports\\UsageReport_7_30.rpt"; }
  std::wstring uploadUrl() {
    return platform::fromUtf8("http://" + service.hostAndPort() + "/UsageReportService/Upload");
  }

  TestInstallation installation;
  service::UpdateService service;
  UploadingManager manager;
};

TEST_F(UsageUpload, TheServiceReceivesTheFramedReport) {
  EXPECT_EQ(usage::usageUploadUrl(), uploadUrl());
  run();
  const auto uploads = service.uploads();
  ASSERT_EQ(uploads.size(), 1u);
  EXPECT_TRUE(uploads[0].wellFormed);
  EXPECT_NE(uploads[0].body.find("\"Product\":30"), std::string::npos) << uploads[0].body;
  std::string text;
  ASSERT_TRUE(usage::inflateText(std::string(uploads[0].frame.begin() + 4, uploads[0].frame.end()), text, 1 << 20));
  Json::Value object;
  ASSERT_TRUE(json::parse(text, object));
  EXPECT_EQ(object["Counters"]["0_Name"].asString(), "Count::Building::Import");
  EXPECT_EQ(object["Counters"]["0_Ct"].asInt(), 1);
  EXPECT_EQ(object["LastSend"].asInt64(), kStart + 30 * kDay);
  EXPECT_EQ(text.rfind("{\"VER\":1,\"LastSend\":", 0), 0u) << text;

  // Sent and emptied; this run's use is all the file holds.
  const Hv::CHvUsageReport stored = readStored(path());
  EXPECT_EQ(stored.LastSend(), kStart + 30 * kDay);
  EXPECT_EQ(counterOf(stored, L"Count::Building::Import"), 1);
  EXPECT_EQ(stored.Logins()[0].times.size(), 1u);
}

// Reports carry the workstation identifier: the maker's service gets them over
// https, also when the installation names another update host; the update
// check keeps its http address.
TEST(UsageUploadAddress, IsHttpsToTheMakersServiceUnlessTheInstallationNamesOne) {
  TestInstallation installation;
  setRegistryString(installation, platform::RegistryRoot::LocalMachine, productKeyPath(), L"CheckUpdateUrl",
                    L"127.0.0.1:9");
  loadUpdateServices(programFolder());
  const std::wstring host = Hv::Http::CHvHttpClientManager::Instance()->GetHost();
  EXPECT_EQ(usage::usageUploadUrl(), L"https://" + host + L"/UsageReportService/Upload");
  EXPECT_EQ(
      Hv::Http::CHvAutomaticUpdateManager::Instance()->RequestUrl(30, L"1.1", L"ENG").rfind(L"http://127.0.0.1:9/", 0),
      0u);
  releaseUpdateServices();
}

TEST_F(UsageUpload, AnyAnswerBut200LeavesTheReportForTheNextStart) {
  for (const service::ServiceMode mode :
       {service::ServiceMode::ServerError, service::ServiceMode::NoContent, service::ServiceMode::Close}) {
    service.setMode(mode);
    const std::string before = fileBytes(path());
    manager.DecideConsent();
    manager.StartRun();
    manager.WaitForSend();
    EXPECT_EQ(fileBytes(path()), before);
    manager.EndRun();
  }
  EXPECT_EQ(service.uploads().size(), 3u);
  EXPECT_EQ(readStored(path()).LastSend(), kStart - 1123200);
  EXPECT_EQ(readStored(path()).Logins()[0].times.size(), 4u);
}

// A read-only report folder: the accepted report cannot be emptied on disk.
// It is not sent again, in this run or the next ones, and every run's counts
// are kept until the folder can be written again.
TEST_F(UsageUpload, AnAcceptedReportThatCannotBeSavedIsNotSentAgainAndNoRunIsLost) {
  const std::wstring folder = installation.folder() + L"\\Reports";
  makeFolderReadOnly(folder, true);
  const std::string before = fileBytes(path());
  for (int start = 0; start < 3; ++start) {
    run();
    manager.now += 60;
  }
  EXPECT_EQ(service.uploads().size(), 1u);
  EXPECT_EQ(fileBytes(path()), before);

  makeFolderReadOnly(folder, false);
  run();
  EXPECT_EQ(service.uploads().size(), 1u);
  const Hv::CHvUsageReport stored = readStored(path());
  EXPECT_EQ(stored.LastSend(), kStart + 30 * kDay);
  EXPECT_EQ(counterOf(stored, L"Count::Building::Import"), 4);
  EXPECT_EQ(stored.Logins()[0].times.size(), 4u);
}

TEST_F(UsageUpload, UnloadWaitsForAHangingSendOnlyUntilTheTimeOut) {
  service.setMode(service::ServiceMode::Hang);
  setProcessEnvironment("KVT1_HTTP_TIMEOUT_MS", "1000");
  manager.DecideConsent();
  manager.StartRun();
  manager.CountFeature(L"Building::Import");
  const auto begin = std::chrono::steady_clock::now();
  manager.EndRun();
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  EXPECT_FALSE(manager.IsSending());
  EXPECT_GT(seconds, 0.5);
  EXPECT_LT(seconds, 3.0);
  // The send failed, the run is merged into the stored report.
  const Hv::CHvUsageReport stored = readStored(path());
  EXPECT_EQ(stored.LastSend(), kStart - 1123200);
  EXPECT_EQ(counterOf(stored, L"Count::Building::Import"), 2);
}

}  // namespace
}  // namespace kvt1::testing
