#include "htmlui/CHTMMessageDialog.h"

#include <gtest/gtest.h>

#include "platform/DialogWindow.h"
#include "platform/MessageBox.h"
#include "tests/common/HeadlessRecorder.h"
#include "tests/htmlui/TestDialogs.h"
#ifndef _WIN32
#include "platform/posix/HeadlessDesktop.h"
#endif

namespace kvt1::testing {
namespace {

NTxtRes::CMessageDescription dismissQuestion() {
  NTxtRes::CMessageDescription message;
  message.infoText = L"Are you sure you do not want to see these updates again ?";
  message.captionText = L"Automatic Updates Notification";
  message.checkBoxText = L"Do not ask again";
  message.yes = {true, L"&Yes"};
  message.no = {true, L"&No"};
  return message;
}

class MessageDialogTest : public DialogTest {
 protected:
#ifndef _WIN32
  // Plays the user in the next dialog that opens, when the modal loop first waits.
  void answer(std::function<void(CHTMMessageDialog&)> act) {
    act_ = std::move(act);
    platform::HeadlessDesktop::instance().setWindowCreatedHandler([this](HWND window) { pending_ = window; });
    platform::HeadlessDesktop::instance().setIdleHandler([this] {
      if (pending_ == nullptr) return;
      auto* dialog = reinterpret_cast<CHTMMessageDialog*>(platform::windowUserData(pending_));
      pending_ = nullptr;
      act_(*dialog);
    });
  }
  void TearDown() override {
    platform::HeadlessDesktop::instance().setWindowCreatedHandler(nullptr);
    DialogTest::TearDown();
  }
  void clickId(CHTMMessageDialog& dialog, const wchar_t* id) {
    const CHTMElement element = dialog.ElementById(id);
    ASSERT_TRUE(element.IsValid());
    engine_.click(element.Handle());
  }

  std::function<void(CHTMMessageDialog&)> act_;
  HWND pending_ = nullptr;
#endif
};

#ifndef _WIN32
TEST_F(MessageDialogTest, ShowsTheDescriptionAndStoresTheCheckBoxBack) {
  NTxtRes::CMessageDescription message = dismissQuestion();
  std::wstring info;
  std::wstring yes;
  bool okShown = true;
  answer([&](CHTMMessageDialog& dialog) {
    info = dialog.ElementById(L"txtInfo").GetText();
    yes = dialog.ElementById(L"btnYes").GetText();
    okShown = dialog.ElementById(L"btnOk").GetStyle("display") != L"none";
    clickId(dialog, L"chkMessage");
    clickId(dialog, L"btnNo");
  });
  CHTMMsgHandler handler;
  EXPECT_EQ(handler.ShowMessage(message), platform::kIdNo);
  // The question mark stays on the line of its word.
  EXPECT_EQ(info, L"Are you sure you do not want to see these updates again\u00A0?");
  EXPECT_EQ(yes, L"Yes");
  EXPECT_FALSE(okShown);
  EXPECT_TRUE(message.checkBoxState);
}
#endif

TEST_F(MessageDialogTest, WithoutTheEngineTheStandardMessageBoxAnswers) {
  SetHtmlEngine(nullptr);
  headless() = {};
  headless().answers = {platform::kIdYes};
  NTxtRes::CMessageDescription message = dismissQuestion();
  CHTMMsgHandler handler;
  EXPECT_EQ(handler.ShowMessage(message), platform::kIdYes);
  ASSERT_EQ(headless().messages.size(), 1u);
  EXPECT_EQ(headless().messageTypes[0], static_cast<unsigned>(platform::kMbYesNo));
}

}  // namespace
}  // namespace kvt1::testing
