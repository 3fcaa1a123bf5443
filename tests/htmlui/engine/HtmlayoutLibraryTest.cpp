// The binding of htmlayout.dll, run against stand-in libraries that export
// part of its functions under their plain names and log every call.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <string>
#include <vector>

#include "htmlui/engine/HtmlayoutLibrary.h"
#include "platform/ThisModule.h"
#include "platform/Win32.h"
#include "tests/htmlui/engine/stub/HtmlayoutStub.h"

namespace kvt1::html {
namespace {

const HWND kWindow = reinterpret_cast<HWND>(0x4711);

std::wstring besideProgram(const std::wstring& file) {
  const std::wstring program = platform::thisModulePath();
  return program.substr(0, program.find_last_of(L"\\/") + 1) + file;
}

bool contains(const std::vector<std::wstring>& names, const std::wstring& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

// Collects the elements that a selection offers; stops after `wanted` of them.
struct Found {
  std::vector<HELEMENT> elements;
  size_t wanted = 99;
};

BOOL CALLBACK collect(HELEMENT he, LPVOID param) {
  Found& found = *static_cast<Found*>(param);
  found.elements.push_back(he);
  return found.elements.size() >= found.wanted ? TRUE : FALSE;
}

// Remembers what an element event handler was called with.
struct HandlerCall {
  LPVOID tag = nullptr;
  HELEMENT he = nullptr;
  UINT group = 0xFFFFFFFF;
  UINT cmd = 0xFFFFFFFF;
};

BOOL CALLBACK handleEvent(LPVOID tag, HELEMENT he, UINT evtg, LPVOID prms) {
  HandlerCall& call = *static_cast<HandlerCall*>(tag);
  call = {tag, he, evtg, static_cast<INITIALIZATION_PARAMS*>(prms)->cmd};
  return TRUE;
}

class StubLibrary {
 public:
  explicit StubLibrary(const wchar_t* file) : library_(platform::DynamicLibrary::load(besideProgram(file))) {
    calls_ = reinterpret_cast<HtmlayoutStubCallsFunction*>(library_.symbol("HtmlayoutStubCalls"));
    if (auto clear = reinterpret_cast<HtmlayoutStubClearFunction*>(library_.symbol("HtmlayoutStubClear"))) clear();
  }

  const platform::DynamicLibrary& library() const { return library_; }
  bool ready() const { return library_.isLoaded() && calls_; }
  UINT callCount() const { return calls_()->count; }
  const HtmlayoutStubCall& last() const { return calls_()->calls[calls_()->count - 1]; }

 private:
  platform::DynamicLibrary library_;
  HtmlayoutStubCallsFunction* calls_ = nullptr;
};

class HtmlayoutBinding : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(stub_.ready()) << "cannot load the stub: "
                               << std::string(stub_.library().error().begin(), stub_.library().error().end());
    engine_ = loadHtmlayout(stub_.library());
    ASSERT_NE(engine_, nullptr);
  }

  // The last call's log entry, after checking that it was a call of function.
  const HtmlayoutStubCall& lastCallOf(const char* function) {
    EXPECT_GT(stub_.callCount(), 0u);
    EXPECT_STREQ(stub_.last().function, function);
    return stub_.last();
  }

  StubLibrary stub_{L"htmlayout_stub.dll"};
  std::unique_ptr<HtmlEngine> engine_;
};

TEST_F(HtmlayoutBinding, WindowGlueReachesTheLibraryWithItsArguments) {
  const char page[] = "<html><body>KVT1</body></html>";
  const auto* bytes = reinterpret_cast<LPCBYTE>(page);
  EXPECT_EQ(engine_->LoadHtmlEx(kWindow, bytes, sizeof page - 1, L"res:HTM_DLG_ABOUT"), TRUE);
  const HtmlayoutStubCall& load = lastCallOf("HTMLayoutLoadHtmlEx");
  EXPECT_EQ(load.hwnd, kWindow);
  EXPECT_STREQ(load.name, page);
  EXPECT_EQ(load.number, sizeof page - 1);
  EXPECT_STREQ(load.text, L"res:HTM_DLG_ABOUT");

  int owner = 0;
  engine_->SetCallback(kWindow, nullptr, &owner);
  EXPECT_EQ(lastCallOf("HTMLayoutSetCallback").pointer, &owner);

  BYTE sheet[] = {'p', '{', '}'};
  EXPECT_EQ(engine_->DataReady(kWindow, L"HTM_CTRL_COMMON", sheet, sizeof sheet), TRUE);
  const HtmlayoutStubCall& ready = lastCallOf("HTMLayoutDataReady");
  EXPECT_STREQ(ready.text, L"HTM_CTRL_COMMON");
  EXPECT_STREQ(ready.name, "p{}");
  EXPECT_EQ(ready.number, 3u);

  BOOL handled = FALSE;
  EXPECT_EQ(engine_->ProcND(kWindow, WM_LBUTTONDOWN, 7, 12345, &handled), 12345);
  EXPECT_EQ(handled, TRUE);
  EXPECT_EQ(lastCallOf("HTMLayoutProcND").number, 0x0201u);

  EXPECT_EQ(engine_->WindowDetachEventHandler(kWindow, &handleEvent, &owner), HLDOM_OK);
  EXPECT_EQ(lastCallOf("HTMLayoutWindowDetachEventHandler").pointer, &owner);
}

TEST_F(HtmlayoutBinding, SelectionOffersEachElementUntilTheCallbackStops) {
  HELEMENT root = nullptr;
  ASSERT_EQ(engine_->GetRootElement(kWindow, &root), HLDOM_OK);
  EXPECT_EQ(root, stubElement(kStubRoot));
  EXPECT_EQ(lastCallOf("HTMLayoutGetRootElement").hwnd, kWindow);

  Found all;
  EXPECT_EQ(engine_->SelectElements(root, "div[FPID='7']", &collect, &all), HLDOM_OK);
  EXPECT_EQ(all.elements, (std::vector<HELEMENT>{stubElement(kStubFirst), stubElement(kStubSecond)}));
  const HtmlayoutStubCall& select = lastCallOf("HTMLayoutSelectElements");
  EXPECT_EQ(select.element, root);
  EXPECT_STREQ(select.name, "div[FPID='7']");
  EXPECT_EQ(select.pointer, &all);

  Found first;
  first.wanted = 1;
  EXPECT_EQ(engine_->SelectElementsW(root, L"#Menu\u00c4", &collect, &first), HLDOM_OK);
  EXPECT_EQ(first.elements, std::vector<HELEMENT>{stubElement(kStubFirst)});
  EXPECT_STREQ(lastCallOf("HTMLayoutSelectElementsW").text, L"#Menu\u00c4");

  HELEMENT parent = nullptr;
  EXPECT_EQ(engine_->SelectParent(stubElement(kStubSecond), "[id]", 3, &parent), HLDOM_OK);
  EXPECT_EQ(parent, root);
  EXPECT_EQ(lastCallOf("HTMLayoutSelectParent").number, 3u);
  EXPECT_STREQ(stub_.last().name, "[id]");
  EXPECT_EQ(engine_->SelectParentW(stubElement(kStubSecond), L"tr", 0, &parent), HLDOM_OK);
  EXPECT_STREQ(lastCallOf("HTMLayoutSelectParentW").text, L"tr");
  EXPECT_EQ(stub_.last().element, stubElement(kStubSecond));
}

TEST_F(HtmlayoutBinding, PointsPassByValue) {
  HELEMENT hit = nullptr;
  EXPECT_EQ(engine_->FindElement(kWindow, POINT{12, 345}, &hit), HLDOM_OK);
  EXPECT_EQ(hit, stubElement(kStubSecond));
  const HtmlayoutStubCall& find = lastCallOf("HTMLayoutFindElement");
  EXPECT_EQ(find.point.x, 12);
  EXPECT_EQ(find.point.y, 345);
}

TEST_F(HtmlayoutBinding, AttributesPassNameAndValue) {
  const HELEMENT button = stubElement(kStubFirst);
  EXPECT_EQ(engine_->SetAttributeByName(button, "title", L"Hindernis \u00fc"), HLDOM_OK);
  const HtmlayoutStubCall& set = lastCallOf("HTMLayoutSetAttributeByName");
  EXPECT_EQ(set.element, button);
  EXPECT_STREQ(set.name, "title");
  EXPECT_STREQ(set.text, L"Hindernis \u00fc");

  LPCWSTR value = nullptr;
  ASSERT_EQ(engine_->GetAttributeByName(button, "title", &value), HLDOM_OK);
  ASSERT_NE(value, nullptr);
  EXPECT_STREQ(value, L"Hindernis \u00fc");
  EXPECT_STREQ(lastCallOf("HTMLayoutGetAttributeByName").name, "title");

  // A null value removes the attribute.
  EXPECT_EQ(engine_->SetAttributeByName(button, "title", nullptr), HLDOM_OK);
  EXPECT_EQ(engine_->GetAttributeByName(button, "title", &value), HLDOM_OK);
  EXPECT_STREQ(value, L"");
}

TEST_F(HtmlayoutBinding, ReferencesAndHandlersReachTheLibrary) {
  EXPECT_EQ(engine_->UseElement(stubElement(kStubFirst)), HLDOM_OK);
  EXPECT_EQ(lastCallOf("HTMLayout_UseElement").element, stubElement(kStubFirst));
  EXPECT_EQ(engine_->UnuseElement(stubElement(kStubFirst)), HLDOM_OK);
  EXPECT_EQ(lastCallOf("HTMLayout_UnuseElement").element, stubElement(kStubFirst));
  // The library's own result comes back unchanged.
  EXPECT_EQ(engine_->UseElement(nullptr), HLDOM_INVALID_HANDLE);

  HandlerCall handler;
  EXPECT_EQ(engine_->AttachEventHandlerEx(stubElement(kStubRoot), &handleEvent, &handler,
                                          HANDLE_BEHAVIOR_EVENT | HANDLE_TIMER),
            HLDOM_OK);
  const HtmlayoutStubCall& attach = lastCallOf("HTMLayoutAttachEventHandlerEx");
  EXPECT_EQ(attach.number, HANDLE_BEHAVIOR_EVENT | HANDLE_TIMER);
  EXPECT_EQ(attach.pointer, &handler);
  // The library called the handler back with its tag.
  EXPECT_EQ(handler.tag, &handler);
  EXPECT_EQ(handler.he, stubElement(kStubRoot));
  EXPECT_EQ(handler.group, HANDLE_INITIALIZATION);
  EXPECT_EQ(handler.cmd, BEHAVIOR_ATTACH);

  EXPECT_EQ(engine_->DetachEventHandler(stubElement(kStubRoot), &handleEvent, &handler), HLDOM_OK);
  EXPECT_EQ(lastCallOf("HTMLayoutDetachEventHandler").pointer, &handler);
}

TEST_F(HtmlayoutBinding, ValuesPassThroughTheLibrary) {
  VALUE value{9, 9, 9};
  EXPECT_EQ(engine_->ValueInit(&value), static_cast<UINT>(HV_OK));
  EXPECT_EQ(value.t, T_UNDEFINED);

  ASSERT_EQ(engine_->ValueStringDataSet(&value, L"Runway 09L", 6, UT_SYMBOL), static_cast<UINT>(HV_OK));
  EXPECT_STREQ(lastCallOf("ValueStringDataSet").text, L"Runway");
  EXPECT_EQ(stub_.last().number, static_cast<UINT>(UT_SYMBOL));
  LPCWSTR chars = nullptr;
  UINT count = 0;
  ASSERT_EQ(engine_->ValueStringData(&value, &chars, &count), static_cast<UINT>(HV_OK));
  EXPECT_EQ(std::wstring(chars, count), L"Runway");

  // A double argument arrives intact, with the arguments after it.
  ASSERT_EQ(engine_->ValueFloatDataSet(&value, 2.75, T_FLOAT, 3), static_cast<UINT>(HV_OK));
  double stored = 0;
  std::memcpy(&stored, &value.d, sizeof stored);
  EXPECT_EQ(stored, 2.75);
  EXPECT_EQ(value.t, T_FLOAT);
  EXPECT_EQ(value.u, 3u);
  EXPECT_EQ(engine_->ValueStringData(&value, &chars, &count), static_cast<UINT>(HV_INCOMPATIBLE_TYPE));
}

TEST_F(HtmlayoutBinding, FunctionsTheLibraryLacksFailWithoutCallingIt) {
  HtmlayoutLibrary binding(stub_.library());
  EXPECT_FALSE(binding.complete());
  EXPECT_TRUE(binding.usable());
  for (const wchar_t* lacking : {L"HTMLayoutShowPopupAt", L"HTMLayoutTrackPopupAt", L"HTMLayoutGetMinWidth",
                                 L"ValueCompare", L"ValueIntDataSet"}) {
    EXPECT_TRUE(contains(binding.missing(), lacking)) << std::string(lacking, lacking + std::wcslen(lacking));
  }
  for (const std::wstring& name : binding.missing()) {
    EXPECT_EQ(stub_.library().symbol(std::string(name.begin(), name.end()).c_str()), nullptr);
  }
  // 68 functions, of which the stub exports 21.
  EXPECT_EQ(binding.missing().size(), 47u);

  const UINT before = stub_.callCount();
  HELEMENT item = stubElement(kStubFirst);
  EXPECT_EQ(binding.ShowPopupAt(stubElement(kStubRoot), POINT{1, 2}, 0x20001), HLDOM_OPERATION_FAILED);
  EXPECT_EQ(binding.TrackPopupAt(stubElement(kStubRoot), POINT{1, 2}, 0x20001, &item), HLDOM_OPERATION_FAILED);
  EXPECT_EQ(item, stubElement(kStubFirst));
  EXPECT_EQ(binding.GetMinWidth(kWindow), 0u);
  VALUE value{};
  EXPECT_EQ(binding.ValueCompare(&value, &value), static_cast<UINT>(HV_BAD_PARAMETER));
  EXPECT_EQ(stub_.callCount(), before);
}

TEST(HtmlayoutLoading, LibraryWithoutEventHandlersIsRefused) {
  StubLibrary stub(L"htmlayout_stub_noevents.dll");
  ASSERT_TRUE(stub.ready());
  EXPECT_EQ(loadHtmlayout(stub.library()), nullptr);

  HtmlayoutLibrary binding(stub.library());
  EXPECT_FALSE(binding.usable());
  EXPECT_TRUE(contains(binding.missing(), L"HTMLayoutAttachEventHandlerEx"));
  EXPECT_TRUE(contains(binding.missing(), L"HTMLayoutDetachEventHandler"));
  EXPECT_FALSE(contains(binding.missing(), L"HTMLayoutGetRootElement"));
  // What the library has still works.
  HELEMENT root = nullptr;
  EXPECT_EQ(binding.GetRootElement(kWindow, &root), HLDOM_OK);
  EXPECT_EQ(root, stubElement(kStubRoot));
  HandlerCall handler;
  EXPECT_EQ(binding.AttachEventHandlerEx(root, &handleEvent, &handler, HANDLE_ALL), HLDOM_OPERATION_FAILED);
  EXPECT_EQ(handler.tag, nullptr);
}

TEST(HtmlayoutLoading, NoLibraryGivesNoEngine) {
  const platform::DynamicLibrary none;
  EXPECT_EQ(loadHtmlayout(none), nullptr);
  const platform::DynamicLibrary absent = platform::DynamicLibrary::load(besideProgram(L"no_such_htmlayout.dll"));
  ASSERT_FALSE(absent.isLoaded());
  EXPECT_EQ(loadHtmlayout(absent), nullptr);

  HtmlayoutLibrary binding(none);
  EXPECT_FALSE(binding.usable());
  EXPECT_EQ(binding.missing().size(), 68u);
  EXPECT_TRUE(contains(binding.missing(), L"HTMLayout_UnuseElement"));
  EXPECT_TRUE(contains(binding.missing(), L"ValueToString"));

  // Every kind of result answers its failure.
  const BYTE page[] = {'<', 'p', '>'};
  EXPECT_EQ(binding.LoadHtmlEx(kWindow, page, sizeof page, nullptr), FALSE);
  binding.SetCallback(kWindow, nullptr, nullptr);
  BOOL handled = TRUE;
  EXPECT_EQ(binding.ProcND(kWindow, 0x000F, 0, 0, &handled), 0);
  EXPECT_EQ(handled, FALSE);
  EXPECT_EQ(binding.ProcND(kWindow, 0x000F, 0, 0, nullptr), 0);
  EXPECT_EQ(binding.GetMinHeight(kWindow, 300), 0u);
  HELEMENT root = stubElement(kStubRoot);
  EXPECT_EQ(binding.GetRootElement(kWindow, &root), HLDOM_OPERATION_FAILED);
  EXPECT_EQ(binding.UnuseElement(root), HLDOM_OPERATION_FAILED);
  VALUE value{};
  EXPECT_EQ(binding.ValueInit(&value), static_cast<UINT>(HV_BAD_PARAMETER));
}

}  // namespace
}  // namespace kvt1::html
