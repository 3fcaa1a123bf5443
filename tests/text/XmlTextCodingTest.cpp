// Escaping, CDATA output and the packed name tables.
#include <gtest/gtest.h>

#include <string>

#include "text/XmlCodePageTable.h"
#include "text/XmlDocument.h"
#include "text/XmlEntities.h"

namespace kvt1 {
namespace {

TEST(XmlTextCoding, EscapedTextReadsBackUnchanged) {
  const std::wstring text = L"a & b < c > d \"e\" 'f' &amp;";
  EXPECT_EQ(escapeXmlText(text), L"a &amp; b &lt; c &gt; d &quot;e&quot; &apos;f&apos; &amp;amp;");
  CXmlDocument doc;
  ASSERT_TRUE(doc.SetDoc(L"<r v=\"" + escapeXmlText(text) + L"\">" + escapeXmlText(text) + L"</r>"));
  EXPECT_EQ(doc.GetData(L"/r"), text);
  EXPECT_EQ(doc.GetData(L"/r/@v"), text);
}

TEST(XmlTextCoding, CDataSectionSplitsItsTerminator) {
  EXPECT_EQ(makeXmlCData(L"a]]>b"), L"<![CDATA[a]]]]><![CDATA[>b]]>");
  const std::wstring text = L"x]]>]]>y]]";
  CXmlDocument doc;
  ASSERT_TRUE(doc.SetDoc(L"<r>" + makeXmlCData(text) + L"</r>"));
  EXPECT_EQ(doc.GetData(L"/r"), text);
}

TEST(XmlTextCoding, HtmlEntitiesFromThePackedTable) {
  EXPECT_EQ(htmlEntityCodePoint(L"AElig"), 198u);
  EXPECT_EQ(htmlEntityCodePoint(L"yuml"), 255u);
  EXPECT_EQ(htmlEntityCodePoint(L"thetasym"), 977u);
  EXPECT_EQ(htmlEntityCodePoint(L"diams"), 9830u);
  EXPECT_EQ(htmlEntityCodePoint(L"Prime"), 8243u);
  EXPECT_EQ(htmlEntityCodePoint(L"prime"), 8242u);
  EXPECT_EQ(htmlEntityCodePoint(L"apos"), 0u) << "not an HTML 4 entity";
  EXPECT_EQ(htmlEntityCodePoint(L"eacut"), 0u);
  EXPECT_EQ(htmlEntityCodePoint(L""), 0u);
}

TEST(XmlTextCoding, EncodingNamesFromThePackedTable) {
  EXPECT_EQ(codePageFromEncodingName(L"cn-gb"), 936u);
  EXPECT_EQ(codePageFromEncodingName(L"GBK"), 936u);
  EXPECT_EQ(codePageFromEncodingName(L"csGB2312"), 936u);
  EXPECT_EQ(codePageFromEncodingName(L"cn-big5"), 950u);
  EXPECT_EQ(codePageFromEncodingName(L"sjis-open"), 932u);
  EXPECT_EQ(codePageFromEncodingName(L"csShiftJIS"), 932u);
  EXPECT_EQ(codePageFromEncodingName(L"ksc_5601"), 949u);
  EXPECT_EQ(codePageFromEncodingName(L"ks-c-5601"), 949u);
  EXPECT_EQ(codePageFromEncodingName(L"arabic"), 28596u);
  EXPECT_EQ(codePageFromEncodingName(L"mac"), 10000u);
  EXPECT_EQ(codePageFromEncodingName(L"winbaltrim"), 1257u);
  EXPECT_EQ(codePageFromEncodingName(L"iso646-us"), 20127u);
  EXPECT_EQ(codePageFromEncodingName(L"iso-ir-6us"), 20127u);
  EXPECT_EQ(codePageFromEncodingName(L"ISO_646.irv:1991"), 20127u);
  EXPECT_EQ(codePageFromEncodingName(L"cp65001"), 65001u);
  EXPECT_EQ(codePageFromEncodingName(L"Windows-1252"), 1252u);
  EXPECT_EQ(codePageFromEncodingName(L"ISO-8859-1"), 28591u);
  EXPECT_EQ(codePageFromEncodingName(L"windows-125"), 0u);
  EXPECT_EQ(codePageFromEncodingName(L"no-such-encoding"), 0u);
}

}  // namespace
}  // namespace kvt1
