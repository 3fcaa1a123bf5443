// The client library's own contract, called as a C caller would.
#include <gtest/gtest.h>

#include <cstring>

#include "companions/HalvornHttpClient.h"
#include "online/CHvHttpClientManager.h"
#include "platform/DynamicLibrary.h"
#include "tests/online/OnlineTestSupport.h"
#include "tools/kvt1-update-service/UpdateService.h"

namespace kvt1::testing {
namespace {

using service::ServiceMode;

class HttpClientLibrary : public ::testing::Test {
 protected:
  void SetUp() override {
    library = platform::DynamicLibrary::load(programFolder() + L"\\" + Hv::Http::kHttpClientLibraryName);
    ASSERT_TRUE(library.isLoaded());
    getA = reinterpret_cast<PerformGetAFn>(library.symbol("PerformGetA"));
    getW = reinterpret_cast<PerformGetWFn>(library.symbol("PerformGetW"));
    postA = reinterpret_cast<PerformPostJsonAFn>(library.symbol("PerformPostJsonA"));
    freeA = reinterpret_cast<FreeStringAFn>(library.symbol("FreeStringA"));
    freeW = reinterpret_cast<FreeStringWFn>(library.symbol("FreeStringW"));
    ASSERT_TRUE(getA && getW && postA && freeA && freeW && library.symbol("PerformPostJsonW"));
    ASSERT_TRUE(service.start());
    service.setAnswer(30, "{\"n\":\"\xE2\x82\xAC\"}");
    url = "http://" + service.hostAndPort() + "/AutomaticUpdateServiceLibrary/CheckForUpdates?product=30";
  }

  platform::DynamicLibrary library;
  PerformGetAFn getA = nullptr;
  PerformGetWFn getW = nullptr;
  PerformPostJsonAFn postA = nullptr;
  FreeStringAFn freeA = nullptr;
  FreeStringWFn freeW = nullptr;
  service::UpdateService service;
  std::string url;
};

TEST_F(HttpClientLibrary, NarrowCallsHandOutTheBytesAndFreeThem) {
  std::int32_t status = 0;
  char* response = nullptr;
  std::int32_t length = 0;
  EXPECT_EQ(getA(url.c_str(), &status, &response, &length), 0);
  EXPECT_EQ(status, 200);
  ASSERT_NE(response, nullptr);
  EXPECT_STREQ(response, "{\"n\":\"\xE2\x82\xAC\"}");
  EXPECT_EQ(length, static_cast<std::int32_t>(std::strlen(response)));
  freeA(&response);
  EXPECT_EQ(response, nullptr);

  EXPECT_EQ(postA(url.c_str(), "application/json", "{}", &status, &response, &length), 0);
  EXPECT_EQ(status, 200);
  freeA(&response);
  const auto requests = service.requests();
  ASSERT_EQ(requests.size(), 2u);
  EXPECT_EQ(requests[1].rfind("POST /AutomaticUpdateServiceLibrary/", 0), 0u);
}

TEST_F(HttpClientLibrary, WideCallsCountCharactersNotBytes) {
  const std::wstring wideUrl(url.begin(), url.end());
  std::int32_t status = 0;
  wchar_t* response = nullptr;
  std::int32_t length = 0;
  getW(wideUrl.c_str(), &status, &response, &length);
  ASSERT_NE(response, nullptr);
  EXPECT_EQ(std::wstring(response), L"{\"n\":\"\u20AC\"}");
  EXPECT_EQ(length, 9);
  freeW(&response);
  EXPECT_EQ(response, nullptr);
}

TEST_F(HttpClientLibrary, NoMemoryLeavesTheLibraryWithoutStatus200) {
  const std::wstring wideUrl(url.begin(), url.end());
  for (ServiceMode mode :
       {ServiceMode::NoContent, ServiceMode::ServerError, ServiceMode::Oversized, ServiceMode::Close}) {
    service.setMode(mode);
    std::int32_t status = -7;
    wchar_t* response = nullptr;
    std::int32_t length = -7;
    getW(wideUrl.c_str(), &status, &response, &length);
    EXPECT_NE(status, 200) << static_cast<int>(mode);
    EXPECT_EQ(response, nullptr) << static_cast<int>(mode);
    EXPECT_EQ(length, 0) << static_cast<int>(mode);
  }
  service.setMode(ServiceMode::ServerError);
  std::int32_t status = 0;
  wchar_t* response = nullptr;
  std::int32_t length = 0;
  getW(wideUrl.c_str(), &status, &response, &length);
  EXPECT_EQ(status, 500);
}

TEST_F(HttpClientLibrary, OnlyWebAddressesAreFetchedAndNullArgumentsAreRefused) {
  std::int32_t status = -7;
  char* response = nullptr;
  std::int32_t length = 0;
  EXPECT_EQ(getA("file:///etc/passwd", &status, &response, &length), -1);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(response, nullptr);
  EXPECT_EQ(getA(nullptr, &status, &response, &length), -1);
  EXPECT_EQ(getW(nullptr, &status, nullptr, nullptr), -1);
  freeA(nullptr);
  freeW(nullptr);
}

}  // namespace
}  // namespace kvt1::testing
