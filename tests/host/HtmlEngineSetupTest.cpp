// The module's HTML engine as initialisation makes it and unload undoes it:
// htmlayout.dll when it lies beside the module with every export the
// dialogs need, our DOM engine with a layout otherwise.
#include "host/HtmlEngineSetup.h"

#include <gtest/gtest.h>

#include "htmlui/HTMEngine.h"
#include "htmlui/engine/DomEngine.h"
#include "tests/common/BesideProgram.h"
#include "tests/htmlui/engine/EngineTestSupport.h"
#include "text/MessageDescription.h"

namespace kvt1 {
namespace {

bool messagesAreHtmlDialogs() { return dynamic_cast<CHTMMsgHandler*>(&NTxtRes::GetMsgHandler()) != nullptr; }

// Our engine, with pages that have geometry: a layout provider is at work.
void expectOurEngineWithLayout(html::HtmlEngine* chosen) {
  auto* engine = dynamic_cast<html::DomEngine*>(chosen);
  ASSERT_NE(engine, nullptr);
  ASSERT_TRUE(html::test::load(*engine, html::test::window(), "<body><p>Wide enough text</p></body>"));
  EXPECT_GT(engine->GetMinWidth(html::test::window()), 10u);
}

TEST(HtmlEngineSetupTest, WithoutTheLibraryOurEngineServesTheDialogsUntilStopped) {
  const platform::DynamicLibrary missing = testing::loadBesideProgram("htmlayout.dll");
  ASSERT_FALSE(missing.isLoaded());
  {
    HtmlEngineSetup setup;
    setup.start(missing);
    expectOurEngineWithLayout(setup.engine());
    EXPECT_EQ(GetHtmlEngine(), setup.engine());
    EXPECT_TRUE(messagesAreHtmlDialogs());

    setup.stop();
    EXPECT_EQ(setup.engine(), nullptr);
    EXPECT_EQ(GetHtmlEngine(), nullptr);
    EXPECT_FALSE(messagesAreHtmlDialogs());
    setup.stop();

    setup.start(missing);
    EXPECT_NE(GetHtmlEngine(), nullptr);
  }
  // Going away, it leaves nothing behind.
  EXPECT_EQ(GetHtmlEngine(), nullptr);
  EXPECT_FALSE(messagesAreHtmlDialogs());
}

#ifdef _WIN32
TEST(HtmlEngineSetupTest, AUsableLibraryIsChosenAndOneLackingAnExportIsNot) {
  const platform::DynamicLibrary library = testing::loadBesideProgram("htmlayout_stub.dll");
  ASSERT_TRUE(library.isLoaded()) << platform::toUtf8(library.error());
  HtmlEngineSetup setup;
  setup.start(library);
  ASSERT_NE(setup.engine(), nullptr);
  EXPECT_EQ(dynamic_cast<html::DomEngine*>(setup.engine()), nullptr);
  EXPECT_EQ(GetHtmlEngine(), setup.engine());
  EXPECT_TRUE(messagesAreHtmlDialogs());
  setup.stop();

  // Without the element event handlers the library cannot run a dialog.
  const platform::DynamicLibrary partial = testing::loadBesideProgram("htmlayout_stub_noevents.dll");
  ASSERT_TRUE(partial.isLoaded());
  setup.start(partial);
  expectOurEngineWithLayout(setup.engine());
  EXPECT_TRUE(messagesAreHtmlDialogs());
}
#endif

}  // namespace
}  // namespace kvt1
