// The module in the emulated host: counts from the LISP application reach
// the report file at unload, and the next start sends a due report.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "online/usage/ZlibText.h"
#include "platform/Unicode.h"
#include "settings/ProductKey.h"
#include "tests/online/OnlineTestSupport.h"
#include "tests/online/usage/UsageTestSupport.h"
#include "tests/tools/EmulatorSession.h"
#include "tools/kvt1-update-service/UpdateService.h"

namespace kvt1::testing {
namespace {

class UsageModuleSession : public emu::EmulatorSession {
 protected:
  void SetUp() override {
    ASSERT_TRUE(service.start());
    const std::string host = service.hostAndPort();
    setRegistryString(installation, platform::RegistryRoot::LocalMachine, productKeyPath(), L"CheckUpdateUrl",
                      std::wstring(host.begin(), host.end()));
    setRegistryString(installation, platform::RegistryRoot::LocalMachine, productKeyPath(), L"UsageReportUrl",
                      platform::fromUtf8("http://" + host + "/UsageReportService/Upload"));
    // The user's data folder lies in the test's folder, never in a real profile.
    setRegistryString(installation, platform::RegistryRoot::CurrentUser, productKeyPath(), L"DataPath",
                      installation.folder() + L"\\UserData");
  }
  void TearDown() override { session.reset(); }

  void stop() {
    session->unload();
    session.reset();
  }
  // The uploads the service has received once there are count of them (or
  // after ten seconds, as many as there are).
  std::vector<service::ReceivedUpload> uploadsOnceThere(std::size_t count) {
    for (int i = 0; i < 1000 && service.uploads().size() < count; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return service.uploads();
  }
  std::wstring reportPath() { return installation.folder() + L"\\UserData\\UsageReports\\UsageReport_0_30.rpt"; }

  service::UpdateService service;
};

TEST_F(UsageModuleSession, CountsReachTheReportAndADueReportIsSent) {
  setConsent(installation, 1);
  start();
  EXPECT_EQ(run(L"(kvt1_reporting \"Building::Import\")\n(kvt1_reporting \"Building::Import\")\n"
                L"(kvt1_reporting \"402\")\n(kvt1_reporting 5)\n"),
            L"(0)\n(0)\n(0)\nFirst parameter should be string\n(0)\n");
  stop();
  Hv::CHvUsageReport stored = readStored(reportPath());
  EXPECT_EQ(counterOf(stored, L"Count::Building::Import"), 2);
  EXPECT_EQ(counterOf(stored, L"Count::Regulation::FAA"), 1);
  EXPECT_TRUE(service.uploads().empty());

  // Due at once with an interval of one day: the next start sends it.
  setMachineDword(installation, L"DataCollectionInterval", 1);
  start();
  const auto uploads = uploadsOnceThere(1);
  stop();
  ASSERT_EQ(uploads.size(), 1u);
  EXPECT_TRUE(uploads[0].wellFormed);
  std::string text;
  ASSERT_TRUE(usage::inflateText(std::string(uploads[0].frame.begin() + 4, uploads[0].frame.end()), text, 1 << 20));
  EXPECT_NE(text.find("\"Count::Building::Import\""), std::string::npos) << text;
  stored = readStored(reportPath());
  EXPECT_EQ(counterOf(stored, L"Count::Building::Import"), -1);  // emptied by the send
  EXPECT_EQ(stored.Logins().size(), 1u);
}

TEST_F(UsageModuleSession, AnUploadEndedByTheUnloadLeavesTheReportForTheNextStart) {
  setConsent(installation, 1);
  start();
  run(L"(kvt1_reporting \"Building::Import\")\n");
  stop();

  // The next start sends the due report to a service that never answers; the host ends meanwhile.
  setMachineDword(installation, L"DataCollectionInterval", 1);
  service.setMode(service::ServiceMode::Hang);
  start();
  ASSERT_EQ(uploadsOnceThere(1).size(), 1u);
  session->setIdleBound(0);
  stop();
  EXPECT_EQ(counterOf(readStored(reportPath()), L"Count::Building::Import"), 1);

  service.setMode(service::ServiceMode::Answer);
  start();
  const auto uploads = uploadsOnceThere(2);
  stop();
  ASSERT_EQ(uploads.size(), 2u);
  std::string text;
  ASSERT_TRUE(usage::inflateText(std::string(uploads[1].frame.begin() + 4, uploads[1].frame.end()), text, 1 << 20));
  EXPECT_NE(text.find("\"Count::Building::Import\""), std::string::npos) << text;
  EXPECT_EQ(counterOf(readStored(reportPath()), L"Count::Building::Import"), -1);
}

TEST_F(UsageModuleSession, WithoutAnAnswerNothingIsCollectedOrStored) {
  start();  // the question is closed unanswered
  EXPECT_EQ(run(L"(kvt1_reporting \"Building::Import\")\n"), L"(0)\n");
  stop();
  EXPECT_TRUE(folderEntries(installation.folder() + L"\\UserData\\UsageReports").empty());
  std::uint32_t consent = 0;
  EXPECT_FALSE(readUserDword(productKeyPath(), L"HVCOLLECTUSAGE", consent));
  std::wstring guid;
  EXPECT_FALSE(readUserString(productKeyPath(), L"HVID", guid));
}

}  // namespace
}  // namespace kvt1::testing
