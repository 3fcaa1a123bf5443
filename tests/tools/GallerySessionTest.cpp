// The emulator's controls gallery played as a user would: the menu bar, the
// note's context menu, the tab set's scroll buttons and keys, numeric fields
// with limits and a hover tooltip, each drawn as it stands.
#include <gtest/gtest.h>

#include "tests/tools/EmulatorSession.h"
#ifndef _WIN32
#include "tests/htmlui/engine/litehtml/PngPixels.h"
#endif

namespace kvt1::emu {
namespace {

bool contains(const std::wstring& text, const std::wstring& part) { return text.find(part) != std::wstring::npos; }

class GallerySession : public EmulatorSession {
 protected:
  void SetUp() override {
    session = std::make_unique<Session>([this](const std::wstring& text) { output += text; });
  }
};

TEST_F(GallerySession, EveryControlAnswersTheUserAndIsDrawnAsItStands) {
  const std::wstring folder = installation.folder() + L"/gallery";
  const std::wstring out = run(L"@render " + folder +
                               L"\n@snapshot start"
                               L"\n@click-selector #menuBar > menu > li"
                               L"\n@snapshot menu-bar"
                               L"\n@click-selector #menuBar > menu > li > menu > li"
                               L"\n@right-click divNote"
                               L"\n@snapshot context-menu"
                               L"\n@click-selector menu.context li"
                               L"\n@click-selector #tabSurfaces [type='Next']"
                               L"\n@click-selector #tabSurfaces [type='Next']"
                               L"\n@snapshot tabs"
                               L"\n@click-selector #tabSurfaces .strip > [panel='panel-id3']"
                               L"\n@key END"
                               L"\n@click edtLength"
                               L"\n@type 5000"
                               L"\n@key RETURN"
                               L"\n@click edtSlope"
                               L"\n@type many"
                               L"\n@key TAB"
                               L"\n@snapshot no-limits"
                               L"\n@click edtSlope"
                               L"\n@snapshot limits"
                               L"\n@hover edtLength"
                               L"\n@wait 700"
                               L"\n@snapshot tooltip"
                               L"\n@click btnClose"
                               L"\nGALLERY\n");
  for (const wchar_t* reported : {L"gallery: menu command 1\n", L"gallery: context command 10 on divNote\n",
                                  L"gallery: surface tab Transitional\n", L"gallery: surface tab Take-off climb\n",
                                  L"gallery: edtLength = 4000 (brought within its limits)\n",
                                  L"gallery: edtSlope = 2.00 (not a number: kept)\n", L"gallery: closed (1)\n"})
    EXPECT_TRUE(contains(out, reported)) << platform::toUtf8(reported) << "\n" << platform::toUtf8(out);
  EXPECT_EQ(session->faults(), 0) << platform::toUtf8(out);
#ifndef _WIN32
  const html::test::PngPixels start(platform::toUtf8(folder + L"/2-start.png"));
  const html::test::PngPixels menuBar(platform::toUtf8(folder + L"/3-menu-bar.png"));
  const html::test::PngPixels contextMenu(platform::toUtf8(folder + L"/4-context-menu.png"));
  const html::test::PngPixels tooltip(platform::toUtf8(folder + L"/8-tooltip.png"));
  const html::test::PngPixels limits(platform::toUtf8(folder + L"/7-limits.png"));
  ASSERT_TRUE(start.valid() && menuBar.valid() && contextMenu.valid() && tooltip.valid() && limits.valid())
      << platform::toUtf8(out);
  // The drop-down of "File" under the menu bar; the context menu beside the note.
  // Client coordinates lie inside the dialog frame (3 pixels) and under the caption bar (23).
  const int left = 3;
  const int top = 3 + 23;
  EXPECT_GT(menuBar.differenceIn(start, left + 0, top + 22, 120, 90), 0.2);
  EXPECT_GT(contextMenu.differenceIn(start, left + 220, top + 250, 120, 60), 0.2);
  // The tooltip below the runway length, over the fields under it.
  EXPECT_GT(tooltip.differenceIn(limits, left + 150, top + 190, 200, 16), 0.1);
#endif
}

}  // namespace
}  // namespace kvt1::emu
