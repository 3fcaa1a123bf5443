#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <thread>

#include "companions/HalvornHttpClient.h"
#include "online/CHvHttpClientManager.h"
#include "platform/DynamicLibrary.h"
#include "tests/common/TestInstallation.h"
#include "tests/online/OnlineTestSupport.h"
#ifndef _WIN32
#include "tests/online/StalledResolver.h"
#endif
#include "tools/kvt1-update-service/UpdateService.h"

namespace kvt1::testing {
namespace {

using Hv::Http::CHvHttpClientManager;
using service::ServiceMode;
using Seconds = std::chrono::duration<double>;

class HttpBridge : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(service.start());
    service.setAnswer(30, "{\"answer\":\"f\xC3\xBCr KVT\"}");
    CHvHttpClientManager::Release();
  }
  void TearDown() override {
    CHvHttpClientManager::Release();
    setProcessEnvironment("KVT1_HTTP_TIMEOUT_MS", nullptr);
  }

  static CHvHttpClientManager& bridge() { return *CHvHttpClientManager::Instance(); }
  std::wstring url(const char* path = "/AutomaticUpdateServiceLibrary/CheckForUpdates?product=30") const {
    const std::string text = "http://" + service.hostAndPort() + path;
    return std::wstring(text.begin(), text.end());
  }
  // Get with out preset, answering whether out still holds the preset.
  bool failsLeavingOutput() {
    std::wstring out = L"untouched";
    return !bridge().Get(url(), out) && out == L"untouched";
  }

  service::UpdateService service;
};

TEST_F(HttpBridge, WithoutTheLibraryEveryCallFailsAndLeavesItsOutput) {
  TestInstallation empty;
  EXPECT_FALSE(bridge().Load(empty.folder()));
  EXPECT_TRUE(failsLeavingOutput());
  std::wstring out = L"untouched";
  EXPECT_FALSE(bridge().PostJson(url(), L"{}", out));
  EXPECT_EQ(out, L"untouched");
  EXPECT_TRUE(service.requests().empty());
}

TEST_F(HttpBridge, ALibraryWithoutPerformGetAFailsToLoadYetGetWorksUpToTheFirstNul) {
  const std::wstring folder = programFolder() + L"\\getw-only";
  ASSERT_FALSE(bridge().Load(folder));
  std::wstring out;
  EXPECT_TRUE(bridge().Get(url(), out));
  EXPECT_EQ(out, L"before the NUL");
  out = L"untouched";
  EXPECT_FALSE(bridge().PostJson(url(), L"{}", out));  // no PerformPostJsonW
  EXPECT_EQ(out, L"untouched");

  // Each 200 text went back to the library.
  auto library = platform::DynamicLibrary::load(folder + L"\\" + Hv::Http::kHttpClientLibraryName);
  auto outstanding = reinterpret_cast<int(HVHTTP_CALL*)()>(library.symbol("OutstandingStrings"));
  ASSERT_NE(outstanding, nullptr);
  EXPECT_EQ(outstanding(), 0);
}

TEST_F(HttpBridge, GetsAndPostsThroughTheLibraryWithTheBodyAsWideText) {
  ASSERT_TRUE(bridge().Load(programFolder()));
  std::wstring out;
  ASSERT_TRUE(bridge().Get(url(), out));
  EXPECT_EQ(out, L"{\"answer\":\"f\u00FCr KVT\"}");
  out.clear();
  ASSERT_TRUE(bridge().PostJson(url(), L"{\"x\":1}", out));
  EXPECT_EQ(out, L"{\"answer\":\"f\u00FCr KVT\"}");
  const auto requests = service.requests();
  ASSERT_EQ(requests.size(), 2u);
  EXPECT_EQ(requests[0].rfind("GET /AutomaticUpdateServiceLibrary/CheckForUpdates?product=30 ", 0), 0u);
  EXPECT_EQ(requests[1].rfind("POST ", 0), 0u);
}

TEST_F(HttpBridge, OnlyStatus200Counts) {
  ASSERT_TRUE(bridge().Load(programFolder()));
  for (ServiceMode mode : {ServiceMode::NoContent, ServiceMode::MovedPermanently, ServiceMode::ServerError}) {
    service.setMode(mode);
    EXPECT_TRUE(failsLeavingOutput()) << static_cast<int>(mode);
  }
  // Product 31 has no answer: 404.
  service.setMode(ServiceMode::Answer);
  std::wstring out = L"untouched";
  EXPECT_FALSE(bridge().Get(url("/AutomaticUpdateServiceLibrary/CheckForUpdates?product=31"), out));
  // Nobody followed the redirect.
  EXPECT_EQ(service.requests().size(), 4u);
}

TEST_F(HttpBridge, TransportFailuresAreFailures) {
  ASSERT_TRUE(bridge().Load(programFolder()));
  service.setMode(ServiceMode::Close);
  EXPECT_TRUE(failsLeavingOutput());

  service.setMode(ServiceMode::Oversized);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_TRUE(failsLeavingOutput());
  EXPECT_LT(Seconds(std::chrono::steady_clock::now() - start).count(), 5.5);

  // A port that nobody listens on any more.
  service.stop();
  EXPECT_TRUE(failsLeavingOutput());
}

TEST_F(HttpBridge, ABodyThatIsNotJsonIsStillABody) {
  ASSERT_TRUE(bridge().Load(programFolder()));
  service.setMode(ServiceMode::Garbage);
  std::wstring out;
  EXPECT_TRUE(bridge().Get(url(), out));
  EXPECT_EQ(out.rfind(L"<html>", 0), 0u);
}

TEST_F(HttpBridge, AServerThatNeverAnswersIsGivenUpAfterTheTotalTimeOut) {
  ASSERT_TRUE(bridge().Load(programFolder()));
  service.setMode(ServiceMode::Hang);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_TRUE(failsLeavingOutput());
  const double elapsed = Seconds(std::chrono::steady_clock::now() - start).count();
  EXPECT_GT(elapsed, 4.5);
  EXPECT_LT(elapsed, 7.0);
}

TEST_F(HttpBridge, TheTotalTimeOutComesFromTheEnvironmentWhenSet) {
  ASSERT_TRUE(bridge().Load(programFolder()));
  setProcessEnvironment("KVT1_HTTP_TIMEOUT_MS", "600");
  service.setMode(ServiceMode::Slow);
  service.setDelayMs(100);
  std::wstring out;
  EXPECT_TRUE(bridge().Get(url(), out));

  service.setDelayMs(3000);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_TRUE(failsLeavingOutput());
  const double elapsed = Seconds(std::chrono::steady_clock::now() - start).count();
  EXPECT_GT(elapsed, 0.5);
  EXPECT_LT(elapsed, 2.0);

  // A value that is no positive number leaves the default in force.
  setProcessEnvironment("KVT1_HTTP_TIMEOUT_MS", "-1");
  service.setDelayMs(1000);
  EXPECT_TRUE(bridge().Get(url(), out));
}

// Unloading the module: requests running on other threads end at once, and
// the bridge takes no new one until it is loaded again.
TEST_F(HttpBridge, AnAbortEndsTheRunningRequestsAndClosesTheBridge) {
  ASSERT_TRUE(bridge().Load(programFolder()));
  setProcessEnvironment("KVT1_HTTP_TIMEOUT_MS", "60000");
  service.setMode(ServiceMode::Hang);
  auto get = std::async(std::launch::async, [this] {
    std::wstring out;
    return bridge().Get(url(), out);
  });
  auto post = std::async(std::launch::async, [this] {
    std::wstring out;
    return bridge().PostJson(url("/UsageReportService/Upload"), L"{}", out);
  });
  for (int i = 0; i < 1000 && service.requests().size() < 2; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  ASSERT_EQ(service.requests().size(), 2u);

  bridge().AbortTransfers();
  // Without the abort both would wait for the minute's time-out.
  ASSERT_EQ(get.wait_for(std::chrono::seconds(5)), std::future_status::ready);
  ASSERT_EQ(post.wait_for(std::chrono::seconds(5)), std::future_status::ready);
  EXPECT_FALSE(get.get());
  EXPECT_FALSE(post.get());
  EXPECT_TRUE(failsLeavingOutput());
  EXPECT_EQ(service.requests().size(), 2u);

  service.setMode(ServiceMode::Answer);
  ASSERT_TRUE(bridge().Load(programFolder()));
  std::wstring out;
  EXPECT_TRUE(bridge().Get(url(), out));
}

#ifndef _WIN32
// libcurl resolves names on a thread of its own: an abort does not wait for
// a resolution that stalls.
TEST_F(HttpBridge, AnAbortDoesNotWaitForANameBeingResolved) {
  ASSERT_TRUE(bridge().Load(programFolder()));
  setProcessEnvironment("KVT1_HTTP_TIMEOUT_MS", "60000");
  const int before = stalledLookups;
  auto get = std::async(std::launch::async, [] {
    std::wstring out;
    return bridge().Get(L"http://" + std::wstring(kStalledHost, kStalledHost + sizeof kStalledHost - 1) + L"/", out);
  });
  for (int i = 0; i < 1000 && stalledLookups == before; ++i) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  ASSERT_GT(stalledLookups, before);

  // The abort returns once the request has left the library.
  auto abort = std::async(std::launch::async, [] { bridge().AbortTransfers(); });
  ASSERT_EQ(abort.wait_for(std::chrono::seconds(kStallSeconds / 2)), std::future_status::ready);
  ASSERT_EQ(get.wait_for(std::chrono::seconds(0)), std::future_status::ready);
  EXPECT_FALSE(get.get());
}
#endif

TEST_F(HttpBridge, ALibraryWithoutAnAbortIsOnlyClosed) {
  bridge().Load(programFolder() + L"\\getw-only");
  bridge().AbortTransfers();
  EXPECT_TRUE(failsLeavingOutput());
}

}  // namespace
}  // namespace kvt1::testing
