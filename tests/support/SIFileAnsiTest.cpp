// ANSI files: the code page conversions and the end-of-file byte 0xFF.
#include <gtest/gtest.h>

#include <string>

#include "support/CSIFileMBCSBin.h"
#include "support/CSIFileMBCSText.h"
#include "support/SIFileMode.h"
#include "tests/support/SIFileTestSupport.h"

namespace kvt1 {
namespace {

using test::readBytes;
using test::TempFolder;
using test::writeBytes;

// "e" with a combining acute accent is written as the code page's "é".
TEST(SIFileAnsi, WideTextIsWrittenInTheAnsiCodePageComposedWithQuestionMarks) {
  const std::string ansi = test::independentAnsi(u"Grüße – 5 € é ");
  if (ansi.empty()) GTEST_SKIP() << "the ANSI code page cannot hold the sample text";
  TempFolder folder;
  const std::wstring path = folder.file(L"ansi.txt");
  {
    CSIFileMBCSText file;
    ASSERT_TRUE(file.Open(path, kSIWriteText));
    EXPECT_GE(file.WriteLine(L"Grüße – 5 € e\u0301 中"), 0);
    EXPECT_GE(file.WriteString("plain"), 0);
  }
  EXPECT_EQ(readBytes(path), ansi + "?\r\nplain");

  CSIFileMBCSText file;
  ASSERT_TRUE(file.Open(path, kSIReadText));
  wchar_t line[64];
  EXPECT_EQ(file.ReadLine(line, 64), 16);
  EXPECT_STREQ(line, L"Grüße – 5 € é ?\n");
  EXPECT_EQ(file.ReadChars(line, 63), 5);
  EXPECT_STREQ(line, L"plain");
}

TEST(SIFileAnsi, ByteFFEndsCharacterReadingButNotLines) {
  TempFolder folder;
  const std::wstring path = folder.file(L"ff.bin");
  writeBytes(path, std::string("a\0b\xFF"
                               "cd\0e\xFF"
                               "f\xFFg\r\n",
                               14));
  CSIFileMBCSBin file;
  ASSERT_TRUE(file.Open(path, kSIReadBinary));
  char buffer[16];
  EXPECT_EQ(file.ReadChars(buffer, 15), 3);  // reads through the NUL, stops at 0xFF
  EXPECT_EQ(std::string(buffer, 3), std::string("a\0b", 3));
  EXPECT_EQ(file.ReadString(buffer, 15), 2);  // stops at the NUL
  EXPECT_STREQ(buffer, "cd");
  EXPECT_EQ(file.ReadString(buffer, 15), 1);  // stops at 0xFF
  EXPECT_STREQ(buffer, "e");
  EXPECT_EQ(file.ReadLine(buffer, 16), 5);  // keeps 0xFF, and the CR of a binary file
  EXPECT_STREQ(buffer, "f\xFFg\r\n");
  EXPECT_EQ(file.ReadLine(buffer, 16), 0);
}

TEST(SIFileAnsi, ReadBytesReadsOneWholeItemOrNothing) {
  TempFolder folder;
  const std::wstring path = folder.file(L"bytes.bin");
  writeBytes(path, "123456");
  CSIFileMBCSBin file;
  ASSERT_TRUE(file.Open(path, kSIReadBinary));
  char buffer[8] = {};
  EXPECT_EQ(file.ReadBytes(buffer, 4), 1);
  EXPECT_EQ(std::string(buffer, 4), "1234");
  EXPECT_EQ(file.ReadBytes(buffer, 4), 0);
}

}  // namespace
}  // namespace kvt1
