// The parse, well-formedness, the report, element data and navigation.
#include "text/XmlDocument.h"

#include <gtest/gtest.h>

#include "tests/text/XmlReportReader.h"

namespace kvt1 {
namespace {

using test::ReportReader;

TEST(XmlDocument, WellFormedDocumentLeavesAnEmptyReport) {
  CXmlDocument doc;
  EXPECT_TRUE(
      doc.SetDoc(L"<?xml version=\"1.0\"?>\n<!DOCTYPE texts [<!ENTITY x \"y>\"> <!-- c -->]>\n"
                 L"<texts a='1'><!-- note --><A>one</A><B/><?pi data?><C x=\"&gt;\">two</C></texts>\n"));
  EXPECT_TRUE(doc.IsWellFormed());
  EXPECT_EQ(doc.GetResult(), L"");
  EXPECT_EQ(doc.GetData(L"/texts/C"), L"two");
  EXPECT_EQ(doc.GetData(L"/texts/C/@x"), L">");
}

TEST(XmlDocument, EmptyTextHasNoRoot) {
  CXmlDocument doc;
  EXPECT_FALSE(doc.SetDoc(L""));
  ReportReader report(doc);
  EXPECT_TRUE(report.has(L"no_root_element"));
  EXPECT_EQ(report.description(L"no_root_element"), L"no root element");
}

TEST(XmlDocument, SecondRootIsReportedAndBothStayIndexed) {
  CXmlDocument doc;
  EXPECT_FALSE(doc.SetDoc(L"<a><x>1</x></a><b><x>2</x></b>"));
  ReportReader report(doc);
  EXPECT_EQ(report.attribute(L"root_has_sibling", L"tagname"), L"b");
  EXPECT_EQ(report.attribute(L"root_has_sibling", L"offset"), L"15");
  EXPECT_EQ(report.description(L"root_has_sibling"), L"root element has sibling");
  EXPECT_EQ(doc.GetData(L"/*/x"), L"1");
  EXPECT_EQ(doc.GetData(L"/b/x"), L"2");
}

TEST(XmlDocument, LoneEndTagIsReportedAndIgnored) {
  CXmlDocument doc;
  EXPECT_FALSE(doc.SetDoc(L"<a><b>1</c></b></a>"));
  ReportReader report(doc);
  EXPECT_EQ(report.description(L"lone_end_tag"), L"lone end tag 'c' at offset 7");
  EXPECT_EQ(report.attribute(L"lone_end_tag", L"tagname"), L"c");
  EXPECT_EQ(doc.GetData(L"/a/b"), L"1</c>") << "the ignored end tag stays part of the text";
}

TEST(XmlDocument, EndTagOfAnOuterElementClosesTheSkippedOnes) {
  CXmlDocument doc;
  EXPECT_FALSE(doc.SetDoc(L"<a><b><c>text</a><d>2</d>"));
  ReportReader report(doc);
  EXPECT_EQ(report.description(L"unended_start_tag"), L"start tag 'c' expecting end tag at offset 13");
  EXPECT_EQ(report.attribute(L"unended_start_tag", L"offset"), L"6");
  EXPECT_EQ(doc.GetData(L"/a/b/c"), L"text");
  EXPECT_EQ(doc.GetData(L"/d"), L"2") << "d follows a as a second top-level element";
}

TEST(XmlDocument, ElementsOpenAtTheEndAreUnended) {
  CXmlDocument doc;
  EXPECT_FALSE(doc.SetDoc(L"<a><b>tail"));
  ReportReader report(doc);
  EXPECT_EQ(report.attribute(L"unended_start_tag", L"tagname"), L"b");
  EXPECT_EQ(report.attribute(L"unended_start_tag", L"offset2"), L"10");
  EXPECT_EQ(doc.GetData(L"/a/b"), L"tail");
}

TEST(XmlDocument, TagSyntaxFaultsNameTheirKind) {
  struct Case {
    const wchar_t* text;
    const wchar_t* entry;
    const wchar_t* description;
  };
  const Case cases[] = {
      {L"<a>1 < 2</a>", L"first_tag_syntax", L"tag syntax error at offset 5 expecting tag name / ! or ?"},
      {L"<a><!x></a>", L"exclamation_tag_syntax", L"tag syntax error at offset 3 expecting 'DOCTYPE' [ or -"},
      {L"<a><!-x></a>", L"comment_tag_syntax", L"tag syntax error at offset 3 expecting - to begin comment"},
      {L"<a><![CDAT[x]]></a>", L"cdata_section_syntax", L"tag syntax error at offset 3 expecting 'CDATA'"},
      {L"<!DOCTYPE a [ junk ]><a/>", L"doctype_tag_syntax",
       L"tag syntax error at offset 14 expecting markup declaration"},
      {L"<a><b x='1'</a>", L"unterminated_tag_syntax", L"unterminated tag at offset 3"},
  };
  for (const Case& c : cases) {
    CXmlDocument doc;
    EXPECT_FALSE(doc.SetDoc(c.text)) << c.text;
    ReportReader report(doc);
    EXPECT_EQ(report.description(c.entry), c.description) << c.text;
  }
}

TEST(XmlDocument, UnterminatedMarkupNamesItsTokenKind) {
  const std::pair<const wchar_t*, const wchar_t*> cases[] = {
      {L"<a><!-- open", L"comment"},
      {L"<a><![CDATA[open", L"cdata_section"},
      {L"<a><?pi open", L"processing_instruction"},
      {L"<!DOCTYPE a [<!ELEMENT a ANY>", L"document_type"},
      {L"<a></a", L"end_tag"},
      {L"<a b=\"x", L"start_tag"},
  };
  for (const auto& [text, type] : cases) {
    CXmlDocument doc;
    EXPECT_FALSE(doc.SetDoc(text)) << text;
    EXPECT_EQ(ReportReader(doc).attribute(L"unterminated_tag_syntax", L"type"), type) << text;
  }
}

TEST(XmlDocument, ReportValuesAreEscaped) {
  CXmlDocument doc;
  doc.SetDoc(L"<a></b&c></a>");
  ReportReader report(doc);
  EXPECT_TRUE(report.wellFormed());
  EXPECT_EQ(report.attribute(L"lone_end_tag", L"tagname"), L"b&c");
}

TEST(XmlDocument, ElementDataDecodesReferencesAndKeepsCdataLiteral) {
  CXmlDocument doc;
  ASSERT_TRUE(
      doc.SetDoc(L"<r><e>a &lt;b&gt; &amp; &quot;c&quot; &apos;d&apos; &#65;&#x42;&eacute;&euro;&nbsp;</e>"
                 L"<c><![CDATA[<raw> &amp; ]]>after &amp;<!-- skipped -->!</c>"
                 L"<p>pre<?pi x?>post</p><mixed>text<child/></mixed><empty/><blank></blank></r>"));
  EXPECT_EQ(doc.GetData(L"/r/e"), L"a <b> & \"c\" 'd' AB\u00E9\u20AC\u00A0");
  EXPECT_EQ(doc.GetData(L"/r/c"), L"<raw> &amp; after &!");
  EXPECT_EQ(doc.GetData(L"/r/p"), L"prepost");
  EXPECT_EQ(doc.GetData(L"/r/mixed"), L"") << "an element with child elements has no data";
  EXPECT_EQ(doc.GetData(L"/r/empty"), L"");
  EXPECT_EQ(doc.GetData(L"/r/blank"), L"");
}

TEST(XmlDocument, CharacterReferencesBeyondTheBasicPlane) {
  CXmlDocument doc;
  ASSERT_TRUE(doc.SetDoc(L"<r>&#x1F600;</r>"));
  const std::wstring data = doc.GetData(L"/r");
  if constexpr (sizeof(wchar_t) == 2) {
    EXPECT_EQ(data, std::wstring({wchar_t(0xD83D), wchar_t(0xDE00)}));
  } else {
    EXPECT_EQ(data, std::wstring(1, wchar_t(0x1F600)));
  }
}

TEST(XmlDocument, AttributesInEitherQuoteWithSpacesAroundTheEqualSign) {
  CXmlDocument doc;
  ASSERT_TRUE(doc.SetDoc(L"<r a = 'x \"y\"' b=\"it's\" c='&lt;&#33;' ab='no'/>"));
  ASSERT_TRUE(doc.FindElem(L"r"));
  EXPECT_EQ(doc.GetAttrib(L"a"), L"x \"y\"");
  EXPECT_EQ(doc.GetAttrib(L"b"), L"it's");
  EXPECT_EQ(doc.GetAttrib(L"c"), L"<!");
  EXPECT_EQ(doc.GetAttrib(L"missing"), L"");
}

TEST(XmlDocument, NavigationWalksLevels) {
  CXmlDocument doc;
  ASSERT_TRUE(doc.SetDoc(L"<r><a>1</a><b>2<x/></b><a>3</a></r>"));
  EXPECT_FALSE(doc.OutOfElem());
  ASSERT_TRUE(doc.FindElem());
  EXPECT_EQ(doc.GetTagName(), L"r");
  ASSERT_TRUE(doc.FindChildElem(L"a"));
  EXPECT_EQ(doc.GetChildData(), L"1");
  ASSERT_TRUE(doc.FindChildElem(L"a"));
  EXPECT_EQ(doc.GetChildData(), L"3");
  EXPECT_FALSE(doc.FindChildElem(L"a"));

  ASSERT_TRUE(doc.IntoElem());
  EXPECT_EQ(doc.GetTagName(), L"a");
  EXPECT_EQ(doc.GetElemData(), L"3");
  EXPECT_FALSE(doc.FindElem());

  ASSERT_TRUE(doc.OutOfElem());
  EXPECT_EQ(doc.GetTagName(), L"r");
  EXPECT_EQ(doc.GetChildTagName(), L"a");

  doc.ResetPos();
  ASSERT_TRUE(doc.FindChildElem(L"b"));
  ASSERT_TRUE(doc.IntoElem());
  ASSERT_TRUE(doc.FindChildElem());
  EXPECT_EQ(doc.GetChildTagName(), L"x");
}

TEST(XmlDocument, SetDocReplacesTheIndexAndTheReport) {
  CXmlDocument doc;
  doc.SetDoc(L"<a><k>old</k>");
  EXPECT_NE(doc.GetResult(), L"");
  ASSERT_TRUE(doc.SetDoc(L"<b><k>new</k></b>"));
  EXPECT_EQ(doc.GetResult(), L"");
  EXPECT_EQ(doc.GetData(L"/*/k"), L"new");
  EXPECT_EQ(doc.GetData(L"/a/k"), L"");
}

}  // namespace
}  // namespace kvt1
