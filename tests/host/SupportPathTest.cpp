#include "host/SupportPath.h"

#include <gtest/gtest.h>

#include "tools/kvt1-host/core/EmulatedHost.h"

namespace kvt1 {
namespace {

TEST(SupportPath, RemovesTheEntryHoldingTheFirstMatch) {
  EXPECT_EQ(removeFirstEntryContaining(L"x;C:\\Old-Folder\\a;y", L"old-folder"), L"x;y");
  EXPECT_EQ(removeFirstEntryContaining(L"C:\\old-folder;y;z", L"old-folder"), L"y;z");
  EXPECT_EQ(removeFirstEntryContaining(L"x;y;D:\\OLD-FOLDER", L"old-folder"), L"x;y");
  EXPECT_EQ(removeFirstEntryContaining(L"old-folder", L"old-folder"), L"");
  EXPECT_EQ(removeFirstEntryContaining(L"x;old-folder-a;y;old-folder-b", L"old-folder"), L"x;y;old-folder-b");
  EXPECT_FALSE(removeFirstEntryContaining(L"x;y", L"old-folder").has_value());
  EXPECT_FALSE(removeFirstEntryContaining(L"", L"old-folder").has_value());
}

TEST(SupportPath, CleansEveryMatchingEntryOfTheHostValue) {
  auto& host = emu::EmulatedHost::instance();
  host.reset();
  host.setEnvironment(L"ACAD", L"x;old-folder-a;y;OLD-FOLDER-b");
  cleanSupportPath(L"old-folder");
  EXPECT_EQ(host.environment(L"ACAD"), L"x;y");

  host.setEnvironment(L"ACAD", L"C:\\KVTools\\Support;C:\\Other");
  cleanSupportPath(kEarlierInstallationMarker);
  EXPECT_EQ(host.environment(L"ACAD"), L"C:\\Other");

  host.reset();
  cleanSupportPath(L"old-folder");  // no value: nothing to do, nothing written
  EXPECT_FALSE(host.environment(L"ACAD").has_value());
}

}  // namespace
}  // namespace kvt1
