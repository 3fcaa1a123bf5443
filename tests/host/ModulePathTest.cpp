#include "host/ModulePath.h"

#include <gtest/gtest.h>

#include "platform/ThisModule.h"

namespace kvt1 {
namespace {

TEST(ModulePath, SplitsAtTheLastBackslashElseTheLastSlash) {
  ModuleLocation windows = splitModulePath(L"C:\\Program Files\\KVT\\kvt2018.arx");
  EXPECT_EQ(windows.folder, L"C:\\Program Files\\KVT\\");
  EXPECT_EQ(windows.fileName, L"kvt2018.arx");

  ModuleLocation posix = splitModulePath(L"/opt/kvt/kvt2018.so");
  EXPECT_EQ(posix.folder, L"/opt/kvt/");
  EXPECT_EQ(posix.fileName, L"kvt2018.so");

  // A backslash anywhere wins over later slashes.
  ModuleLocation mixed = splitModulePath(L"Z:\\work/bin/kvt2018.arx");
  EXPECT_EQ(mixed.folder, L"Z:\\");
  EXPECT_EQ(mixed.fileName, L"work/bin/kvt2018.arx");

  ModuleLocation bare = splitModulePath(L"kvt2018.arx");
  EXPECT_EQ(bare.folder, L"");
  EXPECT_EQ(bare.fileName, L"kvt2018.arx");
}

TEST(ModulePath, DoublesBackslashesForLispStrings) {
  EXPECT_EQ(doubleBackslashes(L"C:\\A\\"), L"C:\\\\A\\\\");
  EXPECT_EQ(doubleBackslashes(L"\\\\server\\share"), L"\\\\\\\\server\\\\share");
  EXPECT_EQ(doubleBackslashes(L"/opt/kvt/"), L"/opt/kvt/");
}

TEST(ModulePath, ThisModuleIsTheRunningTestProgram) {
  const ModuleLocation location = splitModulePath(platform::thisModulePath());
  EXPECT_EQ(location.fileName.rfind(L"host_tests", 0), 0u);
  EXPECT_FALSE(location.folder.empty());
  EXPECT_NE(platform::thisModuleHandle(), nullptr);
}

}  // namespace
}  // namespace kvt1
