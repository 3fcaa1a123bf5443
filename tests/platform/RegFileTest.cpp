#include "platform/RegFile.h"

#include <gtest/gtest.h>

#include "platform/RegFileData.h"
#include "platform/Registry.h"
#include "platform/Unicode.h"

namespace kvt1::platform {
namespace {

RegValue stringValue(const std::wstring& name, std::uint32_t type, const std::wstring& textWithNul) {
  return RegValue{name, type, regStringData(textWithNul)};
}

// The text with the terminating NUL of the literal, and any NULs inside it.
template <std::size_t N>
std::wstring withNul(const wchar_t (&text)[N]) {
  return std::wstring(text, N);
}

RegValue bytesValue(const std::wstring& name, std::uint32_t type, std::vector<unsigned char> bytes) {
  return RegValue{name, type, std::move(bytes)};
}

// The text of a written file, after checking its byte order mark.
std::wstring textOf(const std::string& file) {
  EXPECT_EQ(file.substr(0, 2), "\xFF\xFE");
  return fromUtf16(std::string_view(file).substr(2));
}

std::string utf16File(const std::wstring& text) { return "\xFF\xFE" + toUtf16(text); }

std::vector<std::wstring> linesOf(const std::wstring& text) {
  std::vector<std::wstring> lines;
  std::size_t start = 0;
  for (std::size_t end = text.find(L"\r\n"); end != std::wstring::npos; end = text.find(L"\r\n", start)) {
    lines.push_back(text.substr(start, end - start));
    start = end + 2;
  }
  EXPECT_EQ(start, text.size()) << "the text ends without CRLF";
  return lines;
}

void expectSameValues(const std::vector<RegValue>& actual, const std::vector<RegValue>& expected) {
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(actual[i].name, expected[i].name);
    EXPECT_EQ(actual[i].type, expected[i].type);
    EXPECT_EQ(actual[i].data, expected[i].data);
    EXPECT_EQ(actual[i].remove, expected[i].remove);
  }
}

TEST(RegFile, WritesAsRegeditDoes) {
  RegSection section;
  section.path = L"HKEY_CURRENT_USER\\Software\\Halvorn Systems Test";
  section.values = {stringValue(L"Path", kRegSz, withNul(L"C:\\Program Files\\\"KVT1\"")),
                    stringValue(L"", kRegSz, withNul(L"default")), bytesValue(L"Count", kRegDword, {0x2A, 0, 0, 0x80}),
                    bytesValue(L"Data", kRegBinary, {0x00, 0xFF, 0x10}),
                    stringValue(L"Expand", kRegExpandSz, withNul(L"%A%"))};
  RegSection empty;
  empty.path = L"HKEY_CURRENT_USER\\Software\\Halvorn Systems Test\\Empty";

  EXPECT_EQ(textOf(writeRegFile({section, empty})),
            L"Windows Registry Editor Version 5.00\r\n\r\n"
            L"[HKEY_CURRENT_USER\\Software\\Halvorn Systems Test]\r\n"
            L"\"Path\"=\"C:\\\\Program Files\\\\\\\"KVT1\\\"\"\r\n"
            L"@=\"default\"\r\n"
            L"\"Count\"=dword:8000002a\r\n"
            L"\"Data\"=hex:00,ff,10\r\n"
            L"\"Expand\"=hex(2):25,00,41,00,25,00,00,00\r\n"
            L"\r\n"
            L"[HKEY_CURRENT_USER\\Software\\Halvorn Systems Test\\Empty]\r\n"
            L"\r\n");
}

TEST(RegFile, WrapsLongHexDataAtRegeditsWidth) {
  std::vector<unsigned char> bytes(200);
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<unsigned char>(i);
  RegSection section;
  section.path = L"HKEY_CURRENT_USER\\Long";
  section.values = {bytesValue(L"ShellState", kRegBinary, bytes)};

  const std::vector<std::wstring> lines = linesOf(textOf(writeRegFile({section})));
  ASSERT_EQ(lines.size(), 13u);  // header, blank, key, 9 lines of data, blank
  EXPECT_EQ(lines[3].substr(0, 30), L"\"ShellState\"=hex:00,01,02,03,0");
  for (std::size_t i = 3; i < 11; ++i) {
    SCOPED_TRACE(lines[i]);
    EXPECT_EQ(lines[i].size(), 78u);
    EXPECT_EQ(lines[i].substr(lines[i].size() - 2), L",\\");
  }
  EXPECT_EQ(lines[4].substr(0, 5), L"  14,");
  EXPECT_EQ(lines[11], L"  c3,c4,c5,c6,c7");
}

TEST(RegFile, EveryKindOfValueReadsBackAsWritten) {
  RegSection section;
  section.path = L"HKEY_CURRENT_USER\\Software\\K\u00e9y \u4e2d";
  section.values = {
      stringValue(L"plain", kRegSz, withNul(L"caf\u00e9 \U0001F600 \\ \"q\"")),
      stringValue(L"no NUL", kRegSz, L"abc"),
      stringValue(L"inner NUL", kRegSz, withNul(L"a\0b")),
      stringValue(L"line break", kRegSz, withNul(L"one\r\ntwo")),
      stringValue(L"empty", kRegSz, withNul(L"")),
      stringValue(L"expand", kRegExpandSz, withNul(L"%APPDATA%\\Halvorn")),
      stringValue(L"multi", kRegMultiSz, withNul(L"one\0two\0")),
      bytesValue(L"short dword", kRegDword, {1, 2}),
      bytesValue(L"qword", 11, {1, 2, 3, 4, 5, 6, 7, 8}),
      bytesValue(L"none", 0, {}),
      bytesValue(L"empty binary", kRegBinary, {}),
      bytesValue(L"name with \\ and \" and\nbreak", kRegBinary, {7}),
  };
  RegSection removed;
  removed.path = L"HKEY_CURRENT_USER\\Gone";
  removed.remove = true;
  section.values.push_back(RegValue{L"stale", 0, {}, true});

  std::vector<RegSection> read;
  RegFileError error;
  ASSERT_TRUE(parseRegFile(writeRegFile({section, removed}), read, error)) << error.line << ": " << error.message;
  ASSERT_EQ(read.size(), 2u);
  EXPECT_EQ(read[0].path, section.path);
  EXPECT_EQ(read[0].line, 3u);
  expectSameValues(read[0].values, section.values);
  EXPECT_TRUE(read[1].remove);
  EXPECT_EQ(read[1].path, L"HKEY_CURRENT_USER\\Gone");
}

TEST(RegFile, ReadsUtf8AndHandWrittenFiles) {
  const std::string text =
      "Windows Registry Editor Version 5.00\n"
      "; a comment\n"
      "\n"
      "[HKEY_LOCAL_MACHINE\\Software\\Halvorn Systems\\KVT1\\1.1\\CAD]\n"
      "\"ProgramPath\" = \"C:\\\\Programme\\\\K\xC3\xA4\"\r\n"
      "  \"Level\"=DWORD:1f\n"
      "\"Bytes\"=HEX:01,02 , 0a,\\\n"
      "   ff\n"
      "\"Escapes\"=\"a\\nb\\q\"\n";
  for (const std::string& file : {text, "\xEF\xBB\xBF" + text}) {
    std::vector<RegSection> sections;
    RegFileError error;
    ASSERT_TRUE(parseRegFile(file, sections, error)) << error.line << ": " << error.message;
    ASSERT_EQ(sections.size(), 1u);
    EXPECT_EQ(sections[0].line, 4u);
    expectSameValues(sections[0].values, {stringValue(L"ProgramPath", kRegSz, withNul(L"C:\\Programme\\K\u00e4")),
                                          bytesValue(L"Level", kRegDword, {0x1F, 0, 0, 0}),
                                          bytesValue(L"Bytes", kRegBinary, {1, 2, 10, 0xFF}),
                                          stringValue(L"Escapes", kRegSz, withNul(L"a\nb\\q"))});
  }
}

struct BrokenFile {
  const char* what;
  std::string bytes;
  std::size_t line;
  std::size_t sectionsBefore;
};

TEST(RegFile, BrokenFilesStopAtTheLineThatFails) {
  const std::string header = "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\A]\r\n\"x\"=dword:1\r\n";
  const std::string full =
      utf16File(L"Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\A]\r\n@=\"v\"\r\n");
  const BrokenFile cases[] = {
      {"no header", "REGEDIT4\r\n[HKEY_CURRENT_USER\\A]\r\n", 1, 0},
      {"nothing at all", "", 1, 0},
      {"stray text", header + "[HKEY_CURRENT_USER\\B]\r\nnot a value\r\n", 6, 2},
      {"open quote", header + "\"name=\"v\"\r\n", 5, 1},
      {"string cut short", header + "\"name\"=\"v\r\n", 5, 1},
      {"long dword", header + "\"d\"=dword:123456789\r\n", 5, 1},
      {"bad hex", header + "\"h\"=hex:01,zz\r\n", 5, 1},
      {"hex cut after one digit", header + "\"h\"=hex:01,0\r\n", 5, 1},
      {"hex ending in a comma", header + "\"h\"=hex:01,02,\r\n", 5, 1},
      {"hex cut after a continuation", header + "\"h\"=hex:01,02,\\\r\n", 5, 1},
      {"key without ]", header + "[HKEY_CURRENT_USER\\B\r\n", 5, 1},
      {"value before any key", "Windows Registry Editor Version 5.00\r\n\"x\"=\"y\"\r\n", 2, 0},
      {"unknown data", header + "\"q\"=qword:1\r\n", 5, 1},
      {"odd UTF-16 byte count", full + "x", 4, 1},
  };
  for (const BrokenFile& broken : cases) {
    SCOPED_TRACE(broken.what);
    std::vector<RegSection> sections;
    RegFileError error;
    EXPECT_FALSE(parseRegFile(broken.bytes, sections, error));
    EXPECT_EQ(error.line, broken.line);
    EXPECT_FALSE(error.message.empty());
    EXPECT_EQ(sections.size(), broken.sectionsBefore);
  }
}

}  // namespace
}  // namespace kvt1::platform
