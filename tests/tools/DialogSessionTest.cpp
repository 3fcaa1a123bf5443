// Scripts that drive the module's dialogs through the emulator: the message
// that kvt1_help shows when the help file is missing, an HTML dialog on the
// headless desktop (Linux) or in a real window (Windows), answered by clicks.
#include <gtest/gtest.h>

#include <set>

#include "settings/HelpFiles.h"
#include "settings/SettingsStore.h"
#include "tests/tools/EmulatorSession.h"
#ifndef _WIN32
#include "platform/posix/HeadlessDesktop.h"
#include "tests/htmlui/engine/litehtml/PngPixels.h"
#endif

namespace kvt1::emu {
namespace {

// The message dialog's line for the missing help file of the session's installation.
std::wstring missingHelpLine() {
  SettingsStore settings;
  return L"dialog [KVT Help]: Product help file '" + productHelpFile(settings) + L"[0]' was not found\n";
}

bool contains(const std::wstring& text, const std::wstring& part) { return text.find(part) != std::wstring::npos; }

TEST_F(EmulatorSession, DirectivesThatNoDialogTakesAreReportedAfterTheirCall) {
  start();
  EXPECT_EQ(run(L"@click btnOk\n@wait 10\n(kvt1_GetSettings \"##121\")\n(kvt1_GetSettings \"##121\")\n@answer OK\n"),
            L"\"0\"\n"
            L"; error: line 1: @click btnOk: no dialog opened to play it\n"
            L"; error: line 2: @wait 10: no dialog opened to play it\n"
            L"\"0\"\n"
            L"; error: line 5: @answer OK: no dialog opened to play it\n");
  EXPECT_EQ(session->faults(), 3);
}

TEST_F(EmulatorSession, BadDirectivesAreFaultsOfTheirLines) {
  start();
  session->setEcho(true);
  EXPECT_EQ(run(L"@\n@press OK\n@wait\n(kvt1_GetSettings \"##121\")\n"),
            L"; error: line 1: \"@\" without a directive\n"
            L"Command: @press OK\n; error: line 2: unknown directive: @press\n"
            L"Command: @wait\n; error: line 3: @wait takes milliseconds (at most a day): \n"
            L"Command: (kvt1_GetSettings \"##121\")\n\"0\"\n");
  EXPECT_EQ(session->faults(), 3);
}

TEST_F(EmulatorSession, AnAnswerTakesTheMessageThatTheCallShows) {
  start();
  const std::wstring out = run(L"@answer OK\n(kvt1_help \"x\")\n");
  EXPECT_EQ(out.rfind(L"dialog [KVT Help]: opened\n" + missingHelpLine() + L"dialog [KVT Help]: answer OK at (", 0), 0u)
      << platform::toUtf8(out);
  EXPECT_FALSE(contains(out, L"closed unanswered")) << platform::toUtf8(out);
  EXPECT_TRUE(contains(out, L")\n(0)\n")) << platform::toUtf8(out);
  EXPECT_EQ(session->faults(), 0);
}

TEST_F(EmulatorSession, AMessageDialogIsDrawnAndClosedByAClickOnItsButton) {
  start();
  const std::wstring folder = installation.folder() + L"/pictures";
  const std::wstring picture = folder + kSeparator + L"1-KVT Help.png";
  const std::wstring out = run(L"@render " + folder + L"\n@click btnOk\n(kvt1_help \"x\")\n");
  EXPECT_EQ(out.rfind(L"dialog [KVT Help]: opened\n" + missingHelpLine() + L"rendered: " + picture +
                          L"\ndialog [KVT Help]: click btnOk at (",
                      0),
            0u)
      << platform::toUtf8(out);
  // The click closed the dialog: the desktop had nothing left to close.
  EXPECT_FALSE(contains(out, L"closed unanswered")) << platform::toUtf8(out);
  EXPECT_EQ(session->faults(), 0);
#ifndef _WIN32
  const html::test::PngPixels pixels(platform::toUtf8(picture));
  ASSERT_TRUE(pixels.valid());
  EXPECT_EQ(pixels.width(), 3 + 380 + 3);  // the page's layout element in the dialog frame
  std::set<std::uint32_t> colours;
  for (int y = 0; y < pixels.height(); y += 2)
    for (int x = 0; x < pixels.width(); x += 2) colours.insert(pixels.at(x, y));
  EXPECT_GT(colours.size(), 10u);  // background, text and the button's border at least
#endif

  // Later dialogs are numbered on.
  EXPECT_TRUE(contains(run(L"(kvt1_help \"y\")\n"), L"rendered: " + folder + kSeparator + L"2-KVT Help.png\n"));
}

// A message dialog's text is printed as its user reads it.
TEST_F(EmulatorSession, UnscriptedDialogsAreClosedUnanswered) {
  start();
  EXPECT_EQ(run(L"(kvt1_help \"x\")\n"),
            L"dialog [KVT Help]: opened\n" + missingHelpLine() + L"dialog [KVT Help]: closed unanswered\n(0)\n");
}

TEST_F(EmulatorSession, ClicksBesideButtonsAndOnHiddenOnesCloseNothing) {
  start();
  EXPECT_EQ(run(L"@click-at 2 2\n@answer YES\n(kvt1_help \"x\")\n"),
            L"dialog [KVT Help]: opened\n" + missingHelpLine() +
                L"dialog [KVT Help]: click at (2,2)\n"
                L"; error: line 2: @answer YES: [name='YES'] is not visible in dialog [KVT Help]\n"
                L"dialog [KVT Help]: closed unanswered\n"
                L"(0)\n");
  EXPECT_EQ(session->faults(), 1);
}

#ifndef _WIN32
TEST_F(EmulatorSession, AWaitLetsTheDesktopClockRunBeforeTheNextAction) {
  start();
  const std::uint64_t before = platform::HeadlessDesktop::local().now();
  const std::wstring out = run(L"@wait 250\n@click-selector div.buttons button[name='OK']\n(kvt1_help \"x\")\n");
  EXPECT_EQ(platform::HeadlessDesktop::local().now() - before, 250u);
  EXPECT_EQ(out.rfind(L"dialog [KVT Help]: opened\n" + missingHelpLine() +
                          L"dialog [KVT Help]: wait 250 ms\n"
                          L"dialog [KVT Help]: click-selector div.buttons button[name='OK'] at (",
                      0),
            0u)
      << platform::toUtf8(out);
  EXPECT_FALSE(contains(out, L"closed unanswered")) << platform::toUtf8(out);
}
#endif

}  // namespace
}  // namespace kvt1::emu
