// UTF-16 text files: the byte order mark rules, the bytes on disk as other
// programs write and read them, and the ends of wide reading.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "support/CSIFileUnicodeText.h"
#include "support/SIFileMode.h"
#include "tests/support/SIFileTestSupport.h"

namespace kvt1 {
namespace {

using test::readBytes;
using test::TempFolder;
using test::utf16le;
using test::writeBytes;

const std::string kMark = "\xFF\xFE";

std::wstring readLine(CSIFileImpl& file, int count = 256) {
  std::wstring buffer(static_cast<std::size_t>(count), L'#');
  const int length = file.ReadLine(buffer.data(), count);
  EXPECT_EQ(static_cast<std::size_t>(length), std::wcslen(buffer.c_str()));
  return buffer.substr(0, static_cast<std::size_t>(length));
}

TEST(SIFileUnicodeText, WritesAMarkAndUtf16LeThatAnotherDecoderReads) {
  TempFolder folder;
  const std::wstring path = folder.file(L"written.txt");
  {
    CSIFileUnicodeText file;
    ASSERT_TRUE(file.Open(path, kSIWriteText));
    EXPECT_GE(file.WriteLine(L"Grüße – 5 € 𝄞"), 0);
    EXPECT_GE(file.WriteString(L"end"), 0);
  }
  const std::string bytes = readBytes(path);
  // The compiler's own UTF-16 (a surrogate pair for the clef) is the reference.
  EXPECT_EQ(bytes, kMark + utf16le(u"Grüße – 5 € 𝄞\r\nend"));
#ifndef _WIN32
  EXPECT_EQ(test::iconvUtf16ToUtf8(bytes), u8"Grüße – 5 € 𝄞\r\nend");
#endif
}

TEST(SIFileUnicodeText, ReadsFilesThatOtherProgramsWrote) {
  TempFolder folder;
  const std::wstring literal = folder.file(L"literal.txt");
  writeBytes(literal, kMark + utf16le(u"Grüße – 5 € 𝄞\r\nzweite\r\nend"));
  std::vector<std::wstring> paths{literal};
#ifndef _WIN32
  writeBytes(folder.file(L"utf8.txt"), u8"Grüße – 5 € 𝄞\r\nzweite\r\nend");
  const std::string command = "cd '" + folder.path().string() +
                              "' && { printf '\\377\\376'; iconv -f UTF-8 -t UTF-16LE utf8.txt; } > iconv.txt";
  ASSERT_EQ(std::system(command.c_str()), 0);
  paths.push_back(folder.file(L"iconv.txt"));
#endif
  for (const std::wstring& path : paths) {
    SCOPED_TRACE(std::string(path.begin(), path.end()));
    CSIFileUnicodeText file;
    ASSERT_TRUE(file.Open(path, kSIReadText));
    EXPECT_EQ(readLine(file), L"Grüße – 5 € 𝄞\n");
    EXPECT_EQ(readLine(file), L"zweite\n");
    EXPECT_EQ(readLine(file), L"end");
    EXPECT_EQ(readLine(file), L"");
  }
}

TEST(SIFileUnicodeText, AppendingWritesTheMarkOnlyIntoANewFile) {
  for (const int mode : {kSIAppendBinary, kSIAppendText}) {
    SCOPED_TRACE(mode);
    TempFolder folder;
    const std::wstring path = folder.file(L"log.txt");
    for (const wchar_t* entry : {L"one", L"two"}) {
      CSIFileUnicodeText file;
      ASSERT_TRUE(file.Open(path, mode));
      EXPECT_GE(file.WriteLine(entry), 0);
    }
    EXPECT_EQ(readBytes(path), kMark + utf16le(u"one\r\ntwo\r\n"));
  }
}

TEST(SIFileUnicodeText, ReadingSkipsTheFirstUnitEvenWhenItIsNoMark) {
  TempFolder folder;
  const std::wstring path = folder.file(L"unmarked.txt");
  writeBytes(path, utf16le(u"XYZ"));
  CSIFileUnicodeText file;
  ASSERT_TRUE(file.Open(path, kSIReadText));
  wchar_t buffer[8];
  EXPECT_EQ(file.ReadChars(buffer, 7), 2);
  EXPECT_STREQ(buffer, L"YZ");
}

TEST(SIFileUnicodeText, UpdateModeLeavesTheMarkAloneAndReadBinaryIsRefused) {
  TempFolder folder;
  const std::wstring path = folder.file(L"marked.txt");
  writeBytes(path, kMark + utf16le(u"ab"));
  CSIFileUnicodeText file;
  EXPECT_FALSE(file.Open(path, kSIReadBinary));
  EXPECT_FALSE(file.IsOpen());
  ASSERT_TRUE(file.Open(path, kSIUpdateBinary));
  wchar_t buffer[8];
  EXPECT_EQ(file.ReadChars(buffer, 7), 3);
  EXPECT_EQ(std::wstring(buffer), std::wstring(L"\xFEFF") + L"ab");
  file.Close();
  EXPECT_EQ(readBytes(path), kMark + utf16le(u"ab"));
}

TEST(SIFileUnicodeText, WideReadingEndsAtUFFFFAndBeforeALoneLastByte) {
  TempFolder folder;
  const std::wstring path = folder.file(L"ends.txt");
  writeBytes(path, kMark + utf16le(u"ab\uFFFFcd\r\n\uFFFFz") + "q");
  CSIFileUnicodeText file;
  ASSERT_TRUE(file.Open(path, kSIReadText));
  wchar_t buffer[16];
  EXPECT_EQ(file.ReadChars(buffer, 15), 2);
  EXPECT_STREQ(buffer, L"ab");
  EXPECT_EQ(readLine(file), L"cd\n");
  EXPECT_EQ(file.ReadString(buffer, 15), 0);
  EXPECT_EQ(file.ReadString(buffer, 15), 1);
  EXPECT_STREQ(buffer, L"z");
  EXPECT_EQ(file.ReadChars(buffer, 15), 0);
  EXPECT_STREQ(buffer, L"");
}

TEST(SIFileUnicodeText, LoneSurrogatesAreReadAsReplacementCharacters) {
  TempFolder folder;
  const std::wstring path = folder.file(L"surrogates.txt");
  writeBytes(path, kMark + utf16le(std::u16string{u'a', char16_t(0xD834), u'x', char16_t(0xDD1E), char16_t(0xD834)}));
  CSIFileUnicodeText file;
  ASSERT_TRUE(file.Open(path, kSIReadText));
  wchar_t buffer[8];
  ASSERT_EQ(file.ReadChars(buffer, 7), 5);
  EXPECT_EQ(std::wstring(buffer), L"a\uFFFDx\uFFFD\uFFFD");
}

// Where wchar_t is UTF-16 a pair needs two places: it is left for the next
// read rather than split.
TEST(SIFileUnicodeText, ACharacterBeyondTheBasicPlaneIsNeverSplit) {
  TempFolder folder;
  const std::wstring path = folder.file(L"clef.txt");
  writeBytes(path, kMark + utf16le(u"ab\U0001D11Ec"));
  const std::wstring clef = L"\U0001D11E";
  CSIFileUnicodeText file;
  ASSERT_TRUE(file.Open(path, kSIReadText));
  wchar_t buffer[8];
  const int first = file.ReadChars(buffer, 3);
  const std::wstring expected = clef.size() == 2 ? L"ab" : L"ab" + clef;
  EXPECT_EQ(std::wstring(buffer, static_cast<std::size_t>(first)), expected);
  const int rest = file.ReadChars(buffer, 7);
  EXPECT_EQ(std::wstring(buffer, static_cast<std::size_t>(rest)), clef.size() == 2 ? clef + L"c" : L"c");
}

TEST(SIFileUnicodeText, NarrowTextIsConvertedWithTheAnsiCodePage) {
  const std::string ansi = test::independentAnsi(u"Grüße – 5 €");
  if (ansi.empty()) GTEST_SKIP() << "the ANSI code page cannot hold the sample text";
  TempFolder folder;
  const std::wstring path = folder.file(L"narrow.txt");
  {
    CSIFileUnicodeText file;
    ASSERT_TRUE(file.Open(path, kSIWriteText));
    EXPECT_GE(file.WriteLine(ansi.c_str()), 0);
    EXPECT_GE(file.WriteStringZ(L"中"), 0);
  }
  EXPECT_EQ(readBytes(path), kMark + utf16le(u"Grüße – 5 €\r\n中") + std::string(2, '\0'));
  CSIFileUnicodeText file;
  ASSERT_TRUE(file.Open(path, kSIReadText));
  char buffer[64];
  EXPECT_EQ(file.ReadLine(buffer, 64), static_cast<int>(ansi.size()) + 1);
  EXPECT_EQ(std::string(buffer), ansi + "\n");
  EXPECT_EQ(file.ReadString(buffer, 63), 1);
  EXPECT_STREQ(buffer, "?");
}

}  // namespace
}  // namespace kvt1
