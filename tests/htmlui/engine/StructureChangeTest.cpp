// Every operation that changes the tree's structure is seen by the next
// selector query, even when a query just before it cached the document
// order (under the address sanitizer a stale order reads freed elements).
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>

#include "tests/htmlui/engine/EngineTestSupport.h"

namespace kvt1::html {
namespace {

using namespace test;

constexpr const char* kPage =
    "<body #body><div #a><p #a1></p><p #a2></p></div><div #b><p #b1></p></div><textarea #t></textarea></body>";

HELEMENT byId(DomEngine& engine, const char* id) {
  return selectFirst(engine, rootOf(engine, window()), (std::string("#") + id).c_str());
}

void setHtml(DomEngine& engine, const char* id, const char* html, UINT where) {
  ASSERT_EQ(engine.SetElementHtml(byId(engine, id), reinterpret_cast<LPCBYTE>(html),
                                  static_cast<DWORD>(std::strlen(html)), where),
            HLDOM_OK);
}

struct Case {
  const char* name;
  // Makes what the change needs before the query that caches the order; may be empty.
  std::function<HELEMENT(DomEngine&)> prepare;
  std::function<void(DomEngine&, HELEMENT prepared)> change;
  const char* selector;
  const char* ids;  // what the selector finds afterwards, in document order
};

HELEMENT nothing(DomEngine&) { return nullptr; }

HELEMENT held(DomEngine& e, const char* id) {
  HELEMENT he = byId(e, id);
  e.UseElement(he);
  return he;
}

const Case kCases[] = {
    {"content replaced", nothing, [](DomEngine& e, HELEMENT) { setHtml(e, "a", "<p #n1></p>", SIH_REPLACE_CONTENT); },
     "p", "n1 b1"},
    {"content inserted at the start", nothing,
     [](DomEngine& e, HELEMENT) { setHtml(e, "b", "<p #n1></p>", SIH_INSERT_AT_START); }, "p", "a1 a2 n1 b1"},
    {"content appended", nothing,
     [](DomEngine& e, HELEMENT) { setHtml(e, "a", "<p #n1></p><p #n2></p>", SIH_APPEND_AFTER_LAST); }, "div > p",
     "a1 a2 n1 n2 b1"},
    {"html inserted before", nothing,
     [](DomEngine& e, HELEMENT) { setHtml(e, "b1", "<p #n1></p>", SOH_INSERT_BEFORE); }, "#b p", "n1 b1"},
    {"html inserted after", nothing, [](DomEngine& e, HELEMENT) { setHtml(e, "a1", "<p #n1></p>", SOH_INSERT_AFTER); },
     "p", "a1 n1 a2 b1"},
    {"an element replaced by html", nothing,
     [](DomEngine& e, HELEMENT) { setHtml(e, "a2", "<p #n1></p>", SOH_REPLACE); }, "p", "a1 n1 b1"},
    {"inner text set", nothing,
     [](DomEngine& e, HELEMENT) { ASSERT_EQ(e.SetElementInnerText16(byId(e, "a"), L"text", 4), HLDOM_OK); }, "p", "b1"},
    {"inner text cleared while its elements are held",
     [](DomEngine& e) {
       held(e, "a2");
       return held(e, "a1");
     },
     [](DomEngine& e, HELEMENT) { ASSERT_EQ(e.SetElementInnerText16(byId(e, "a"), L"", 0), HLDOM_OK); }, "p", "b1"},
    {"an element moved to another parent", nothing,
     [](DomEngine& e, HELEMENT) { ASSERT_EQ(e.InsertElement(byId(e, "a1"), byId(e, "b"), 1), HLDOM_OK); }, "p",
     "a2 b1 a1"},
    {"an element detached", nothing,
     [](DomEngine& e, HELEMENT) { ASSERT_EQ(e.DetachElement(byId(e, "a2")), HLDOM_OK); }, "p", "a1 b1"},
    {"a held element detached", [](DomEngine& e) { return held(e, "a2"); },
     [](DomEngine& e, HELEMENT a2) { ASSERT_EQ(e.DetachElement(a2), HLDOM_OK); }, "p", "a1 b1"},
    {"a held element released after it was detached", [](DomEngine& e) { return held(e, "a"); },
     [](DomEngine& e, HELEMENT a) {
       ASSERT_EQ(e.DetachElement(a), HLDOM_OK);
       e.UnuseElement(a);
     },
     "p", "b1"},
    {"an element deleted", nothing, [](DomEngine& e, HELEMENT) { ASSERT_EQ(e.DeleteElement(byId(e, "a")), HLDOM_OK); },
     "div, p", "b b1"},
    {"two elements swapped", nothing,
     [](DomEngine& e, HELEMENT) { ASSERT_EQ(e.SwapElements(byId(e, "a1"), byId(e, "b1")), HLDOM_OK); }, "p",
     "b1 a2 a1"},
    {"two siblings swapped", nothing,
     [](DomEngine& e, HELEMENT) { ASSERT_EQ(e.SwapElements(byId(e, "a1"), byId(e, "a2")), HLDOM_OK); }, "p",
     "a2 a1 b1"},
    {"a clone inserted",
     [](DomEngine& e) {
       HELEMENT copy = nullptr;
       e.CloneElement(byId(e, "b"), &copy);
       return copy;
     },
     [](DomEngine& e, HELEMENT copy) {
       ASSERT_EQ(e.InsertElement(copy, byId(e, "a"), 0), HLDOM_OK);
       e.UnuseElement(copy);
     },
     "#a p", "b1 a1 a2"},
    {"a created element inserted",
     [](DomEngine& e) {
       HELEMENT made = nullptr;
       e.CreateElement("p", L"new", &made);
       e.SetAttributeByName(made, "id", L"n1");
       return made;
     },
     [](DomEngine& e, HELEMENT made) {
       ASSERT_EQ(e.InsertElement(made, byId(e, "b"), 0), HLDOM_OK);
       e.UnuseElement(made);
     },
     "#b > p", "n1 b1"},
    {"a text area edited by a key",
     [](DomEngine& e) {
       e.setFocus(window(), byId(e, "t"));
       return nullptr;
     },
     [](DomEngine& e, HELEMENT) {
       e.key(window(), KEY_CHAR, L'x', 0);
       setHtml(e, "t", "<p #n1></p>", SIH_APPEND_AFTER_LAST);
     },
     "textarea > p", "n1"},
    {"the page loaded again", nothing,
     [](DomEngine& e, HELEMENT) { ASSERT_TRUE(load(e, window(), "<body><p #z></p></body>")); }, "p", "z"},
};

TEST(StructureChangeTest, TheNextQuerySeesEachChangeOfStructure) {
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.name);
    DomEngine engine;
    ASSERT_TRUE(load(engine, window(), kPage));
    const HELEMENT prepared = c.prepare(engine);
    // A query that caches the document order of the whole page.
    ASSERT_EQ(ids(engine, selectAll(engine, rootOf(engine, window()), "div, p")), "a a1 a2 b b1");
    c.change(engine, prepared);
    EXPECT_EQ(ids(engine, selectAll(engine, rootOf(engine, window()), c.selector)), c.ids);
  }
}

}  // namespace
}  // namespace kvt1::html
