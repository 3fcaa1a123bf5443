// Broken documents: the reader indexes what it can, names the fault and never
// reads outside the text (the ASan build checks the latter).
#include <gtest/gtest.h>

#include <string>

#include "tests/text/XmlReportReader.h"
#include "text/XmlDocument.h"

namespace kvt1 {
namespace {

using test::ReportReader;

TEST(XmlBadInput, EveryPrefixOfADocumentIsHandled) {
  const std::wstring full =
      L"<?xml version='1.0'?><!DOCTYPE r [<!ENTITY e 'x'>]><r a='1' b=\"2\"><!-- c --><k>t&amp;x</k>"
      L"<![CDATA[z]]><e/><?p q?></r>";
  for (std::size_t length = 0; length < full.size(); ++length) {
    CXmlDocument doc;
    EXPECT_FALSE(doc.SetDoc(full.substr(0, length))) << length;
    EXPECT_NE(doc.GetResult(), L"") << length;
    doc.GetData(L"/r/k");
    doc.GetData(L"/r/@a");
  }
  CXmlDocument doc;
  EXPECT_TRUE(doc.SetDoc(full));
}

TEST(XmlBadInput, BrokenReferencesStayAsWritten) {
  CXmlDocument doc;
  ASSERT_TRUE(
      doc.SetDoc(L"<r><a>&#xFFFFFFFF;|&unknown;|&#;|&#x;|&#0;|&#xD800;|&#1114112;|&amp|&|&#99999999999999999999;</a>"
                 L"<b v='&unknown; &#65;'/></r>"));
  EXPECT_EQ(doc.GetData(L"/r/a"),
            L"&#xFFFFFFFF;|&unknown;|&#;|&#x;|&#0;|&#xD800;|&#1114112;|&amp|&|&#99999999999999999999;");
  EXPECT_EQ(doc.GetData(L"/r/b/@v"), L"&unknown; A");
}

TEST(XmlBadInput, UnquotedAttributeIsReportedAndStillReadable) {
  CXmlDocument doc;
  EXPECT_FALSE(doc.SetDoc(L"<r a=1 b='2'><k c=x>v</k></r>"));
  ReportReader report(doc);
  EXPECT_EQ(report.description(L"attribute_syntax"), L"tag syntax error at offset 5 expecting quoted attribute value");
  EXPECT_EQ(doc.GetData(L"/r/@a"), L"1");
  EXPECT_EQ(doc.GetData(L"/r/@b"), L"2");
  EXPECT_EQ(doc.GetData(L"/r/k[@c='x']"), L"v");
}

TEST(XmlBadInput, UnclosedTagsAtTheEnd) {
  CXmlDocument doc;
  EXPECT_FALSE(doc.SetDoc(L"<r><a>1</a><b x='1'"));
  EXPECT_EQ(doc.GetData(L"/r/a"), L"1");
  ReportReader report(doc);
  EXPECT_TRUE(report.has(L"unterminated_tag_syntax"));
  EXPECT_TRUE(report.has(L"unended_start_tag"));
  EXPECT_FALSE(doc.SetDoc(L"<"));
  EXPECT_FALSE(doc.SetDoc(L"</"));
  EXPECT_FALSE(doc.SetDoc(L"<r><"));
}

TEST(XmlBadInput, DeepNestingNeedsNoRecursion) {
  constexpr int kDepth = 10000;
  std::wstring text;
  std::wstring path = L"";
  for (int i = 0; i < kDepth; ++i) text += L"<e>";
  text += L"bottom";
  for (int i = 0; i < kDepth; ++i) {
    text += L"</e>";
    path += L"/e";
  }
  CXmlDocument doc;
  ASSERT_TRUE(doc.SetDoc(text));
  EXPECT_EQ(doc.GetData(path), L"bottom");
  EXPECT_EQ(doc.GetData(path + L"/e"), L"");

  // Unclosed, every level is reported until the report's cap.
  EXPECT_FALSE(doc.SetDoc(text.substr(0, kDepth * 3 + 6)));
  ReportReader report(doc);
  EXPECT_TRUE(report.has(L"unended_start_tag"));
  EXPECT_EQ(doc.GetData(path), L"bottom");
}

TEST(XmlBadInput, LargeDocumentSpansSeveralTableSegments) {
  // About 20 MB of text and 200,000 elements: four segments of the table.
  std::wstring text = L"<r>";
  constexpr int kCount = 200000;
  for (int i = 0; i < kCount; ++i) {
    text += L"<item id='" + std::to_wstring(i) + L"'><v>" + std::to_wstring(i) +
            L" some padding text to make the document larger than twenty megabytes .....</v></item>";
  }
  text += L"</r>";
  ASSERT_GT(text.size(), 20u * 1000 * 1000);
  CXmlDocument doc;
  ASSERT_TRUE(doc.SetDoc(std::move(text)));
  EXPECT_EQ(doc.GetData(L"/r/item[@id='199999']/v").substr(0, 7), L"199999 ");
  EXPECT_EQ(doc.GetData(L"/r/item[@id='65535']/v").substr(0, 6), L"65535 ");
  EXPECT_EQ(doc.GetData(L"/r/item[@id='65536']/v").substr(0, 6), L"65536 ");
}

TEST(XmlBadInput, ManyFaultsKeepTheReportBounded) {
  std::wstring text = L"<r>";
  for (int i = 0; i < 50000; ++i) text += L"</x>";
  text += L"</r>";
  CXmlDocument doc;
  EXPECT_FALSE(doc.SetDoc(text));
  EXPECT_LT(doc.GetResult().size(), 100000u);
}

}  // namespace
}  // namespace kvt1
