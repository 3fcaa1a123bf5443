#include <gtest/gtest.h>

#include "online/WebLink.h"

namespace kvt1 {
namespace {

TEST(WebLink, PlainWebAddressesPass) {
  for (const wchar_t* link : {L"http://www.halvorn.aero/kvt", L"https://x.example/a?b=c&d=%20e#f", L"HTTPS://X.EXAMPLE",
                              L"http://127.0.0.1:8080/path"}) {
    EXPECT_TRUE(isWebLink(link)) << std::string(link, link + std::wcslen(link));
  }
}

TEST(WebLink, EverythingElseIsRefused) {
  for (const wchar_t* link : {
           L"",
           L"http://",
           L"https:///etc/passwd",
           L"file:///C:/Windows/calc.exe",
           L"C:\\Windows\\calc.exe",
           L"calc.exe",
           L"\\\\server\\share\\setup.exe",
           L"ftp://x.example/",
           L"javascript:alert(1)",
           L"mailto:a@b.example",
           L" http://x.example",
           L"http://x.example/a b",
           L"http://x.example/\" --flag",
           L"http://x.example/\t",
           L"http://x.example/<script>",
           L"http://x.example\\..\\calc.exe",
           L"http://x.example/a|b",
           L"http://x.example/\u00FC",
       }) {
    EXPECT_FALSE(isWebLink(link)) << std::string(link, link + std::wcslen(link));
  }
}

}  // namespace
}  // namespace kvt1
