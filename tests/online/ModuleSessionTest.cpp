// The module in the emulated host: the start-up check during initialisation
// and the "##120" setting of the LISP application, against the local service.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <memory>

#include "host/ModulePath.h"
#include "host/ProductIdentity.h"
#include "platform/ThisModule.h"
#include "platform/Unicode.h"
#include "settings/ProductKey.h"
#include "tests/common/TestInstallation.h"
#include "tests/online/OnlineTestSupport.h"
#include "tools/kvt1-host/Session.h"
#include "tools/kvt1-update-service/UpdateService.h"

namespace kvt1::testing {
namespace {

using platform::RegistryRoot;

class ModuleSession : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(service.start());
    service.setAnswer(kProductNumber, updateOnlyJson({}));
    const std::string host = service.hostAndPort();
    setRegistryString(installation, RegistryRoot::LocalMachine, productKeyPath(), L"CheckUpdateUrl",
                      std::wstring(host.begin(), host.end()));
  }
  void TearDown() override {
    session.reset();
    setProcessEnvironment("KVT1_HTTP_TIMEOUT_MS", nullptr);
  }

  void start() {
    session = std::make_unique<emu::Session>([this](const std::wstring& text) { output += text; });
    const std::wstring module = splitModulePath(platform::thisModulePath()).folder + KVT1_TEST_MODULE_NAME;
    ASSERT_TRUE(session->load(module)) << std::string(output.begin(), output.end());
  }
  std::wstring run(const std::wstring& script) {
    output.clear();
    session->runScript(script);
    return output;
  }

  TestInstallation installation;
  service::UpdateService service;
  std::wstring output;
  std::unique_ptr<emu::Session> session;
};

const wchar_t kNotificationShown[] =
    L"dialog [Automatic Updates Notification]: opened\n"
    L"dialog [Automatic Updates Notification]: closed unanswered\n";
const wchar_t kNothingFound[] = L"message box: [Automatic Updates Notification] No updates were found.\n";

TEST_F(ModuleSession, ChecksAtStartUpAndOnRequest) {
  start();
  ASSERT_EQ(service.requests().size(), 1u);
  EXPECT_EQ(service.requests()[0].rfind("GET /AutomaticUpdateServiceLibrary/CheckForUpdates?product=30&version=" +
                                            std::string(KVT1_TEST_VERSION_TEXT) + "&language=ENU ",
                                        0),
            0u)
      << service.requests()[0];
  // A start-up check shows what it found, and never a message.
  EXPECT_NE(output.find(kNotificationShown), std::wstring::npos) << platform::toUtf8(output);
  EXPECT_EQ(output.find(L"message box:"), std::wstring::npos);

  EXPECT_EQ(run(L"(kvt1_SetSettings \"##120\" \"2\")\n"),
            std::wstring(kNotificationShown) + L"(0)\n");
  EXPECT_EQ(service.requests().size(), 2u);

  service.setAnswer(kProductNumber, nothingJson());
  EXPECT_EQ(run(L"(kvt1_SetSettings \"##120\" \"2\")\n(kvt1_GetSettings \"##120\")\n"),
            std::wstring(kNothingFound) + L"(0)\n\"1\"\n");
}

TEST_F(ModuleSession, DismissedAtStartUpTheUpdatesStayHiddenUntilAManualCheck) {
  service.setAnswer(kProductNumber, answerJson({}, {}));
  start();
  const std::wstring pictures = installation.folder() + L"/pictures";
  session->setRenderFolder(pictures);
  const std::wstring restarted = run(L"@click btnDismiss\n@answer YES\nRELOAD\n");
  EXPECT_NE(restarted.find(L"dialog [Automatic Updates Notification]: click btnDismiss"), std::wstring::npos)
      << platform::toUtf8(restarted);
  std::wstring record;
  ASSERT_TRUE(readUserString(productKeyPath(), L"DismissedUpdates", record));
  EXPECT_EQ(record.find(L"{\"Products\":[30]"), 0u) << platform::toUtf8(record);
  // The notification was drawn with its rows.
  const std::size_t rendered = restarted.find(L"rendered: ");
  ASSERT_NE(rendered, std::wstring::npos);
  EXPECT_NE(restarted.find(L"Automatic Updates Notification.png", rendered), std::wstring::npos);

  EXPECT_EQ(run(L"RELOAD\n").find(L"dialog [Automatic Updates Notification]"), std::wstring::npos);
  EXPECT_NE(run(L"(kvt1_SetSettings \"##120\" \"2\")\n").find(L"dialog [Automatic Updates Notification]: opened"),
            std::wstring::npos);
  EXPECT_EQ(session->faults(), 0);
}

TEST_F(ModuleSession, TheSwitchIsReadAndStoredForTheUser) {
  start();
  EXPECT_EQ(run(L"(kvt1_SetSettings \"##120\" \"0\")\n(kvt1_GetSettings \"##120\")\n"), L"(0)\n\"0\"\n");
  std::uint32_t stored = 7;
  ASSERT_TRUE(readUserDword(productKeyPath(), L"CheckUpdatesOnStartUp", stored));
  EXPECT_EQ(stored, 0u);
#ifndef _WIN32
  const std::wstring file = installation.folder() + L"/registry/HKEY_CURRENT_USER.reg";
  std::FILE* stream = std::fopen(std::string(file.begin(), file.end()).c_str(), "rb");
  ASSERT_NE(stream, nullptr);
  std::string bytes;
  for (int c; (c = std::fgetc(stream)) != EOF;) {
    if (c != 0) bytes += static_cast<char>(c);  // UTF-16LE read as ASCII
  }
  std::fclose(stream);
  EXPECT_NE(bytes.find("\"CheckUpdatesOnStartUp\"=dword:00000000"), std::string::npos) << bytes;
#endif

  EXPECT_EQ(run(L"(kvt1_SetSettings \"##120\" \"1\")\n(kvt1_GetSettings \"##120\")\n(kvt1_GetSettings \"120\")\n"
                L"(kvt1_GetSettings \"##121\")\n(kvt1_GetSettings \"##1##20\")\n"),
            L"(0)\n\"1\"\n\"0\"\n\"0\"\n\"1\"\n");
  EXPECT_EQ(run(L"(kvt1_SetSettings \"##120\" \"yes\")\n(kvt1_GetSettings \"##120\")\n"
                L"(kvt1_SetSettings \"##12\" \"1\")\n(kvt1_GetSettings \"##120\")\n"),
            L"(0)\n\"0\"\n(0)\n\"0\"\n");
  EXPECT_EQ(service.requests().size(), 1u);  // switching never checks
}

TEST_F(ModuleSession, ASwitchedOffCheckSendsNothingAtStartUp) {
  setRegistryDword(installation, RegistryRoot::CurrentUser, productKeyPath(), L"CheckUpdatesOnStartUp", 0);
  start();
  EXPECT_TRUE(service.requests().empty());
  EXPECT_EQ(run(L"(kvt1_GetSettings \"##120\")\n"), L"\"0\"\n");
}

TEST_F(ModuleSession, AServiceThatNeverAnswersDelaysStartUpOnlyUntilTheTimeOut) {
  service.setMode(service::ServiceMode::Hang);
  setProcessEnvironment("KVT1_HTTP_TIMEOUT_MS", "1000");
  const auto begin = std::chrono::steady_clock::now();
  start();
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  EXPECT_GT(seconds, 0.9);
  EXPECT_LT(seconds, 3.0);
  EXPECT_EQ(service.requests().size(), 1u);
}

}  // namespace
}  // namespace kvt1::testing
