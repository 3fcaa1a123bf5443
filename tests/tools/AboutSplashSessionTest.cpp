// The about box and the splash in a session of the emulator with the real
// module: kvt1_info answered by a click, the splash at start-up driven by the
// host's idle message loop (played here on the emulator's desktop), and
// kvt1_splash with and without a splash on screen.
#include <gtest/gtest.h>

#include "platform/Registry.h"
#include "settings/ProductKey.h"
#include "tests/tools/EmulatorSession.h"
#ifndef _WIN32
#include "platform/posix/HeadlessDesktop.h"
#include "tests/htmlui/engine/litehtml/PngPixels.h"
#endif

namespace kvt1::emu {
namespace {

bool contains(const std::wstring& text, const std::wstring& part) { return text.find(part) != std::wstring::npos; }

// The user answered the usage question at an earlier start: no other dialog opens at start-up.
void declineUsageReportsEarlier() {
  platform::RegistryKey key;
  ASSERT_EQ(platform::RegistryKey::create(platform::RegistryRoot::CurrentUser, productKeyPath(),
                                          platform::RegistryAccess::Full, key),
            platform::kRegSuccess);
  const std::uint32_t declined = 0;
  ASSERT_EQ(key.setValue(L"HVCOLLECTUSAGE", platform::kRegDword, &declined, sizeof declined), platform::kRegSuccess);
}

TEST_F(EmulatorSession, InfoShowsTheAboutBoxUntilItsButtonIsClicked) {
  start();
  const std::wstring folder = installation.folder() + L"/pictures";
  const std::wstring out = run(L"@render " + folder + L"\n@click OK\n(kvt1_info)\n");
  const std::wstring picture = folder + kSeparator + L"1-About.png";
  EXPECT_EQ(out.rfind(L"dialog [About]: opened\nrendered: " + picture + L"\ndialog [About]: click OK at (", 0), 0u)
      << platform::toUtf8(out);
  EXPECT_TRUE(contains(out, L")\n(0)\n")) << platform::toUtf8(out);
  EXPECT_FALSE(contains(out, L"closed unanswered")) << platform::toUtf8(out);
  EXPECT_EQ(session->faults(), 0);
#ifndef _WIN32
  const html::test::PngPixels pixels(platform::toUtf8(picture));
  ASSERT_TRUE(pixels.valid());
  // The window as the user sees it: the client area at the size of the
  // page's layout element, 420 by 300, in a dialog frame of 3 pixels under
  // the caption bar, which shows the title in white.
  const int frame = 3;
  const int caption = 23;
  EXPECT_EQ(pixels.width(), frame + 420 + frame);
  EXPECT_EQ(pixels.height(), frame + caption + 300 + frame);
  int titlePixels = 0;
  for (int x = frame; x < 80; ++x)
    for (int y = frame; y < frame + caption; ++y) titlePixels += (pixels.at(x, y) & 0xFFFFFF) == 0xFFFFFFu;
  EXPECT_GT(titlePixels, 20);
  EXPECT_EQ(pixels.at(1, 1) & 0xFFFFFF, 0xB4BCC6u);                                     // the frame
  EXPECT_EQ(pixels.at(pixels.width() - 20, frame + 2) & 0xFFFFFF, 0x1F3A5Fu);           // the caption bar
  EXPECT_EQ(pixels.at(pixels.width() - 8, frame + caption + 5) & 0xFFFFFF, 0x0B2A4Au);  // the banner
#endif
}

// The splash stays open without a modal loop while the session goes on: the
// script's click reaches it after the next call, and closes it.
TEST_F(EmulatorSession, AClickOnTheSplashClosesItWhileTheSessionGoesOn) {
  declineUsageReportsEarlier();
  start();
  const std::wstring out = run(L"@click clickArea\n(kvt1_GetSettings \"##121\")\n");
  EXPECT_EQ(out.rfind(L"\"0\"\ndialog [KVT]: click clickArea at (", 0), 0u) << platform::toUtf8(out);
  EXPECT_EQ(session->faults(), 0) << platform::toUtf8(out);
  // It is gone: nothing takes the next click.
  const std::wstring after = run(L"@click clickArea\n(kvt1_GetSettings \"##121\")\n");
  EXPECT_TRUE(contains(after, L"@click clickArea: no dialog opened to play it")) << platform::toUtf8(after);
}

#ifndef _WIN32
class SplashSession : public EmulatorSession {
 protected:
  void SetUp() override { declineUsageReportsEarlier(); }

  platform::HeadlessDesktop& desktop = platform::HeadlessDesktop::local();

  // The host idles at its command line: its message loop takes each tick.
  void idle(unsigned milliseconds) {
    for (unsigned t = 0; t < milliseconds; t += 100) {
      desktop.advance(100);
      desktop.pumpPendingMessages();
    }
  }
};

TEST_F(SplashSession, TheSplashOpensAtStartUpAndGoesByItselfWithoutHoldingTheSessionUp) {
  session = std::make_unique<Session>([this](const std::wstring& text) { output += text; });
  const std::wstring folder = installation.folder() + L"/pictures";
  session->setRenderFolder(folder);
  ASSERT_TRUE(session->load(modulePath())) << platform::toUtf8(output);
  EXPECT_TRUE(contains(output, L"dialog [KVT]: opened\nrendered: " + folder + L"/1-KVT.png\n"))
      << platform::toUtf8(output);
  ASSERT_EQ(desktop.windows().size(), 1u) << platform::toUtf8(output);
  const html::test::PngPixels pixels(platform::toUtf8(folder + L"/1-KVT.png"));
  EXPECT_EQ(pixels.width(), 560);

  // The session goes on while it shows.
  EXPECT_EQ(run(L"(kvt1_GetSettings \"##121\")\n"), L"\"0\"\n");
  EXPECT_EQ(desktop.windows().size(), 1u);
  idle(3900);
  EXPECT_EQ(desktop.windows().size(), 1u);
  idle(100);
  EXPECT_TRUE(desktop.windows().empty());
}

// At the first start the usage question waits for the user: the splash
// would cover it, so it goes before the question opens.
TEST_F(EmulatorSession, TheSplashGivesWayToTheUsageQuestionAtTheFirstStart) {
  session = std::make_unique<Session>([this](const std::wstring& text) { output += text; });
  const std::wstring folder = installation.folder() + L"/pictures";
  session->setRenderFolder(folder);
  platform::HeadlessDesktop& desktop = platform::HeadlessDesktop::local();
  ASSERT_TRUE(session->load(modulePath())) << platform::toUtf8(output);
  EXPECT_TRUE(contains(output, L"dialog [KVT]: opened\nrendered: " + folder +
                                   L"/1-KVT.png\ndialog [Help Improve the KVT Product Experience]: opened\n"))
      << platform::toUtf8(output);
  EXPECT_TRUE(desktop.windows().empty());
  EXPECT_EQ(run(L"(kvt1_splash 1)\n"), L"(0)\n");  // nothing left to show

  // The question's window fits its page: no empty band under the buttons,
  // and the logo's disc sits on the page's own gradient.
  const html::test::PngPixels question(platform::toUtf8(folder + L"/2-Help Improve the KVT Product Experience.png"));
  ASSERT_TRUE(question.valid());
  const int left = 3;
  const int top = 3 + 23;
  const int clientHeight = question.height() - top - 3;
  EXPECT_LT(clientHeight, 500);
  EXPECT_NE(question.at(question.width() / 2, top + clientHeight - 3) & 0xFFFFFF, 0xF0F0F0u);
  const int logoLeft = left + 620 - 16 - 64;
  EXPECT_EQ(question.at(logoLeft + 1, top + 17), question.at(logoLeft - 4, top + 17));
}

TEST_F(SplashSession, SplashCallsSleepWhileTheSplashExists) {
  start();
  ASSERT_EQ(desktop.windows().size(), 1u);
  std::uint64_t before = desktop.now();
  EXPECT_EQ(run(L"(kvt1_splash 1)\n"), L"(0)\n");
  EXPECT_EQ(desktop.now(), before + 100);  // the sleep, on the desktop's clock
  EXPECT_EQ(desktop.windows().size(), 1u);

  EXPECT_EQ(run(L"(kvt1_splash 3 \"x\")\n"), L"(0)\n");  // stops it
  EXPECT_TRUE(desktop.windows().empty());

  // Closed, the splash still paces the LISP loop that calls it.
  before = desktop.now();
  EXPECT_EQ(run(L"(kvt1_splash 3 \"x\")\n(kvt1_splash 1)\n"), L"(0)\n(0)\n");
  EXPECT_EQ(desktop.now(), before + 200);
  EXPECT_EQ(session->faults(), 0);
}
#endif

}  // namespace
}  // namespace kvt1::emu
