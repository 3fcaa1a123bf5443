// The module in the emulated host: the start-up check during initialisation
// and the "##120" setting of the LISP application, against the local service.
#include <gtest/gtest.h>

#include <cstdio>

#include "host/identity/ProductIdentity.h"
#include "platform/Unicode.h"
#include "settings/ProductKey.h"
#include "tests/online/OnlineTestSupport.h"
#include "tests/tools/EmulatorSession.h"
#include "tools/kvt1-update-service/UpdateService.h"

namespace kvt1::testing {
namespace {

using platform::RegistryRoot;

class ModuleSession : public emu::EmulatorSession {
 protected:
  void SetUp() override {
    ASSERT_TRUE(service.start());
    service.setAnswer(kProductNumber, updateOnlyJson({}));
    const std::string host = service.hostAndPort();
    setRegistryString(installation, RegistryRoot::LocalMachine, productKeyPath(), L"CheckUpdateUrl",
                      std::wstring(host.begin(), host.end()));
  }
  void TearDown() override { session.reset(); }

  // Loads the module; the host's idle that follows shows the start-up check's findings unless told not to wait.
  void start(bool idle = true) {
    EmulatorSession::start();
    if (idle && !HasFatalFailure()) session->idle(true);
  }

  service::UpdateService service;
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

  EXPECT_EQ(run(L"(kvt1_SetSettings \"##120\" \"2\")\n"), std::wstring(kNotificationShown) + L"(0)\n");
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
  const std::wstring restarted = run(L"RELOAD\n@click btnDismiss\n@answer YES\n");
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

TEST_F(ModuleSession, ALateAnswerIsShownWhileTheScriptGoesOnAndItsDismissalIsStored) {
  service.setAnswer(kProductNumber, answerJson({}, {}));
  service.setMode(service::ServiceMode::Slow);
  service.setDelayMs(2000);
  start(false);
  EXPECT_EQ(output.find(L"Automatic Updates Notification"), std::wstring::npos) << platform::toUtf8(output);

  // The script's lines run at once; the notification opens when the answer
  // has come, in the host's idle, and takes the dialog lines left over.
  const std::wstring transcript = run(L"(kvt1_GetSettings \"##120\")\n@click btnDismiss\n@answer YES\n");
  const std::size_t result = transcript.find(L"\"1\"\n");
  const std::size_t opened = transcript.find(L"dialog [Automatic Updates Notification]: opened");
  ASSERT_NE(opened, std::wstring::npos) << platform::toUtf8(transcript);
  EXPECT_LT(result, opened) << platform::toUtf8(transcript);
  EXPECT_NE(transcript.find(L"click btnDismiss", opened), std::wstring::npos) << platform::toUtf8(transcript);
  EXPECT_EQ(session->faults(), 0);
  std::wstring record;
  ASSERT_TRUE(readUserString(productKeyPath(), L"DismissedUpdates", record));
  EXPECT_EQ(record.find(L"{\"Products\":[30]"), 0u) << platform::toUtf8(record);
  EXPECT_EQ(service.requests().size(), 1u);
}

TEST_F(ModuleSession, AnAnswerThatComesAfterTheUnloadIsNeverShown) {
  service.setMode(service::ServiceMode::Hang);
  start(false);
  session->setIdleBound(0);
  session->unload();
  EXPECT_EQ(output.find(L"Automatic Updates Notification"), std::wstring::npos) << platform::toUtf8(output);
}

}  // namespace
}  // namespace kvt1::testing
