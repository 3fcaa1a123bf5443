// The report channel against the local service on 127.0.0.1: the frame that
// arrives, a service that fails, and unload while a send hangs.
#include <gtest/gtest.h>

#include <chrono>

#include "online/JsonText.h"
#include "online/ModuleUpdateCheck.h"
#include "online/usage/UsageReportUpload.h"
#include "online/usage/ZlibText.h"
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

  TestInstallation installation;
  service::UpdateService service;
  UploadingManager manager;
};

TEST_F(UsageUpload, TheServiceReceivesTheFramedReport) {
  const std::string host = service.hostAndPort();
  EXPECT_EQ(usage::usageUploadUrl(), L"http://" + std::wstring(host.begin(), host.end()) + L"/UsageReportService/Upload");
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

  // Sent and emptied; this run's use is all the file holds.
  const Hv::CHvUsageReport stored = readStored(path());
  EXPECT_EQ(stored.LastSend(), kStart + 30 * kDay);
  EXPECT_EQ(counterOf(stored, L"Count::Building::Import"), 1);
  EXPECT_EQ(stored.Logins()[0].times.size(), 1u);
}

TEST_F(UsageUpload, AnyAnswerBut200LeavesTheReportForTheNextStart) {
  for (const service::ServiceMode mode : {service::ServiceMode::ServerError, service::ServiceMode::NoContent,
                                          service::ServiceMode::Close}) {
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
