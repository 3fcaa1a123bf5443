// The module's HTML engine as initialisation makes it and unload undoes it.
#include "host/HtmlEngineSetup.h"

#include <gtest/gtest.h>

#include "htmlui/HTMEngine.h"
#include "platform/ThisModule.h"
#include "tests/common/BesideProgram.h"
#include "tests/common/HeadlessRecorder.h"
#include "text/MessageDescription.h"
#ifndef _WIN32
#include "htmlui/engine/DomEngine.h"
#include "tests/htmlui/engine/EngineTestSupport.h"
#endif

namespace kvt1 {
namespace {

bool messagesAreHtmlDialogs() { return dynamic_cast<CHTMMsgHandler*>(&NTxtRes::GetMsgHandler()) != nullptr; }

#ifdef _WIN32
TEST(HtmlEngineSetupTest, WithoutHtmlayoutThereIsNoEngineAndMessagesStayMessageBoxes) {
  const platform::DynamicLibrary missing = testing::loadBesideProgram("htmlayout.dll");
  ASSERT_FALSE(missing.isLoaded());
  HtmlEngineSetup setup;
  setup.start(missing, platform::thisModuleHandle());
  EXPECT_EQ(setup.engine(), nullptr);
  EXPECT_EQ(GetHtmlEngine(), nullptr);
  EXPECT_FALSE(messagesAreHtmlDialogs());

  testing::headless().messages.clear();
  NTxtRes::CMessageDescription message =
      NTxtRes::BuildMessage(L"MsgHelpFileNotFound", 0x30, 0, false, true, false, false, false);
  EXPECT_EQ(NTxtRes::ShowMessage(message), 1);
  EXPECT_EQ(testing::headless().messages.size(), 1u);
}

TEST(HtmlEngineSetupTest, AUsableHtmlayoutServesTheDialogsUntilStopped) {
  const platform::DynamicLibrary library = testing::loadBesideProgram("htmlayout_stub.dll");
  ASSERT_TRUE(library.isLoaded()) << platform::toUtf8(library.error());
  HtmlEngineSetup setup;
  setup.start(library, platform::thisModuleHandle());
  ASSERT_NE(setup.engine(), nullptr);
  EXPECT_EQ(GetHtmlEngine(), setup.engine());
  EXPECT_TRUE(messagesAreHtmlDialogs());
  setup.stop();
  EXPECT_EQ(GetHtmlEngine(), nullptr);
  EXPECT_FALSE(messagesAreHtmlDialogs());

  // A library without the element event handlers cannot run a dialog.
  const platform::DynamicLibrary partial = testing::loadBesideProgram("htmlayout_stub_noevents.dll");
  ASSERT_TRUE(partial.isLoaded());
  setup.start(partial, platform::thisModuleHandle());
  EXPECT_EQ(setup.engine(), nullptr);
  EXPECT_FALSE(messagesAreHtmlDialogs());
}
#else
TEST(HtmlEngineSetupTest, OurEngineLaysPagesOutForTheDialogsUntilStopped) {
  const platform::DynamicLibrary noLibrary;
  {
    HtmlEngineSetup setup;
    setup.start(noLibrary, platform::thisModuleHandle());
    auto* engine = dynamic_cast<html::DomEngine*>(setup.engine());
    ASSERT_NE(engine, nullptr);
    EXPECT_EQ(GetHtmlEngine(), engine);
    EXPECT_TRUE(messagesAreHtmlDialogs());
    // Pages have geometry: a layout provider is at work.
    ASSERT_TRUE(html::test::load(*engine, html::test::window(), "<body><p>Wide enough text</p></body>"));
    EXPECT_GT(engine->GetMinWidth(html::test::window()), 10u);

    setup.stop();
    EXPECT_EQ(setup.engine(), nullptr);
    EXPECT_EQ(GetHtmlEngine(), nullptr);
    EXPECT_FALSE(messagesAreHtmlDialogs());
    setup.stop();

    setup.start(noLibrary, platform::thisModuleHandle());
    EXPECT_NE(GetHtmlEngine(), nullptr);
  }
  // Going away, it leaves nothing behind.
  EXPECT_EQ(GetHtmlEngine(), nullptr);
  EXPECT_FALSE(messagesAreHtmlDialogs());
}
#endif

}  // namespace
}  // namespace kvt1
