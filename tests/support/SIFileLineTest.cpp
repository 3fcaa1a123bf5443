// Lines and NUL-terminated strings in all four classes and both widths.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "support/CSIFileMBCSBin.h"
#include "support/CSIFileMBCSText.h"
#include "support/CSIFileUnicodeBin.h"
#include "support/CSIFileUnicodeText.h"
#include "support/SIFileMode.h"
#include "tests/support/SIFileTestSupport.h"

namespace kvt1 {
namespace {

using test::readBytes;
using test::TempFolder;
using test::writeBytes;

struct FileKind {
  const char* name;
  std::function<std::unique_ptr<CSIFileImpl>()> make;
  bool unicode;
  bool text;
};

std::ostream& operator<<(std::ostream& out, const FileKind& kind) { return out << kind.name; }

// The bytes of an ASCII text in the kind's encoding, with the mark of a Unicode text file.
std::string encode(const FileKind& kind, const std::string& ascii) {
  if (!kind.unicode) return ascii;
  const std::string units = test::utf16le(std::u16string(ascii.begin(), ascii.end()));
  return kind.text ? "\xFF\xFE" + units : units;
}

class SIFileLines : public testing::TestWithParam<FileKind> {
 protected:
  std::unique_ptr<CSIFileImpl> openWith(const std::string& ascii) {
    writeBytes(m_path, encode(GetParam(), ascii));
    std::unique_ptr<CSIFileImpl> file = GetParam().make();
    EXPECT_TRUE(file->Open(m_path, GetParam().text ? kSIReadText : kSIReadBinary));
    return file;
  }
  template <typename Char>
  static std::basic_string<Char> line(CSIFileImpl& file, int count) {
    std::basic_string<Char> buffer(static_cast<std::size_t>(count) + 1, Char('#'));
    const int length = file.ReadLine(buffer.data(), count);
    EXPECT_EQ(buffer[static_cast<std::size_t>(length)], Char(0));
    return buffer.substr(0, static_cast<std::size_t>(length));
  }

  TempFolder m_folder;
  std::wstring m_path = m_folder.file(L"lines.txt");
};

TEST_P(SIFileLines, ReadLineTurnsCrLfIntoLfOnlyInTextFiles) {
  std::unique_ptr<CSIFileImpl> file = openWith("abc\r\nabc\nabc");
  const bool text = GetParam().text;
  EXPECT_EQ(line<char>(*file, 64), text ? "abc\n" : "abc\r\n");
  EXPECT_EQ(line<wchar_t>(*file, 64), L"abc\n");
  EXPECT_EQ(line<char>(*file, 64), "abc");
  EXPECT_EQ(line<wchar_t>(*file, 64), L"");
}

TEST_P(SIFileLines, LongLinesArriveInPiecesOfTheBufferSize) {
  std::unique_ptr<CSIFileImpl> file = openWith("abcdefg\r\nab\r\nh\r\n");
  const bool text = GetParam().text;
  EXPECT_EQ(line<wchar_t>(*file, 4), L"abc");
  EXPECT_EQ(line<char>(*file, 4), "def");
  EXPECT_EQ(line<wchar_t>(*file, 4), text ? L"g\n" : L"g\r\n");
  // A CR that fills the buffer still finds its LF in a text file.
  EXPECT_EQ(line<char>(*file, 4), text ? "ab\n" : "ab\r");
  if (!text) {
    EXPECT_EQ(line<char>(*file, 4), "\n");
  }
  EXPECT_EQ(line<char>(*file, 1), "");
  EXPECT_EQ(line<char>(*file, 4), text ? "h\n" : "h\r\n");
  EXPECT_EQ(line<char>(*file, 4), "");
}

TEST_P(SIFileLines, WriteLineEndsWithCrLfOnlyInTextFiles) {
  std::unique_ptr<CSIFileImpl> file = GetParam().make();
  ASSERT_TRUE(file->Open(m_path, GetParam().text ? kSIWriteText : kSIWriteBinary));
  EXPECT_GE(file->WriteLine(L"wide"), 0);
  EXPECT_GE(file->WriteLine("narrow"), 0);
  EXPECT_GE(file->WriteStringAndChar(L"x", L';'), 0);
  EXPECT_GE(file->WriteStringAndChar("y", '.'), 0);
  file->Close();
  const char* end = GetParam().text ? "\r\n" : "\n";
  EXPECT_EQ(readBytes(m_path), encode(GetParam(), std::string("wide") + end + "narrow" + end + "x;y."));
}

TEST_P(SIFileLines, ReadStringReturnsTheTextsOfWriteStringZOneByOne) {
  std::unique_ptr<CSIFileImpl> writer = GetParam().make();
  ASSERT_TRUE(writer->Open(m_path, GetParam().text ? kSIWriteText : kSIWriteBinary));
  EXPECT_GE(writer->WriteStringZ(L"first"), 0);
  EXPECT_GE(writer->WriteStringZ("second"), 0);
  EXPECT_GE(writer->WriteStringZ(L""), 0);
  EXPECT_GE(writer->WriteStringAndChar("third", '\0'), 0);
  writer->Close();

  std::unique_ptr<CSIFileImpl> reader = GetParam().make();
  ASSERT_TRUE(reader->Open(m_path, GetParam().text ? kSIReadText : kSIReadBinary));
  char narrow[16];
  wchar_t wide[16];
  EXPECT_EQ(reader->ReadString(narrow, 15), 5);
  EXPECT_STREQ(narrow, "first");
  EXPECT_EQ(reader->ReadString(wide, 15), 6);
  EXPECT_STREQ(wide, L"second");
  EXPECT_EQ(reader->ReadString(wide, 15), 0);
  EXPECT_EQ(reader->ReadString(narrow, 3), 3);  // stops at count, NUL stored after it
  EXPECT_STREQ(narrow, "thi");
  EXPECT_EQ(reader->ReadString(narrow, 15), 2);
  EXPECT_STREQ(narrow, "rd");
  EXPECT_EQ(reader->ReadString(narrow, 15), 0);
}

INSTANTIATE_TEST_SUITE_P(
    AllClasses, SIFileLines,
    testing::Values(FileKind{"MBCSBin", [] { return std::make_unique<CSIFileMBCSBin>(); }, false, false},
                    FileKind{"MBCSText", [] { return std::make_unique<CSIFileMBCSText>(); }, false, true},
                    FileKind{"UnicodeBin", [] { return std::make_unique<CSIFileUnicodeBin>(); }, true, false},
                    FileKind{"UnicodeText", [] { return std::make_unique<CSIFileUnicodeText>(); }, true, true}),
    [](const testing::TestParamInfo<FileKind>& kind) { return std::string(kind.param.name); });

}  // namespace
}  // namespace kvt1
