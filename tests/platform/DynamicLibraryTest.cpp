// Loading and keeping shared libraries, with a real library beside the test program.
#include "platform/DynamicLibrary.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/ThisModule.h"

namespace kvt1::platform {
namespace {

const wchar_t kLibraryName[] = L"kept_library";

std::wstring libraryFileName() { return std::wstring(kLibraryName) + kLibrarySuffix; }

std::wstring libraryPath() {
  const std::wstring program = thisModulePath();
  return program.substr(0, program.find_last_of(L"\\/") + 1) + libraryFileName();
}

using SetValue = void (*)(int);
using GetValue = int (*)();

// The value the library holds after a load that sets it, a release and a
// second load: the library's own state survives only when it stayed loaded.
int valueAfterReload(bool keep) {
  DynamicLibrary first = DynamicLibrary::load(libraryPath());
  EXPECT_TRUE(first.isLoaded()) << first.error();
  auto setValue = reinterpret_cast<SetValue>(first.symbol("setKeptValue"));
  if (!setValue) return -1;
  setValue(42);
  if (keep) DynamicLibrary::keepLoaded(libraryFileName());
  first.release();

  DynamicLibrary second = DynamicLibrary::load(libraryPath());
  auto getValue = reinterpret_cast<GetValue>(second.symbol("keptValue"));
  return getValue ? getValue() : -1;
}

// Once kept, the library stays for the rest of the process: later releases
// do not unload it either.
TEST(DynamicLibraryTest, AReleasedLibraryIsUnloadedUnlessItWasKeptLoaded) {
  EXPECT_EQ(valueAfterReload(false), 0);
  EXPECT_EQ(valueAfterReload(true), 42);
  EXPECT_EQ(valueAfterReload(false), 42);
}

TEST(DynamicLibraryTest, KeepingALibraryThatIsNotLoadedLoadsNothing) {
  DynamicLibrary::keepLoaded(L"kvt1_no_such_library" + std::wstring(kLibrarySuffix));
  const DynamicLibrary missing = DynamicLibrary::load(L"kvt1_no_such_library" + std::wstring(kLibrarySuffix));
  EXPECT_FALSE(missing.isLoaded());
  EXPECT_FALSE(missing.error().empty());
}

}  // namespace
}  // namespace kvt1::platform
