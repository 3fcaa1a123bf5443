#include <gtest/gtest.h>

#include <string>

#include "online/CHvAutomaticUpdateResult.h"
#include "tests/online/OnlineTestSupport.h"

namespace Hv::Http {
namespace {

CHvAutomaticUpdateResult parse(const std::string& json) {
  return ParseAutomaticUpdateResult(std::wstring(json.begin(), json.end()));
}

void expectNothing(const CHvAutomaticUpdateResult& result) {
  EXPECT_FALSE(result.update.available);
  EXPECT_FALSE(result.update.active);
  EXPECT_TRUE(result.update.name.empty());
  EXPECT_TRUE(result.update.url.empty());
  EXPECT_EQ(result.update.date, 0u);
  EXPECT_FALSE(result.update.mapOnly);
  EXPECT_FALSE(result.upgrade.available);
  EXPECT_TRUE(result.upgrade.name.empty());
  EXPECT_EQ(result.upgrade.date, 0u);
}

TEST(UpdateAnswer, ReadsEveryMemberOfBothParts) {
  kvt1::testing::UpdatePart update;
  update.mapOnly = true;
  update.date = 4000000000u;
  kvt1::testing::UpgradePart upgrade;
  upgrade.active = false;
  const CHvAutomaticUpdateResult result = parse(kvt1::testing::answerJson(update, upgrade));
  EXPECT_TRUE(result.update.available);
  EXPECT_TRUE(result.update.active);
  EXPECT_EQ(result.update.name, L"KVT 1.1 SP1");
  EXPECT_EQ(result.update.url, L"https://www.halvorn.aero/kvt/sp1");
  EXPECT_EQ(result.update.date, 4000000000u);  // the full unsigned 32-bit range
  EXPECT_TRUE(result.update.mapOnly);
  EXPECT_TRUE(result.upgrade.available);
  EXPECT_FALSE(result.upgrade.active);
  EXPECT_EQ(result.upgrade.name, L"KVT 2");
  EXPECT_EQ(result.upgrade.mapUrl, L"https://www.halvorn.aero/kvt2/map");
  EXPECT_EQ(result.upgrade.noMapUrl, L"https://www.halvorn.aero/kvt2");
  EXPECT_EQ(result.upgrade.date, 1500000000u);
}

TEST(UpdateAnswer, EachMissingOrMistypedMemberKeepsItsDefaultAlone) {
  const CHvAutomaticUpdateResult result = parse(
      "{\"CheckForUpdatesResult\":{\"UpdateResult\":{\"UpdateAvailable\":true,\"UpdateActive\":\"true\","
      "\"UpdateName\":5,\"UpdateUrl\":\"https://x.example/u\",\"UpdateDate\":-5},"
      "\"UpgradeResult\":{\"UpgradeAvailable\":1,\"UpgradeName\":\"G\",\"UpgradeDate\":1.5,"
      "\"UpgradeMapUrl\":null,\"UpgradeNoMapUrl\":[\"x\"]}}}");
  EXPECT_TRUE(result.update.available);
  EXPECT_FALSE(result.update.active);
  EXPECT_TRUE(result.update.name.empty());
  EXPECT_EQ(result.update.url, L"https://x.example/u");
  EXPECT_EQ(result.update.date, 0u);
  EXPECT_FALSE(result.update.mapOnly);  // missing
  EXPECT_FALSE(result.upgrade.available);
  EXPECT_EQ(result.upgrade.name, L"G");
  EXPECT_EQ(result.upgrade.date, 0u);
  EXPECT_TRUE(result.upgrade.mapUrl.empty());
  EXPECT_TRUE(result.upgrade.noMapUrl.empty());
}

TEST(UpdateAnswer, BodiesOfTheWrongShapeGiveNothingAvailable) {
  for (const std::string body :
       {"", "not JSON", "<html></html>", "{\"CheckForUpdatesResult\":", "[1,2,3]", "42", "\"text\"",
        "{\"CheckForUpdatesResult\":\"yes\"}", "{\"CheckForUpdatesResult\":{\"UpdateResult\":[true]}}",
        "{\"Other\":{\"UpdateResult\":{\"UpdateAvailable\":true}}}",
        "{\"CheckForUpdatesResult\":{\"UpdateResult\":{\"UpdateAvailable\":true}}} trailing"}) {
    SCOPED_TRACE(body);
    expectNothing(parse(body));
  }
}

TEST(UpdateAnswer, DeepNestingIsRefusedWithoutACrash) {
  expectNothing(parse(std::string(100000, '[') + std::string(100000, ']')));
  expectNothing(parse("{\"CheckForUpdatesResult\":" + std::string(5000, '{')));
}

TEST(UpdateAnswer, TextsComeThroughAsUnicode) {
  const CHvAutomaticUpdateResult result = ParseAutomaticUpdateResult(
      L"{\"CheckForUpdatesResult\":{\"UpdateResult\":{\"UpdateName\":\"Gr\u00FC\u00DFe \\u20AC\"}}}");
  EXPECT_EQ(result.update.name, L"Gr\u00FC\u00DFe \u20AC");
}

}  // namespace
}  // namespace Hv::Http
