// Use counts and handles: created, cloned, detached, deleted and reloaded
// elements, and stale handles that must give defined answers.
#include <gtest/gtest.h>

#include "htmlui/engine/HtmlayoutEventHandler.h"
#include "tests/htmlui/engine/EngineTestSupport.h"

namespace kvt1::html {
namespace {

using namespace test;

class ElementLifetimeTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(load(engine, window(), "<body><ul id=list><li id=a>A</li><li id=b>B<b id=bb>!</b></li></ul></body>"));
    root = rootOf(engine, window());
  }
  HELEMENT byId(const char* id) { return selectFirst(engine, root, (std::string("#") + id).c_str()); }

  DomEngine engine;
  HELEMENT root = nullptr;
};

// Counts the attach and detach calls the engine makes on a handler.
struct LifeHandler : htmlayout::event_handler {
  void attached(HELEMENT) override { ++attaches; }
  void detached(HELEMENT) override { ++detaches; }
  int attaches = 0;
  int detaches = 0;
};

TEST_F(ElementLifetimeTest, CreatedElementLivesUntilReleased) {
  HELEMENT he = nullptr;
  ASSERT_EQ(engine.CreateElement("LI", L"new", &he), HLDOM_OK);
  EXPECT_EQ(tagOf(engine, he), "li");
  EXPECT_EQ(text(engine, he), "new");
  EXPECT_EQ(engine.UnuseElement(he), HLDOM_OK);  // count 1 -> 0, not in a page: gone
  EXPECT_EQ(tagOf(engine, he), "(invalid)");
  EXPECT_EQ(engine.UnuseElement(he), HLDOM_INVALID_HANDLE);  // released twice
  EXPECT_EQ(engine.UseElement(he), HLDOM_INVALID_HANDLE);
  EXPECT_EQ(engine.SetAttributeByName(he, "x", L"y"), HLDOM_INVALID_HANDLE);
}

TEST_F(ElementLifetimeTest, InsertedElementBelongsToThePage) {
  HELEMENT he = nullptr;
  engine.CreateElement("li", L"C", &he);
  ASSERT_EQ(engine.InsertElement(he, byId("list"), 1), HLDOM_OK);
  EXPECT_EQ(engine.UnuseElement(he), HLDOM_OK);
  EXPECT_EQ(html(engine, byId("list"), false), "<li id=\"a\">A</li><li>C</li><li id=\"b\">B<b id=\"bb\">!</b></li>");
  EXPECT_EQ(engine.UnuseElement(he), HLDOM_PASSIVE_HANDLE);  // alive, but no longer used
  UINT index = 9;
  EXPECT_EQ(engine.GetElementIndex(he, &index), HLDOM_OK);
  EXPECT_EQ(index, 1u);
}

TEST_F(ElementLifetimeTest, DetachKeepsAUsedElementAlive) {
  HELEMENT b = byId("b");
  LifeHandler handler;
  engine.AttachEventHandlerEx(b, &htmlayout::event_handler::element_proc, &handler, HANDLE_ALL);
  EXPECT_EQ(handler.attaches, 1);
  engine.UseElement(b);
  ASSERT_EQ(engine.DetachElement(b), HLDOM_OK);
  EXPECT_EQ(html(engine, byId("list"), false), "<li id=\"a\">A</li>");
  EXPECT_EQ(text(engine, b), "B!");
  HELEMENT parent = root;
  engine.GetParentElement(b, &parent);
  EXPECT_EQ(parent, nullptr);
  EXPECT_EQ(selectAll(engine, root, "#bb").size(), 0u);
  // Put back, used again after the detach.
  ASSERT_EQ(engine.InsertElement(b, byId("list"), 0), HLDOM_OK);
  EXPECT_EQ(ids(engine, selectAll(engine, root, "li")), "b a");
  engine.DetachElement(b);
  EXPECT_EQ(handler.detaches, 0);
  EXPECT_EQ(engine.UnuseElement(b), HLDOM_OK);  // last use of a detached element
  EXPECT_EQ(handler.detaches, 1);
  EXPECT_EQ(engine.UnuseElement(b), HLDOM_INVALID_HANDLE);
  EXPECT_EQ(engine.InsertElement(b, byId("list"), 0), HLDOM_INVALID_HANDLE);
}

TEST_F(ElementLifetimeTest, DetachWithoutUseDestroysAtOnceButUsedChildrenSurvive) {
  HELEMENT b = byId("b");
  HELEMENT bb = byId("bb");
  engine.UseElement(bb);
  ASSERT_EQ(engine.DetachElement(b), HLDOM_OK);
  EXPECT_EQ(tagOf(engine, b), "(invalid)");
  EXPECT_EQ(tagOf(engine, bb), "b");  // still used: lives on, detached
  HELEMENT parent = root;
  engine.GetParentElement(bb, &parent);
  EXPECT_EQ(parent, nullptr);
  EXPECT_EQ(engine.UnuseElement(bb), HLDOM_OK);
  EXPECT_EQ(tagOf(engine, bb), "(invalid)");
}

TEST_F(ElementLifetimeTest, DeleteInvalidatesEvenUsedHandles) {
  HELEMENT b = byId("b");
  HELEMENT bb = byId("bb");
  engine.UseElement(b);
  engine.UseElement(bb);
  LifeHandler handler;
  engine.AttachEventHandlerEx(bb, &htmlayout::event_handler::element_proc, &handler, HANDLE_ALL);
  ASSERT_EQ(engine.DeleteElement(b), HLDOM_OK);
  EXPECT_EQ(handler.detaches, 1);
  for (HELEMENT he : {b, bb}) {
    EXPECT_EQ(engine.UnuseElement(he), HLDOM_INVALID_HANDLE);
    EXPECT_EQ(engine.DeleteElement(he), HLDOM_INVALID_HANDLE);
    UINT count = 0;
    EXPECT_EQ(engine.GetChildrenCount(he, &count), HLDOM_INVALID_HANDLE);
    EXPECT_EQ(engine.SetTimerEx(he, 10, 1), HLDOM_INVALID_HANDLE);
    BOOL handled = TRUE;
    EXPECT_EQ(engine.SendEvent(he, BUTTON_CLICK, nullptr, 0, &handled), HLDOM_INVALID_HANDLE);
  }
  EXPECT_EQ(ids(engine, selectAll(engine, root, "li")), "a");
}

TEST_F(ElementLifetimeTest, ReloadKeepsUsedElementsOfTheOldPage) {
  HELEMENT a = byId("a");
  HELEMENT b = byId("b");
  engine.UseElement(a);
  ASSERT_TRUE(load(engine, window(), "<body><p id=new>n</p></body>"));
  EXPECT_EQ(tagOf(engine, b), "(invalid)");
  EXPECT_EQ(text(engine, a), "A");
  EXPECT_EQ(tagOf(engine, root), "(invalid)");
  HWND hwnd = window();
  engine.GetElementHwnd(a, &hwnd, TRUE);
  EXPECT_EQ(hwnd, nullptr);
  EXPECT_EQ(engine.UnuseElement(a), HLDOM_OK);
  EXPECT_EQ(tagOf(engine, a), "(invalid)");
  engine.closeView(window());
  EXPECT_EQ(rootOf(engine, window()), nullptr);
  EXPECT_EQ(engine.GetRootElement(window(), &a), HLDOM_INVALID_HWND);
}

TEST_F(ElementLifetimeTest, CloneIsADeepDetachedCopy) {
  HELEMENT b = byId("b");
  engine.SetStyleAttribute(b, "color", L"red");
  engine.SetElementState(b, STATE_CHECKED | STATE_FOCUS, 0, FALSE);
  HELEMENT copy = nullptr;
  ASSERT_EQ(engine.CloneElement(b, &copy), HLDOM_OK);
  EXPECT_NE(copy, b);
  EXPECT_EQ(html(engine, copy, true), "<li id=\"b\">B<b id=\"bb\">!</b></li>");
  EXPECT_EQ(stateOf(engine, copy), static_cast<UINT>(STATE_CHECKED));
  LPCWSTR color = nullptr;
  engine.GetStyleAttribute(copy, "color", &color);
  EXPECT_STREQ(color, L"red");
  engine.SetAttributeByName(copy, "id", L"c");
  EXPECT_EQ(attribute(engine, b, "id"), "b");
  ASSERT_EQ(engine.InsertElement(copy, byId("list"), 99), HLDOM_OK);
  EXPECT_EQ(ids(engine, selectAll(engine, root, "li")), "a b c");
  engine.UnuseElement(copy);
  EXPECT_EQ(tagOf(engine, copy), "li");
}

TEST_F(ElementLifetimeTest, InsertAndSwapRefuseCycles) {
  HELEMENT list = byId("list");
  HELEMENT a = byId("a");
  HELEMENT b = byId("b");
  EXPECT_EQ(engine.InsertElement(list, a, 0), HLDOM_INVALID_PARAMETER);
  EXPECT_EQ(engine.InsertElement(list, list, 0), HLDOM_INVALID_PARAMETER);
  EXPECT_EQ(engine.InsertElement(root, list, 0), HLDOM_INVALID_PARAMETER);
  EXPECT_EQ(engine.SwapElements(list, byId("bb")), HLDOM_INVALID_PARAMETER);
  ASSERT_EQ(engine.SwapElements(a, b), HLDOM_OK);
  EXPECT_EQ(ids(engine, selectAll(engine, root, "li")), "b a");
  ASSERT_EQ(engine.SwapElements(a, byId("bb")), HLDOM_OK);
  EXPECT_EQ(html(engine, list, false), "<li id=\"b\">B<li id=\"a\">A</li></li><b id=\"bb\">!</b>");
}

TEST_F(ElementLifetimeTest, NavigationAnswers) {
  HELEMENT list = byId("list");
  UINT count = 0;
  EXPECT_EQ(engine.GetChildrenCount(list, &count), HLDOM_OK);
  EXPECT_EQ(count, 2u);
  HELEMENT child = nullptr;
  engine.GetNthChild(list, 1, &child);
  EXPECT_EQ(child, byId("b"));
  engine.GetNthChild(list, 2, &child);
  EXPECT_EQ(child, nullptr);
  HWND hwnd = nullptr;
  engine.GetElementHwnd(child == nullptr ? list : child, &hwnd, TRUE);
  EXPECT_EQ(hwnd, window());
  EXPECT_EQ(engine.GetChildrenCount(reinterpret_cast<HELEMENT>(0xDEADBEEF), &count), HLDOM_INVALID_HANDLE);
  EXPECT_EQ(engine.GetChildrenCount(nullptr, &count), HLDOM_INVALID_HANDLE);
  EXPECT_EQ(engine.GetRootElement(window(7), &child), HLDOM_INVALID_HWND);
}

}  // namespace
}  // namespace kvt1::html
