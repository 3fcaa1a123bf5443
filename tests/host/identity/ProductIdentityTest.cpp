#include "host/identity/ProductIdentity.h"

#include <gtest/gtest.h>

namespace kvt1 {
namespace {

TEST(ProductIdentity, NamesAndCodesByNumber) {
  EXPECT_EQ(productName(30), kProductName);
  EXPECT_EQ(productCode(30), L"KVT1");
  EXPECT_EQ(productName(31), L"Unknown product");
  EXPECT_EQ(productCode(0), L"HV???");
  EXPECT_EQ(productNumber(kProductName), 30);
  EXPECT_EQ(productNumber(L"kvt"), 0);  // names compare exactly
  EXPECT_EQ(currentProductNumber(), 30);
}

TEST(ProductIdentity, ReleaseYearsAndModuleNames) {
  const std::pair<int, const wchar_t*> years[] = {{18, L"2010"}, {19, L"2013"},  {20, L"2015"}, {21, L"2017"},
                                                  {22, L"2018"}, {17, L"ERROR"}, {23, L"ERROR"}};
  for (const auto& [release, year] : years) EXPECT_STREQ(releaseYear(release), year) << release;

  const std::wstring& name = moduleNameForRelease(22);
  EXPECT_EQ(name, L"kvt2018.arx");
  EXPECT_EQ(moduleNameForRelease(23), L"kvtERROR.arx");
  // One text, rewritten only when the release changes.
  EXPECT_EQ(&moduleNameForRelease(19), &name);
  EXPECT_EQ(name, L"kvt2013.arx");
}

TEST(ProductIdentity, VersionAttributesForUsageReports) {
  const auto attributes = versionAttributes();
  ASSERT_EQ(attributes.size(), 2u);
  EXPECT_EQ(attributes[0], std::make_pair(std::wstring(L"KVTVer"), std::wstring(L"1.1.0")));
  EXPECT_EQ(attributes[1], std::make_pair(std::wstring(L"KVTDataVer"), std::wstring(L"1")));
}

TEST(ProductIdentity, DateTexts) {
  constexpr std::int64_t kNewYear2018 = 1514764800;
  EXPECT_EQ(dateText(0, DateForm::Long), L"Not set");
  EXPECT_EQ(dateText(-1, DateForm::Short), L"Not set");
  EXPECT_EQ(dateText(kNewYear2018, DateForm::Long), L"January 01, 2018");
  EXPECT_EQ(dateText(kNewYear2018, DateForm::Short), L"2018-01-01");
  EXPECT_EQ(dateText(kNewYear2018 + 86400 * 217, DateForm::Long), L"August 06, 2018");
  // Beyond 2038, where 32-bit times end.
  EXPECT_EQ(dateText(4102444800, DateForm::Short), L"2100-01-01");
}

}  // namespace
}  // namespace kvt1
