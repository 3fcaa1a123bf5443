// Selectors: every kind of test the engine knows, scoping, groups,
// combinators, state pseudo-classes, the callback protocol and bad selectors.
#include <gtest/gtest.h>

#include "tests/htmlui/engine/EngineTestSupport.h"

namespace kvt1::html {
namespace {

using namespace test;

constexpr const char* kPage = R"(<html><body id=body>
<div id=d1 class="box main" FPID="12" data-Kind="alpha beta">
  <ul id=u1>
    <li id=l1 FPID='1'>one</li>
    <li id=l2 FPID="2" class=sel>two</li>
    <li id=l3 FPID=3>three</li>
  </ul>
  <p id=p1 title="Hello World">para</p>
</div>
<menu.context id=m1><li id=m1i1>x</li></menu>
<input|checkbox #c1 checked><input|checkbox #c2 disabled>
</body></html>)";

class SelectorTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(load(engine, window(), kPage));
    root = rootOf(engine, window());
  }
  std::string find(const char* selector, HELEMENT scope = nullptr) {
    HLDOM_RESULT result = HLDOM_OK;
    const std::vector<HELEMENT> found = selectAll(engine, scope != nullptr ? scope : root, selector, &result);
    EXPECT_EQ(result, HLDOM_OK) << selector;
    return ids(engine, found);
  }
  HELEMENT byId(const char* id) { return selectFirst(engine, root, (std::string("[id='") + id + "']").c_str()); }

  DomEngine engine;
  HELEMENT root = nullptr;
};

TEST_F(SelectorTest, TypeClassIdAndUniversal) {
  EXPECT_EQ(find("li"), "l1 l2 l3 m1i1");
  EXPECT_EQ(find("LI.sel"), "l2");
  EXPECT_EQ(find("#p1"), "p1");
  EXPECT_EQ(find("div.box.main"), "d1");
  EXPECT_EQ(find(".box.missing"), "");
  EXPECT_EQ(find("menu.context"), "m1");
  EXPECT_EQ(find("#nosuch"), "");
  EXPECT_EQ(find("* > li").size(), find("li").size());
  EXPECT_EQ(find("#P1"), "");  // ids keep their case
}

TEST_F(SelectorTest, AttributeTestsWithAnyQuotingAndNameCase) {
  EXPECT_EQ(find("[FPID='2']"), "l2");
  EXPECT_EQ(find("[fpid=\"3\"]"), "l3");
  EXPECT_EQ(find("[FpId=1]"), "l1");
  EXPECT_EQ(find("li[FPID]"), "l1 l2 l3");
  EXPECT_EQ(find("[data-kind~=beta]"), "d1");
  EXPECT_EQ(find("[data-kind~=alp]"), "");
  EXPECT_EQ(find("[title^='Hello']"), "p1");
  EXPECT_EQ(find("[title$=\"World\"]"), "p1");
  EXPECT_EQ(find("[title*='o W']"), "p1");
  EXPECT_EQ(find("[title^='']"), "");
  EXPECT_EQ(find("[ title = 'Hello World' ]"), "p1");
  EXPECT_EQ(find("[nosuchattr]"), "");
}

TEST_F(SelectorTest, CombinatorsGroupsAndRootScope) {
  EXPECT_EQ(find("div li"), "l1 l2 l3");
  EXPECT_EQ(find("div > li"), "");
  EXPECT_EQ(find("div>ul>li"), "l1 l2 l3");
  EXPECT_EQ(find("body > div p, menu li"), "p1 m1i1");  // document order, each once
  EXPECT_EQ(find("li, [FPID]"), "d1 l1 l2 l3 m1i1");
  HELEMENT list = byId("u1");
  EXPECT_EQ(find(":root > li", list), "l1 l2 l3");
  EXPECT_EQ(find(":root", list), "");           // the scope itself is not among the results
  EXPECT_EQ(find("div li", list), "l1 l2 l3");  // ancestors outside the scope still count
  EXPECT_EQ(find("li", byId("m1")), "m1i1");
}

TEST_F(SelectorTest, StructuralAndNegation) {
  EXPECT_EQ(find("li:first-child"), "l1 m1i1");
  EXPECT_EQ(find("ul > li:last-child"), "l3");
  EXPECT_EQ(find("li:not(.sel)"), "l1 l3 m1i1");
  EXPECT_EQ(find("li:not([FPID])"), "m1i1");
  EXPECT_EQ(find("li:not(li)"), "");
  EXPECT_EQ(find("li:not(.unknownclass)"), "l1 l2 l3 m1i1");
}

TEST_F(SelectorTest, StatePseudoClassesFollowStates) {
  EXPECT_EQ(find(":checked"), "c1");
  EXPECT_EQ(find("input:disabled"), "c2");
  EXPECT_EQ(find(":focus, :hover, :popup, :current, :expanded, :collapsed"), "");
  engine.SetElementState(byId("l2"), STATE_CURRENT | STATE_EXPANDED, 0, FALSE);
  engine.SetElementState(byId("l3"), STATE_COLLAPSED, 0, FALSE);
  engine.SetElementState(byId("c1"), 0, STATE_CHECKED, FALSE);
  EXPECT_EQ(find("li:current:expanded"), "l2");
  EXPECT_EQ(find(":collapsed"), "l3");
  EXPECT_EQ(find(":checked"), "");
  ASSERT_TRUE(engine.setFocus(window(), byId("p1")));
  EXPECT_EQ(find(":focus"), "p1");
  ASSERT_TRUE(engine.setHover(window(), byId("l1")));
  EXPECT_EQ(find("li:hover"), "l1");
  EXPECT_EQ(find("ul:hover"), "u1");  // the pointer is over the ancestors too
  engine.ShowPopup(byId("m1"), byId("p1"), 2);
  EXPECT_EQ(find(":popup"), "m1");
}

TEST_F(SelectorTest, MalformedSelectorsCallBackNothing) {
  const char* bad[] = {"",      " ",      "div >",     "> div",   "div,",  ",div",  "[",         "[a",
                       "[a=]",  "[a='b]", "[a|=b]",    "[a=b c]", ".",     "#",     "div..x",    ":nosuch",
                       ":not(", ":not()", ":not(a b)", "a >> b",  "a + b", "a ~ b", "li:not(li", "{}"};
  for (const char* selector : bad) {
    HLDOM_RESULT result = HLDOM_OK;
    const std::vector<HELEMENT> found = selectAll(engine, root, selector, &result);
    EXPECT_EQ(result, HLDOM_INVALID_PARAMETER) << "'" << selector << "'";
    EXPECT_TRUE(found.empty()) << "'" << selector << "'";
  }
  std::vector<HELEMENT> found;
  EXPECT_EQ(engine.SelectElements(root, nullptr, &collectElement, &found), HLDOM_INVALID_PARAMETER);
  EXPECT_EQ(engine.SelectElements(root, "li", nullptr, nullptr), HLDOM_INVALID_PARAMETER);
}

BOOL HLCALLBACK stopAtSecond(HELEMENT he, LPVOID param) {
  auto* seen = static_cast<std::vector<HELEMENT>*>(param);
  seen->push_back(he);
  return seen->size() == 2 ? TRUE : FALSE;
}

TEST_F(SelectorTest, TrueFromTheCallbackStops) {
  std::vector<HELEMENT> seen;
  EXPECT_EQ(engine.SelectElements(root, "li", &stopAtSecond, &seen), HLDOM_OK);
  EXPECT_EQ(ids(engine, seen), "l1 l2");
}

// Removes the next matching element the first time it is called.
BOOL HLCALLBACK removeTheNext(HELEMENT he, LPVOID param) {
  auto* state = static_cast<std::pair<DomEngine*, std::vector<HELEMENT>>*>(param);
  state->second.push_back(he);
  if (state->second.size() == 1) {
    HELEMENT next = selectFirst(*state->first, rootOf(*state->first, window()), "#l2");
    state->first->DeleteElement(next);
  }
  return FALSE;
}

TEST_F(SelectorTest, ElementsRemovedByTheCallbackAreNotReported) {
  std::pair<DomEngine*, std::vector<HELEMENT>> state{&engine, {}};
  EXPECT_EQ(engine.SelectElements(root, "li", &removeTheNext, &state), HLDOM_OK);
  EXPECT_EQ(ids(engine, state.second), "l1 l3 m1i1");
}

TEST_F(SelectorTest, ManyClassesAndDeepAncestors) {
  engine.SetAttributeByName(byId("l3"), "class", L"a b c d e f");
  EXPECT_EQ(find("li.f.a"), "l3");
  EXPECT_EQ(find("li.a.g"), "");
  EXPECT_EQ(find("div.main li.f"), "l3");
  EXPECT_EQ(find("body > div.box > ul > li.e"), "l3");
  EXPECT_EQ(find("div.missing li.f"), "");
}

TEST_F(SelectorTest, WideSelectorsMatchWideValues) {
  engine.SetAttributeByName(byId("p1"), "title", L"Gr\u00FC\u00DFe");
  std::vector<HELEMENT> found;
  EXPECT_EQ(engine.SelectElementsW(root, L"p[title='Gr\u00FC\u00DFe']", &collectElement, &found), HLDOM_OK);
  EXPECT_EQ(ids(engine, found), "p1");
}

TEST_F(SelectorTest, SelectorsSeeAttributeChanges) {
  HELEMENT l1 = byId("l1");
  engine.SetAttributeByName(l1, "class", L"fresh sel");
  EXPECT_EQ(find("li.sel"), "l1 l2");
  engine.SetAttributeByName(l1, "id", L"renamed");
  EXPECT_EQ(find("#renamed.fresh"), "renamed");
  engine.SetAttributeByName(l1, "class", nullptr);
  EXPECT_EQ(find(".fresh"), "");
}

TEST_F(SelectorTest, SelectParentWalksUpFromItself) {
  HELEMENT l2 = byId("l2");
  HELEMENT found = nullptr;
  EXPECT_EQ(engine.SelectParent(l2, "li", 0, &found), HLDOM_OK);
  EXPECT_EQ(found, l2);
  EXPECT_EQ(engine.SelectParent(l2, "div[FPID]", 0, &found), HLDOM_OK);
  EXPECT_EQ(attribute(engine, found, "id"), "d1");
  EXPECT_EQ(engine.SelectParent(l2, "div", 2, &found), HLDOM_OK);
  EXPECT_EQ(found, nullptr);  // the div is three levels up
  EXPECT_EQ(engine.SelectParent(l2, "div", 3, &found), HLDOM_OK);
  EXPECT_NE(found, nullptr);
  EXPECT_EQ(engine.SelectParentW(l2, L"menu", 0, &found), HLDOM_OK);
  EXPECT_EQ(found, nullptr);
  EXPECT_EQ(engine.SelectParent(l2, "div >", 0, &found), HLDOM_INVALID_PARAMETER);
  EXPECT_EQ(found, nullptr);
}

TEST_F(SelectorTest, VisitElementsByTagAttributeWildcardsAndDepth) {
  std::vector<HELEMENT> found;
  EXPECT_EQ(engine.VisitElements(root, "li, p", nullptr, nullptr, &collectElement, &found, 0), HLDOM_OK);
  EXPECT_EQ(ids(engine, found), "l1 l2 l3 p1 m1i1");
  found.clear();
  engine.VisitElements(root, nullptr, "fp*", L"?", &collectElement, &found, 0);
  EXPECT_EQ(ids(engine, found), "l1 l2 l3");
  found.clear();
  engine.VisitElements(root, nullptr, "title", L"*World", &collectElement, &found, 0);
  EXPECT_EQ(ids(engine, found), "p1");
  found.clear();
  engine.VisitElements(byId("d1"), nullptr, nullptr, nullptr, &collectElement, &found, 1);
  EXPECT_EQ(ids(engine, found), "u1 p1");
}

}  // namespace
}  // namespace kvt1::html
