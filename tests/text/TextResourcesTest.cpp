#include <gtest/gtest.h>

#include "platform/CaseFolding.h"
#include "platform/Resources.h"
#include "platform/ThisModule.h"
#include "tests/text/TextModule.h"
#include "text/TextFormatter.h"
#include "text/TextResources.h"

namespace {

using kvt1::testing::TextModuleTest;
using NTxtRes::GetErrorText;
using NTxtRes::GetText;
using NTxtRes::GetTooltip;

class TextResourcesTest : public TextModuleTest {
 protected:
  void SetUp() override {
    TextModuleTest::SetUp();
    use(KVT1_TEST_TEXTS);
  }
};

TEST_F(TextResourcesTest, PlainTextsHaveDoublePercentReducedAndEntitiesDecoded) {
  EXPECT_EQ(GetText(L"Percent"), L"100% done");
  EXPECT_EQ(GetText(L"Single"), L"50% off");
  EXPECT_EQ(GetText(L"Entity"), L"a <b> & A");
  EXPECT_EQ(GetText(L"Mixed"), L"text <[tag]> end");
  EXPECT_EQ(GetText(L"Unicode"), L"Gr\u00f6\u00dfe \u20ac \U0001D11E");
}

TEST_F(TextResourcesTest, AKeyWithSlashesReachesDeeperElements) {
  EXPECT_EQ(GetText(L"Deep/Er/Key"), L"deep text");
  EXPECT_EQ(GetText(L"Deep/Er", L"Key", false), L"deep text");
}

TEST_F(TextResourcesTest, MissesNameTheKeyAndEmptyElementsAreMisses) {
  EXPECT_EQ(GetText(L"Absent"), L"Can not find text for key 'Absent'");
  EXPECT_EQ(GetText(L"Empty"), L"Can not find text for key 'Empty'");
  EXPECT_EQ(GetText(L"Msg", 2), L"two");
  EXPECT_EQ(GetText(L"Msg", 1), L"Can not find text for key 'Msg' index 1");
  EXPECT_EQ(GetText(L"Msg", -1), L"Can not find text for key 'Msg' index 4294967295");
  EXPECT_EQ(GetText(L"A", L"B", true), L"");
  EXPECT_EQ(GetText(L"A", L"B", false), L"Can not find text for key 'A' subKey 'B'");
}

TEST_F(TextResourcesTest, ErrorCodesMatchTheAttributeTextually) {
  EXPECT_EQ(GetErrorText(7), L"seven");
  EXPECT_EQ(GetErrorText(-3), L"minus three");
  EXPECT_EQ(GetErrorText(5), L"No text found for error 5");
  EXPECT_EQ(GetErrorText(9), L"No text found for error 9");
  EXPECT_EQ(GetErrorText(-1), L"No text found for error 4294967295");
}

TEST_F(TextResourcesTest, TooltipsComeInPairsAndHaveNoMissMessage) {
  EXPECT_EQ(GetTooltip(10, 20, 0), std::make_pair(std::wstring(L"short 100%"), std::wstring(L"long")));
  EXPECT_EQ(GetTooltip(10, 20, 1), std::make_pair(std::wstring(L"only short"), std::wstring()));
  EXPECT_EQ(GetTooltip(10, 21, 0), std::make_pair(std::wstring(), std::wstring()));
  EXPECT_EQ(GetTooltip(11, 20, 0), std::make_pair(std::wstring(), std::wstring()));
}

TEST_F(TextResourcesTest, RawTextsStayAsStored) {
  EXPECT_EQ(NTxtRes::GetRawText(L"MsgOwn", L"CaptionText"), L"Rate 5%%");
  EXPECT_EQ(NTxtRes::GetRawText(L"MsgOwn", L"Absent"), L"");
}

// Upper-cases every text it is given, so that its use shows.
class ShoutingFormatter : public NTxtRes::CTextFormatterInterface {
 public:
  void FormatText(std::wstring& text) override { text = kvt1::platform::upperCase(text); }
};

TEST_F(TextResourcesTest, FoundTextsPassTheCurrentFormatterAndMissMessagesDoNot) {
  ShoutingFormatter shouting;
  NTxtRes::SetTextFormatter(&shouting);
  EXPECT_EQ(GetText(L"Percent"), L"100% DONE");
  EXPECT_EQ(GetText(L"Msg", 0), L"ZERO");
  EXPECT_EQ(GetText(L"Absent"), L"Can not find text for key 'Absent'");
  EXPECT_EQ(GetErrorText(7), L"SEVEN");
  NTxtRes::SetTextFormatter(nullptr);
  EXPECT_EQ(GetText(L"Percent"), L"100% done");
}

class TextLoadingTest : public TextModuleTest {};

TEST_F(TextLoadingTest, WithoutAResourceEveryLookupMissesAndTheLoadIsRetried) {
  kvt1::platform::setResourceModule(kvt1::platform::thisModuleHandle());
  EXPECT_EQ(GetText(L"Single"), L"Can not find text for key 'Single'");
  use(KVT1_TEST_BROKEN_TEXTS);
  EXPECT_EQ(GetText(L"Single"), L"Can not find text for key 'Single'");
  use(KVT1_TEST_TEXTS);
  EXPECT_EQ(GetText(L"Single"), L"50% off");
}

TEST_F(TextLoadingTest, ADocumentThatParsedIsKeptUntilReleased) {
  use(KVT1_TEST_TEXTS);
  EXPECT_EQ(GetText(L"Single"), L"50% off");
  kvt1::platform::DynamicLibrary english = kvt1::testing::loadBesideProgram(KVT1_ENGLISH_TEXTS);
  ASSERT_TRUE(english.isLoaded());
  kvt1::platform::setResourceModule(english.image());
  EXPECT_EQ(GetText(L"Single"), L"50% off");
  NTxtRes::ReleaseTextDocument();
  EXPECT_EQ(GetText(L"Single"), L"Can not find text for key 'Single'");
  EXPECT_EQ(GetText(L"MsgNoUpdates/InfoText"), L"No updates were found.");
}

TEST(ResourcePortTest, LooksUpTypesAndNamesWithoutCaseAndRefusesUnknownImages) {
  kvt1::platform::DynamicLibrary texts = kvt1::testing::loadBesideProgram(KVT1_TEST_TEXTS);
  ASSERT_TRUE(texts.isLoaded());
  auto found = kvt1::platform::findResource(texts.image(), L"xmlres", L"XmlRes");
  ASSERT_TRUE(found.has_value());
  EXPECT_GT(found->size, 100u);
  EXPECT_EQ(found->bytes[0], '<');
  EXPECT_EQ(found->bytes[1], 0);
  EXPECT_EQ(found->bytes[found->size - 2], 0);
  EXPECT_EQ(found->bytes[found->size - 1], 0);
  EXPECT_FALSE(kvt1::platform::findResource(texts.image(), L"XMLRES", L"OTHER"));
  EXPECT_FALSE(kvt1::platform::findResource(texts.image(), kvt1::platform::kResourceTypeHtml, L"XMLRES"));
  EXPECT_FALSE(kvt1::platform::findResource(nullptr, L"XMLRES", L"XMLRES"));
  EXPECT_FALSE(kvt1::platform::findResource(kvt1::platform::thisModuleHandle(), L"XMLRES", L"XMLRES"));
}

}  // namespace
