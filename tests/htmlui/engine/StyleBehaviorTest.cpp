// Behaviours that a page's style sheets give elements ("behavior: name"),
// decided by the cascade, seen as a user sees them: a pointer press and
// release at the element's box clicks it and reaches the behaviour.
#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "htmlui/engine/HtmlayoutEventHandler.h"
#include "htmlui/engine/StyleRules.h"
#include "platform/Win32.h"
#include "tests/htmlui/engine/EngineTestSupport.h"

namespace kvt1::html {
namespace {

using namespace test;

// A named behaviour that writes "name:id" for each click on its element.
class Named : public htmlayout::behavior {
 public:
  Named(const char* name, DomEngine& engine, std::vector<std::string>& log)
      : behavior(HANDLE_BEHAVIOR_EVENT, name), engine_(engine), log_(log) {}
  BOOL on_event(HELEMENT he, HELEMENT target, BEHAVIOR_EVENTS type, UINT_PTR) override {
    if (type == BUTTON_CLICK && he == target) log_.push_back(std::string(name()) + ":" + attribute(engine_, he, "id"));
    return FALSE;
  }

 private:
  DomEngine& engine_;
  std::vector<std::string>& log_;
};

// The page's host: attaches behaviours by name and answers the sheets a page imports.
struct Host : htmlayout::notification_handler<Host> {
  LRESULT on_load_data(LPNMHL_LOAD_DATA request) override {
    const auto found = sheets.find(platform::toUtf8(request->uri));
    if (found == sheets.end()) return LOAD_OK;
    request->outData = found->second.data();
    request->outDataSize = static_cast<UINT>(found->second.size());
    return LOAD_OK;
  }
  std::map<std::string, std::string> sheets;
};

struct Case {
  const char* name;
  const char* page;
  const char* inserted;   // appended to #holder after the load, when set
  const char* clicks;     // "behaviour:id", or "" when the press clicks nothing
  const char* attribute;  // what GetAttributeByName("behavior") answers for #area
};

const Case kCases[] = {
    {"a sheet rule", "<style>#area { behavior: alpha; }</style><body><div #area></div></body>", nullptr, "alpha:area",
     "(none)"},
    {"a more specific earlier rule over a later one",
     "<style>div#area { behavior: beta } .zone { behavior: alpha }</style><body><div #area.zone></div></body>", nullptr,
     "beta:area", "(none)"},
    {"the later of equally specific rules",
     "<style>.zone { behavior: alpha } .zone { behavior: beta }</style><body><div #area.zone></div></body>", nullptr,
     "beta:area", "(none)"},
    {"the last declaration in a rule",
     "<style>/* two */ #area { behavior: alpha; behavior: beta }</style><body><div #area></div></body>", nullptr,
     "beta:area", "(none)"},
    {"a selector list, its matching alternative",
     "<style>p, body > div { behavior: alpha }</style><body><div #area></div></body>", nullptr, "alpha:area", "(none)"},
    {"an imported sheet before the page's own rules",
     "<style>@import url(more.css); .zone { behavior: beta }</style><body><div #area.zone></div></body>", nullptr,
     "beta:area", "(none)"},
    {"an imported sheet's more specific rule",
     "<style>@import url(more.css); div { behavior: alpha }</style><body><div #area.zone.wide></div></body>", nullptr,
     "beta:area", "(none)"},
    {"an inline style over the sheets",
     "<style>#area { behavior: alpha }</style><body><div #area style='color: red; behavior: beta'></div></body>",
     nullptr, "beta:area", "(none)"},
    {"the attribute over the sheets and the inline style",
     "<style>#area { behavior: alpha }</style><body><div #area behavior=beta style='behavior: alpha'></div></body>",
     nullptr, "beta:area", "beta"},
    {"no behaviour anywhere",
     "<style>#other { behavior: alpha } @media print { #area { behavior: beta } }</style>"
     "<body><div #area style='color: red'></div><p #other></p></body>",
     nullptr, "", "(none)"},
    {"an element inserted after the load", "<style>.late { behavior: alpha }</style><body><div #holder></div></body>",
     "<div #area class=late></div>", "alpha:area", "(none)"},
};

TEST(StyleBehaviorTest, APressOnAnElementReachesTheBehaviourTheCascadeGivesIt) {
  std::vector<std::string> log;
  DomEngine engine;
  Named alpha("alpha", engine, log);
  Named beta("beta", engine, log);
  Host host;
  host.sheets["more.css"] = ".zone { behavior: alpha } div.zone.wide { behavior: beta }";
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.name);
    log.clear();
    auto layout = std::make_unique<BoxLayout>();
    BoxLayout& boxes = *layout;
    engine.setLayoutProvider(std::move(layout));
    host.setup_callback(engine, window());
    ASSERT_TRUE(load(engine, window(), c.page));
    const HELEMENT root = rootOf(engine, window());
    if (c.inserted != nullptr) {
      engine.SetElementHtml(selectFirst(engine, root, "#holder"), reinterpret_cast<LPCBYTE>(c.inserted),
                            static_cast<DWORD>(std::strlen(c.inserted)), SIH_APPEND_AFTER_LAST);
    }
    const HELEMENT area = selectFirst(engine, root, "#area");
    ASSERT_NE(area, nullptr);
    boxes.boxes[static_cast<int>(reinterpret_cast<std::uintptr_t>(area))] = {20, 30, 100, 40};
    engine.ProcND(window(), WM_LBUTTONDOWN, 1, at(50, 50), nullptr);
    engine.ProcND(window(), WM_LBUTTONUP, 0, at(50, 50), nullptr);
    EXPECT_EQ(log.empty() ? std::string() : log.front(), c.clicks);
    EXPECT_LE(log.size(), 1u);
    EXPECT_EQ(attribute(engine, area, "behavior"), c.attribute);
    engine.closeView(window());
  }
}

TEST(StyleBehaviorTest, SheetsReadAsRulesWithoutCommentsOrAtRules) {
  const std::vector<StyleRule> rules = parseStyleRules(
      L"@import url(a.css);\n/* #gone { x: 1 } */ a, b > c { color: red; behavior: button }\n"
      L"@media screen { p { color: blue } }\n@font-face { font-family: x }\n#last{width:1px}");
  ASSERT_EQ(rules.size(), 2u);
  EXPECT_EQ(rules[0].selectors, L"a, b > c");
  EXPECT_EQ(rules[0].declarations, (StyleDeclarations{{"color", L"red"}, {"behavior", L"button"}}));
  EXPECT_EQ(rules[1].selectors, L"#last");
  EXPECT_EQ(rules[1].declarations, (StyleDeclarations{{"width", L"1px"}}));
}

}  // namespace
}  // namespace kvt1::html
