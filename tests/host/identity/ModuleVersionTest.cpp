#include "host/identity/ModuleVersion.h"

#include <gtest/gtest.h>

#include <set>

namespace kvt1 {
namespace {

TEST(ModuleVersion, NumbersComeFromTheFixedVersionInformation) {
  EXPECT_STREQ(moduleVersionNumber(VersionNumber::File), KVT1_TEST_VERSION_TEXT);
  EXPECT_STREQ(moduleVersionNumber(VersionNumber::Product), KVT1_TEST_VERSION_TEXT);
}

TEST(ModuleVersion, NumberTextsLiveInARingOfSeven) {
  std::set<const wchar_t*> buffers;
  const wchar_t* first = moduleVersionNumber(VersionNumber::File);
  buffers.insert(first);
  for (int i = 0; i < 6; ++i) buffers.insert(moduleVersionNumber(VersionNumber::Product));
  EXPECT_EQ(buffers.size(), 7u);
  EXPECT_STREQ(first, KVT1_TEST_VERSION_TEXT);                 // still intact after six further calls
  EXPECT_EQ(moduleVersionNumber(VersionNumber::File), first);  // the eighth reuses the first
}

TEST(ModuleVersion, StringsComeFromTheTranslationTable) {
  EXPECT_EQ(moduleVersionString(0), KVT1_TEST_VERSION_TEXT);
  EXPECT_EQ(moduleVersionString(1), KVT1_TEST_VERSION_TEXT);
  EXPECT_EQ(moduleVersionString(2), L"");
  EXPECT_EQ(moduleVersionString(-1), L"");
}

TEST(ModuleVersion, StringTextsLiveInARingOfTen) {
  const std::wstring* first = &moduleVersionString(0);
  std::set<const std::wstring*> slots{first};
  for (int i = 0; i < 9; ++i) slots.insert(&moduleVersionString(2));
  EXPECT_EQ(slots.size(), 10u);
  EXPECT_EQ(*first, KVT1_TEST_VERSION_TEXT);
  EXPECT_EQ(&moduleVersionString(1), first);
}

TEST(ModuleVersion, DescribesAFileWithBothVersions) {
  const std::wstring version = KVT1_TEST_VERSION_TEXT;
  EXPECT_EQ(moduleVersionDescription(L"kvt2018.arx"),
            L"kvt2018.arx [prodVer:" + version + L" fileVer:" + version + L"]");
}

}  // namespace
}  // namespace kvt1
