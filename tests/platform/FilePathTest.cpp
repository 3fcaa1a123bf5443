#include "platform/FilePath.h"

#include <gtest/gtest.h>

namespace kvt1::platform {
namespace {

#ifdef _WIN32
#define KVT1_SEP L"\\"
#else
#define KVT1_SEP L"/"
#endif

TEST(FilePath, JoinsWithTheSystemsSeparatorOnce) {
  struct Case {
    const wchar_t* folder;
    const wchar_t* joined;
  };
  for (const Case& c :
       {Case{L"/opt/kvt/Program", L"/opt/kvt/Program" KVT1_SEP L"ReleaseNotes.html"},
        Case{L"C:\\KVT\\Program", L"C:\\KVT\\Program" KVT1_SEP L"ReleaseNotes.html"},
        Case{L"/opt/kvt/Program/", L"/opt/kvt/Program/ReleaseNotes.html"},
        Case{L"C:\\KVT\\Program\\", L"C:\\KVT\\Program\\ReleaseNotes.html"}, Case{L"", L"ReleaseNotes.html"}})
    EXPECT_EQ(joinPath(c.folder, L"ReleaseNotes.html"), c.joined) << c.folder;
}

}  // namespace
}  // namespace kvt1::platform
