#include "settings/CHelpTopicMap.h"

#include <gtest/gtest.h>

#include "tests/common/TestInstallation.h"

namespace kvt1 {
namespace {

TEST(HelpTopicMap, ParsesFieldsTrimmedAndLowerCased) {
  const SHelpTopic full = parseHelpTopicLine(L"  AirportDialog , KV_Airport ,Airport.htm, 10120\r\n");
  EXPECT_EQ(full.dialog, L"airportdialog");
  EXPECT_EQ(full.command, L"kv_airport");
  EXPECT_EQ(full.topic, L"airport.htm");
  EXPECT_EQ(full.id, 10120);

  const SHelpTopic shortLine = parseHelpTopicLine(L"OnlyDialog");
  EXPECT_EQ(shortLine.dialog, L"onlydialog");
  EXPECT_EQ(shortLine.command, L"");
  EXPECT_EQ(shortLine.id, 0);

  EXPECT_EQ(parseHelpTopicLine(L"a,b,c,twelve").id, 0);
  EXPECT_EQ(parseHelpTopicLine(L"a,b,c,12,extra,fields").id, 12);
  EXPECT_EQ(parseHelpTopicLine(L",,,-3").id, -3);
}

TEST(HelpTopicMap, FindsTheFirstMatchByDialogOrCommandPart) {
  testing::TestInstallation installation;
  const std::wstring file = installation.writeFile(L"map.csv",
                                                   "Main,kv_main,main.htm,100\r\n"
                                                   "\r\n"
                                                   "   \r\n"
                                                   "Obstacles,kv_obstacle_list,obstacles.htm,200\r\n"
                                                   "Surfaces,kv_obstacle_surfaces,surfaces.htm,300\r\n");
  CHelpTopicMap map;
  map.load(file);
  EXPECT_FALSE(map.logging());
  ASSERT_EQ(map.records().size(), 3u);  // blank lines hold no record

  SHelpTopic topic;
  EXPECT_TRUE(map.findByDialog(L"MAIN", topic));
  EXPECT_EQ(topic.id, 100);
  EXPECT_FALSE(map.findByDialog(L"Mai", topic));  // dialogs match whole names
  EXPECT_TRUE(map.findByCommand(L"OBSTACLE", topic));
  EXPECT_EQ(topic.topic, L"obstacles.htm");  // the first of two lines holding it
  EXPECT_TRUE(map.findByCommand(L"surf", topic));
  EXPECT_EQ(topic.id, 300);
  EXPECT_FALSE(map.findByCommand(L"runway", topic));
}

TEST(HelpTopicMap, DebugLineSwitchesLoggingAndRereadsBeforeEachLookup) {
  testing::TestInstallation installation;
  const std::wstring file = installation.writeFile(L"map.csv", "_debug,,,0\nMain,kv_main,main.htm,100\n");
  CHelpTopicMap map;
  map.load(file);
  EXPECT_TRUE(map.logging());
  ASSERT_EQ(map.records().size(), 1u);

  installation.writeFile(L"map.csv", "_debug,,,0\nMain,kv_main,main.htm,101\n");
  SHelpTopic topic;
  EXPECT_TRUE(map.findByDialog(L"main", topic));
  EXPECT_EQ(topic.id, 101);
}

TEST(HelpTopicMap, MissingFilesAndLongLines) {
  testing::TestInstallation installation;
  CHelpTopicMap map;
  map.load(installation.folder() + L"\\none.csv");
  EXPECT_TRUE(map.records().empty());

  // A file beyond any map's size is no map: nothing is read from it.
  map.load(installation.writeFile(L"huge.csv", "Main,kv_main,m.htm,1\n" + std::string(16 << 20, ' ')));
  EXPECT_TRUE(map.records().empty());

  const std::string longTopic(5000, 't');
  map.load(installation.writeFile(L"long.csv", "Long,kv_long," + longTopic + ",7\nNext,kv_next,next.htm,8\n"));
  ASSERT_EQ(map.records().size(), 2u);
  EXPECT_EQ(map.records()[0].topic.size(), 5000u);
  EXPECT_EQ(map.records()[0].id, 7);
  EXPECT_EQ(map.records()[1].id, 8);
}

// Every record of these maps is found: encodings with and without a mark,
// NUL bytes at a line's start or inside one, names beyond A-Z.
TEST(HelpTopicMap, KeepsEveryRecordWhateverTheEncoding) {
  struct Case {
    const char* what;
    std::string bytes;
  };
  const std::string lines = "\xC3\x84rgerDlg,kv_\xC3\xA4rger,a.htm,1\r\nMain,kv_main,m.htm,2\r\n";
  std::string utf16 = "\xFF\xFE";
  for (const char* c = "\xC4rgerDlg,kv_\xE4rger,a.htm,1\r\nMain,kv_main,m.htm,2\r\n"; *c != '\0'; ++c) {
    utf16 += *c;
    utf16 += '\0';
  }
  const Case cases[] = {
      {"UTF-8 without a mark", lines},
      {"UTF-8 with a mark", "\xEF\xBB\xBF" + lines},
      {"UTF-16 with a mark", utf16},
      {"the ANSI code page", "\xC4rgerDlg,kv_\xE4rger,a.htm,1\r\nMain,kv_main,m.htm,2\r\n"},
      {"a NUL line between",
       "\xC3\x84rgerDlg,kv_\xC3\xA4rger,a.htm,1\n" + std::string(1, '\0') + "\nMain,kv_main,m.htm,2\n"},
      {"a NUL inside a line",
       "\xC3\x84rgerDlg,kv_\xC3\xA4rger,a.htm,1,x" + std::string(1, '\0') + "y\nMain,kv_main,m.htm,2\n"},
  };
  for (const Case& c : cases) {
    testing::TestInstallation installation;
    CHelpTopicMap map;
    map.load(installation.writeFile(L"map.csv", c.bytes));
    SHelpTopic topic;
    EXPECT_TRUE(map.findByDialog(L"\u00e4rgerdlg", topic)) << c.what;
    EXPECT_EQ(topic.id, 1) << c.what;
    EXPECT_TRUE(map.findByCommand(L"KV_\u00c4RGER", topic)) << c.what;
    EXPECT_TRUE(map.findByDialog(L"MAIN", topic)) << c.what;
    EXPECT_EQ(topic.id, 2) << c.what;
  }
}

TEST(HelpTopicMap, ReadsALargeMapToItsLastLine) {
  testing::TestInstallation installation;
  std::string map;
  for (int i = 0; map.size() < 5 * 1024 * 1024; ++i) {
    map += "Dialog" + std::to_string(i) + ",kv_command_" + std::to_string(i) + ",topic.htm," + std::to_string(i) + "\n";
  }
  map += "LastDialog,kv_last,last.htm,99999\n";
  CHelpTopicMap helpMap;
  helpMap.load(installation.writeFile(L"big.csv", map));
  SHelpTopic topic;
  EXPECT_TRUE(helpMap.findByDialog(L"LastDialog", topic));
  EXPECT_EQ(topic.id, 99999);
}

}  // namespace
}  // namespace kvt1
