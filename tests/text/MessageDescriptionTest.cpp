#include <gtest/gtest.h>

#include "platform/MessageBox.h"
#include "tests/common/HeadlessRecorder.h"
#include "tests/text/TextModule.h"
#include "text/MessageDescription.h"

namespace {

using kvt1::testing::headless;
using NTxtRes::BuildMessage;
using NTxtRes::CMessageDescription;
using NTxtRes::GetButtonType;

class MessageDescriptionTest : public kvt1::testing::TextModuleTest {
 protected:
  void SetUp() override {
    TextModuleTest::SetUp();
    use(KVT1_TEST_TEXTS);
    headless() = {};
  }
};

TEST_F(MessageDescriptionTest, CaptionsComeFromTheKeyThenTheStandardButtons) {
  CMessageDescription message = BuildMessage(L"MsgOwn", 0x30, 77, true, true, true, true, true);
  EXPECT_EQ(message.key, L"MsgOwn");
  EXPECT_EQ(message.style, 0x30u);
  EXPECT_EQ(message.extraValue, 77u);
  EXPECT_TRUE(message.flag);
  EXPECT_FALSE(message.checkBoxState);
  EXPECT_EQ(message.ok.caption, L"&Continue");
  EXPECT_EQ(message.yes.caption, L"&__Yes");      // the key's own caption keeps its underscores
  EXPECT_EQ(message.cancel.caption, L"&Cancel");  // standard caption without "__"
  EXPECT_EQ(message.no.caption, L"&");            // missing everywhere
  EXPECT_TRUE(message.no.present);
}

TEST_F(MessageDescriptionTest, ButtonNamesInTheTextsBecomeCaptionsWithoutAmpersands) {
  CMessageDescription message = BuildMessage(L"MsgOwn", 0, 0, false, true, true, true, false);
  EXPECT_EQ(message.infoText, L"Press Continue to go on, or __Yes");
  EXPECT_EQ(message.captionText, L"Rate 5%");
  EXPECT_EQ(message.checkBoxText, L"Do not ask again (Cancel)");

  CMessageDescription bare = BuildMessage(L"MsgBare", 0, 0, false, false, false, true, false);
  EXPECT_EQ(bare.infoText, L"Bare .");  // an absent button gives an empty text
  EXPECT_EQ(bare.yes.caption, L"&Yes");
  EXPECT_FALSE(bare.no.present);
  EXPECT_EQ(bare.no.caption, L"");
  EXPECT_EQ(bare.captionText, L"");
  EXPECT_EQ(bare.checkBoxText, L"");
}

TEST_F(MessageDescriptionTest, AMissingInfoTextShowsTheMissMessage) {
  CMessageDescription message = BuildMessage(L"MsgAbsent", 0, 0, false, true, false, false, false);
  EXPECT_EQ(message.infoText, L"Can not find text for key 'MsgAbsent' subKey 'InfoText'");
  EXPECT_EQ(message.ok.caption, L"&OK");
}

TEST(MessageButtonTypeTest, TheFirstRuleThatHoldsWins) {
  auto type = [](bool ok, bool cancel, bool yes, bool no) {
    CMessageDescription message;
    message.ok.present = ok;
    message.cancel.present = cancel;
    message.yes.present = yes;
    message.no.present = no;
    return GetButtonType(message);
  };
  EXPECT_EQ(type(true, false, false, false), 0);
  EXPECT_EQ(type(false, false, true, true), 4);
  EXPECT_EQ(type(false, true, true, true), 3);
  EXPECT_EQ(type(true, true, true, true), 3);
  EXPECT_EQ(type(true, true, false, false), 1);
  EXPECT_EQ(type(false, false, true, false), 0);
  EXPECT_EQ(type(false, true, false, true), 0);
  EXPECT_EQ(type(false, false, false, false), 0);
}

TEST_F(MessageDescriptionTest, TheBuiltInHandlerShowsTheInfoTextUnderTheApplicationTitle) {
  NTxtRes::SetApplicationTitle(L"KVT");
  CMessageDescription message =
      BuildMessage(L"MsgOwn", kvt1::platform::kMbIconQuestion, 0, false, false, true, true, true);
  headless().answers = {kvt1::platform::kIdNo};
  EXPECT_EQ(NTxtRes::ShowMessage(message), kvt1::platform::kIdNo);
  ASSERT_EQ(headless().messages.size(), 1u);
  EXPECT_EQ(headless().messages[0], L"KVT: Press  to go on, or __Yes");
  EXPECT_EQ(headless().messageTypes[0], kvt1::platform::kMbIconQuestion + kvt1::platform::kMbYesNoCancel);
}

// Records what it is asked to show and ticks the check box.
class RecordingHandler : public NTxtRes::CMsgHandlerInterface {
 public:
  int ShowMessage(CMessageDescription& message) override {
    shown = message.infoText;
    message.checkBoxState = true;
    return kvt1::platform::kIdCancel;
  }
  std::wstring shown;
};

TEST_F(MessageDescriptionTest, AnInstalledHandlerReplacesTheBuiltInOneUntilRemoved) {
  RecordingHandler handler;
  NTxtRes::SetMsgHandler(&handler);
  CMessageDescription message = BuildMessage(L"MsgBare", 0, 0, false, true, false, false, false);
  EXPECT_EQ(NTxtRes::ShowMessage(message), kvt1::platform::kIdCancel);
  EXPECT_EQ(handler.shown, L"Bare .");
  EXPECT_TRUE(message.checkBoxState);
  EXPECT_TRUE(headless().messages.empty());
  NTxtRes::SetMsgHandler(nullptr);
  EXPECT_EQ(NTxtRes::ShowMessage(message), kvt1::platform::kIdOk);
  EXPECT_EQ(headless().messages.size(), 1u);
}

}  // namespace
