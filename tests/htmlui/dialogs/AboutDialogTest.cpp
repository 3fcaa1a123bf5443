#include "htmlui/dialogs/CKVTAbout.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "host/identity/ModuleVersion.h"
#include "platform/DialogWindow.h"
#include "tests/common/HeadlessRecorder.h"
#include "tests/htmlui/dialogs/ProductDialogTest.h"
#ifndef _WIN32
#include "tests/htmlui/engine/litehtml/PngPixels.h"
#endif

namespace kvt1::testing {
namespace {

using ScriptedAbout = Scripted<CKVTAbout>;

// The release notes beside a folder, joined with the system's own separator.
#ifdef _WIN32
const wchar_t kReleaseNotesPath[] = L"\\ReleaseNotes.html";
#else
const wchar_t kReleaseNotesPath[] = L"/ReleaseNotes.html";
#endif

class AboutDialogTest : public ProductDialogTest {
 protected:
  void click(ScriptedAbout& dialog, const std::wstring& selector) {
    const CHTMElement element = dialog.Root().SelectFirst(selector);
    ASSERT_TRUE(element.IsValid());
    engine_.click(element.Handle());
  }
};

TEST_F(AboutDialogTest, ShowsBothVersionsWithTheirReleaseNotesAndOkEndsIt) {
  std::wstring head, program, library, programHref, libraryHref, linkText, title;
  ScriptedAbout dialog({[&](ScriptedAbout& d) {
                          head = d.ElementById(L"txtVersionHead").GetText();
                          program = d.ElementById(L"txtProgVersion").GetText();
                          library = d.ElementById(L"txtSODVersion").GetText();
                          programHref = d.ElementById(L"txtProgRelNotes").SelectFirst(L"a").GetAttribute("href");
                          libraryHref = d.ElementById(L"txtSodRelNotes").SelectFirst(L"a").GetAttribute("href");
                          linkText = d.ElementById(L"txtProgRelNotes").GetText();
                          title = platform::windowText(d.GetHwnd());
                        },
                        [&](ScriptedAbout& d) { click(d, L"button[name='OK']"); }},
                       nullptr);
  EXPECT_EQ(dialog.DoModal(), 1);
  EXPECT_EQ(head, L"Version:");
  EXPECT_EQ(program, std::wstring(L"Program: ") + moduleVersionNumber(VersionNumber::File));
  EXPECT_NE(program, L"Program: 0.0.0.0");  // the version resource was read
  EXPECT_EQ(library, L"Library: 1");
  EXPECT_EQ(programHref, installation().programFolder() + kReleaseNotesPath);
  EXPECT_EQ(libraryHref, installation().dataFolder() + kReleaseNotesPath);
  EXPECT_EQ(linkText, L"Open release notes (HTML)");
  EXPECT_EQ(title, L"About");
  EXPECT_EQ(dialog.Style(), 0x80C80000u);  // a captioned dialog with a close box
}

TEST_F(AboutDialogTest, AReleaseNotesLinkOpensInTheShell) {
  headless() = {};
  ScriptedAbout dialog({[&](ScriptedAbout& d) { click(d, L"#txtSodRelNotes a"); },
                        [&](ScriptedAbout& d) { click(d, L"button[name='OK']"); }},
                       nullptr);
  EXPECT_EQ(dialog.DoModal(), 1);
  EXPECT_EQ(headless().shellOpened, std::vector<std::wstring>{installation().dataFolder() + kReleaseNotesPath});
}

TEST(ReleaseNotesLink, APathIsEscapedForTheAttribute) {
  const std::wstring link = ReleaseNotesLink(L"C:\\O'Hare & Co\\ReleaseNotes.html");
  EXPECT_EQ(link.find(L"<a href='C:\\O&apos;Hare &amp; Co\\ReleaseNotes.html'>"), 0u);
  EXPECT_EQ(link.substr(link.size() - 4), L"</a>");
}

#ifndef _WIN32
TEST_F(AboutDialogTest, DrawsTheBannerTheTextsAndTheMark) {
  useLitehtml();
  const std::string path = ::testing::TempDir() + "kvt1_about_test.png";
  std::remove(path.c_str());
  bool rendered = false;
  ScriptedAbout dialog({[&](ScriptedAbout& d) { rendered = engine_.renderPng(d.GetHwnd(), path); },
                        [&](ScriptedAbout& d) { click(d, L"button[name='OK']"); }},
                       nullptr);
  EXPECT_EQ(dialog.DoModal(), 1);
  ASSERT_TRUE(rendered);
  const html::test::PngPixels picture(path);
  ASSERT_TRUE(picture.valid());
  EXPECT_GE(picture.width(), 400);
  EXPECT_GE(picture.height(), 200);
  // The banner's navy runs across the top; below it the page is light.
  EXPECT_EQ(picture.at(picture.width() - 5, 5) & 0xFFFFFF, 0x0B2A4Au);
  EXPECT_GT(picture.at(picture.width() - 5, picture.height() - 5) & 0xFF, 0xC0u);
  // The mark is drawn at the banner's left: a light tile on the navy.
  int light = 0;
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 70; ++x) light += (picture.at(x, y) & 0xFF) > 0xE0 ? 1 : 0;
  }
  EXPECT_GT(light, 400);
  std::remove(path.c_str());
}
#endif

}  // namespace
}  // namespace kvt1::testing
