#include <gtest/gtest.h>
#include <functional>

#include "tests/text/TextModule.h"
#include "text/MessageDescription.h"
#include "text/TextResources.h"
#include "text/XmlDocument.h"

namespace {

using NTxtRes::GetText;

// The product's English language module, as built for the installation.
class EnglishTextsTest : public kvt1::testing::TextModuleTest {
 protected:
  void SetUp() override {
    TextModuleTest::SetUp();
    use(KVT1_ENGLISH_TEXTS);
  }
};

TEST_F(EnglishTextsTest, TheMessagesOfTheModuleReadAsTheyShould) {
  NTxtRes::CMessageDescription none = NTxtRes::BuildMessage(L"MsgNoUpdates", 0, 0, false, true, false, false, false);
  EXPECT_EQ(none.infoText, L"No updates were found.");
  EXPECT_EQ(none.captionText, L"Automatic Updates Notification");
  EXPECT_EQ(none.ok.caption, L"&OK");

  NTxtRes::CMessageDescription dismiss =
      NTxtRes::BuildMessage(L"MsgDismissUpdates", 0, 0, false, false, false, true, true);
  EXPECT_EQ(dismiss.infoText, L"Are you sure you do not want to see these updates again ?");
  EXPECT_EQ(dismiss.yes.caption, L"&Yes");
  EXPECT_EQ(dismiss.no.caption, L"&No");
  EXPECT_EQ(NTxtRes::GetButtonType(dismiss), 4);

  EXPECT_EQ(GetText(L"MsgHelpFileNotFound", L"InfoText", false), L"Product help file '%s[%d]' was not found");
}

TEST_F(EnglishTextsTest, PageTextsKeepTheirPageTags) {
  EXPECT_EQ(GetText(L"DlgUsageReport/Heading"), L"Help Improve the <[*prod]> Product Experience");
  EXPECT_EQ(GetText(L"DlgUsageReport/Promise", 2), L"You can stop participating at any time.");
  EXPECT_EQ(GetText(L"DlgCheckForUpdate/LibraryUpdateText"), L"A free library update is available:");
  EXPECT_EQ(GetText(L"DlgAbout/ProgramVersion"), L"Program: %s");
}

TEST_F(EnglishTextsTest, ErrorCodesAndTooltipsAreReachable) {
  EXPECT_NE(NTxtRes::GetErrorText(1001).find(L"htmlayout.dll"), std::wstring::npos);
  EXPECT_EQ(NTxtRes::GetErrorText(1), L"No text found for error 1");
  auto tooltip = NTxtRes::GetTooltip(5300, 2, 0);
  EXPECT_EQ(tooltip.first, L"Check for updates when the CAD program starts");
  EXPECT_FALSE(tooltip.second.empty());
}

// Every element that holds text is found by its path and is not empty, so
// that no text of the document turns into a miss message on screen.
TEST_F(EnglishTextsTest, EveryLeafOfTheDocumentHasText) {
  kvt1::CXmlDocument document;
  auto found = kvt1::platform::findResource(kvt1::platform::resourceModule(), L"XMLRES", L"XMLRES");
  ASSERT_TRUE(found.has_value());
  std::wstring text;
  for (std::size_t i = 0; i + 1 < found->size; i += 2) {
    const wchar_t unit = static_cast<wchar_t>(found->bytes[i] | (found->bytes[i + 1] << 8));
    if (unit == 0) break;
    text.push_back(unit);
  }
  ASSERT_TRUE(document.SetDoc(text)) << kvt1::platform::toUtf8(document.GetResult());
  int leaves = 0;
  std::function<void(const std::wstring&)> walk = [&](const std::wstring& path) {
    bool hasChildren = false;
    while (document.FindChildElem()) {
      hasChildren = true;
      const std::wstring child = path + L"/" + document.GetChildTagName();
      document.IntoElem();
      walk(child);
      document.OutOfElem();
    }
    if (!hasChildren) {
      ++leaves;
      EXPECT_FALSE(document.GetElemData().empty()) << kvt1::platform::toUtf8(path);
    }
  };
  ASSERT_TRUE(document.FindElem());
  walk(L"");
  EXPECT_GT(leaves, 40);
}

}  // namespace
