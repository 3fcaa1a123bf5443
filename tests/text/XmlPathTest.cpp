// Path queries: the store's forms, predicates, document order and the
// lookup lists compared with a walk in document order.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "text/XmlDocument.h"

namespace kvt1 {
namespace {

const wchar_t kTexts[] =
    L"<Texts>"
    L"<Hello>Hello %1</Hello>"
    L"<Msg><Index_0>zero</Index_0><Index_2>two</Index_2><InfoText>info</InfoText></Msg>"
    L"<Dlg><Sub>deep</Sub></Dlg>"
    L"<Error><E code='05'>padded</E><E code='5'>five</E><F code=\"7\">seven</F></Error>"
    L"<Tooltip>"
    L"<D did='1'><C cid='2'><Index_0><Text>wrong dialog</Text></Index_0></C></D>"
    L"<D did='3'><C cid='2'><Index_0><Text>short</Text><ExtendedText>long</ExtendedText></Index_0></C></D>"
    L"</Tooltip>"
    L"</Texts>";

TEST(XmlPath, TheStoreQueries) {
  CXmlDocument doc;
  ASSERT_TRUE(doc.SetDoc(kTexts));
  EXPECT_EQ(doc.GetData(L"/*/Hello"), L"Hello %1");
  EXPECT_EQ(doc.GetData(L"/*/Msg/Index_2"), L"two");
  EXPECT_EQ(doc.GetData(L"/*/Msg/Index_1"), L"");
  EXPECT_EQ(doc.GetData(L"/*/Msg/InfoText"), L"info");
  EXPECT_EQ(doc.GetData(L"/*/Dlg/Sub"), L"deep");
  EXPECT_EQ(doc.GetData(L"/*/Error/*[@code='5']"), L"five") << "attribute text compared exactly";
  EXPECT_EQ(doc.GetData(L"/*/Error/*[@code='05']"), L"padded");
  EXPECT_EQ(doc.GetData(L"/*/Error/*[@code=\"7\"]"), L"seven");
  EXPECT_EQ(doc.GetData(L"/*/Error/*[@code=' 5']"), L"");
  EXPECT_EQ(doc.GetData(L"/*/Tooltip/*[@did='3']/*[@cid='2']/Index_0/Text"), L"short");
  EXPECT_EQ(doc.GetData(L"/*/Tooltip/*[@did='3']/*[@cid='2']/Index_0/ExtendedText"), L"long");
  EXPECT_EQ(doc.GetData(L"/*/Tooltip/*[@did='1']/*[@cid='2']/Index_0/ExtendedText"), L"");
}

TEST(XmlPath, RootOfAnyNameAndAFoundElementBecomesCurrent) {
  CXmlDocument doc;
  ASSERT_TRUE(doc.SetDoc(L"<whatever><Key>v</Key><Other a='b'><In>i</In></Other></whatever>"));
  EXPECT_EQ(doc.GetData(L"/*/Key"), L"v");
  EXPECT_EQ(doc.GetTagName(), L"Key");
  EXPECT_EQ(doc.GetData(L"/whatever/Other"), L"");
  EXPECT_EQ(doc.GetData(L"In"), L"i") << "relative to the element found before";
  EXPECT_EQ(doc.GetData(L"/*/Other/@a"), L"b");
  EXPECT_EQ(doc.GetData(L"@a"), L"b");
  doc.ResetPos();
  EXPECT_EQ(doc.GetData(L"whatever/Key"), L"v") << "relative to the document node after a reset";
}

TEST(XmlPath, FirstCompleteMatchInDocumentOrder) {
  CXmlDocument doc;
  ASSERT_TRUE(
      doc.SetDoc(L"<r><g n='1'><k>first g, no m</k></g><g n='2'><m>found</m></g><g n='3'><m>later</m></g></r>"));
  EXPECT_EQ(doc.GetData(L"/r/g/m"), L"found") << "the search goes on past a g without m";
  EXPECT_EQ(doc.GetAttrib(L"n"), L"");
  EXPECT_EQ(doc.GetData(L"/r/g[@n]/m"), L"found");
  EXPECT_EQ(doc.GetData(L"/r/*[@n='3']/m"), L"later");
  EXPECT_EQ(doc.GetData(L"/r/g[@x]"), L"");
}

TEST(XmlPath, PathsOutsideTheSubsetMatchNothing) {
  CXmlDocument doc;
  ASSERT_TRUE(doc.SetDoc(L"<r><a x='1'>v</a></r>"));
  for (const wchar_t* path : {L"", L"/", L"/r/", L"//a", L"/r/a[", L"/r/a[1]", L"/r/a[@x=1]", L"/r/a[@x='1'",
                              L"/r/@x/a", L"/@x", L"/r/a/@", L"/r/a]"}) {
    EXPECT_EQ(doc.GetData(path), L"") << path;
  }
  EXPECT_EQ(doc.GetData(L"/r/a[ @x = '1' ]"), L"v");
}

// The plain match: every step walks the children in document order with the
// navigation operations, backtracking where a later step fails.
struct Step {
  std::wstring name, attribute, value;
};

bool plainMatch(CXmlDocument& doc, const std::vector<Step>& steps, std::size_t depth, std::wstring& data) {
  while (doc.FindElem(steps[depth].name)) {
    const Step& step = steps[depth];
    if (!step.attribute.empty() && doc.GetAttrib(step.attribute) != step.value) continue;
    if (depth + 1 == steps.size()) {
      data = doc.GetElemData();
      return true;
    }
    doc.IntoElem();
    if (plainMatch(doc, steps, depth + 1, data)) return true;
    doc.OutOfElem();
  }
  return false;
}

TEST(XmlPath, LookupListsGiveThePlainMatch) {
  // Many siblings with repeated names and attribute values, and children that
  // exist only under some of them.
  std::wstring text = L"<r>";
  for (int i = 0; i < 300; ++i) {
    const std::wstring n = std::to_wstring(i % 7);
    text += L"<k" + std::to_wstring(i % 11) + L" v='" + n + L"' w='&#" + std::to_wstring(48 + i % 3) + L";'>";
    if (i % 5 == 0)
      text += L"<c" + n + L">" + std::to_wstring(i) + L"</c" + n + L">";
    else
      text += std::to_wstring(i);
    text += L"</k" + std::to_wstring(i % 11) + L">";
  }
  text += L"</r>";
  CXmlDocument doc;
  ASSERT_TRUE(doc.SetDoc(text));

  int compared = 0;
  for (int k = 0; k < 12; ++k) {
    for (int v = 0; v < 8; ++v) {
      const std::wstring key = L"k" + std::to_wstring(k), value = std::to_wstring(v);
      const std::vector<std::pair<std::wstring, std::vector<Step>>> queries = {
          {L"/r/" + key, {{L"r", L"", L""}, {key, L"", L""}}},
          {L"/r/" + key + L"[@v='" + value + L"']", {{L"r", L"", L""}, {key, L"v", value}}},
          {L"/r/*[@v='" + value + L"']/c" + value, {{L"r", L"", L""}, {L"*", L"v", value}, {L"c" + value, L"", L""}}},
          {L"/r/" + key + L"/c" + value, {{L"r", L"", L""}, {key, L"", L""}, {L"c" + value, L"", L""}}},
          {L"/r/*[@w='" + std::to_wstring(v % 3) + L"']/c" + value,
           {{L"r", L"", L""}, {L"*", L"w", std::to_wstring(v % 3)}, {L"c" + value, L"", L""}}},
      };
      for (const auto& [path, steps] : queries) {
        std::wstring expected;
        doc.ResetPos();
        plainMatch(doc, steps, 0, expected);
        doc.ResetPos();
        EXPECT_EQ(doc.GetData(path), expected) << path;
        compared += expected.empty() ? 0 : 1;
      }
    }
  }
  EXPECT_GT(compared, 150) << "most queries should find something";
}

}  // namespace
}  // namespace kvt1
