#include <gtest/gtest.h>

#include <string>

#include "platform/File.h"
#include "platform/Registry.h"
#include "settings/HelpFiles.h"
#include "settings/ProductKey.h"
#include "settings/SettingNumbers.h"
#include "settings/SettingsStore.h"
#include "tests/common/ProcessEnvironment.h"
#include "tests/tools/EmulatorSession.h"
#include "tools/kvt1-host/core/EmulatedHost.h"

namespace kvt1::emu {
namespace {

// The path with every backslash turned into a slash.
std::wstring slashed(std::wstring path) {
  for (wchar_t& c : path) {
    if (c == L'\\') c = L'/';
  }
  return path;
}

// The module folder as the queued LISP strings spell it.
std::wstring lispFolder() { return doubleBackslashes(splitModulePath(modulePath()).folder); }

TEST_F(EmulatorSession, AnswersCallsWithMessagesAndResults) {
  start();
  EXPECT_EQ(run(L"(kvt1_help)\n(kvt1_help 5)\n(kvt1_info 1)\n(kvt1_GetSettings \"##120\")\n"),
            L"less parameters provided\nnil\n"
            L"String expected as parameter...\n(0)\n"
            L"More parameters provided\nnil\n"
            L"\"1\"\n");
  EXPECT_EQ(session->faults(), 0);
}

TEST_F(EmulatorSession, StartCommandQueuesTheApplicationOnce) {
  start();
  const std::wstring folder = lispFolder();
  EXPECT_EQ(run(L"KVT1\n"), L"queued: (load \"" + folder +
                                L"kv_Menu.vlx\")\n"
                                L"queued: (kv_Menu-StartFromExe \"" +
                                folder +
                                L"\")\n"
                                L"queued: (load \"" +
                                folder + L"kv_start.vlx\")\n");
  EXPECT_EQ(run(L"KVT1\nkvt1\n"), L"");
}

TEST_F(EmulatorSession, DrawingsGetTheStartFileOnlyAfterTheStartCommand) {
  start();
  EXPECT_EQ(run(L"NEW\n"), L"");
  run(L"KVT1\n");
  EXPECT_EQ(run(L"NEW\n"), L"queued: (load \"" + lispFolder() + L"kv_start.vlx\")\n");
}

TEST_F(EmulatorSession, FunctionsBelongToEachOpenDrawing) {
  start();
  EXPECT_EQ(run(L"CLOSE\n(kvt1_info)\n"), L"; error: line 2: no function definition: kvt1_info\n");
  EXPECT_EQ(run(L"NEW\n(KVT1_GETSETTINGS \"##121\")\n"), L"\"0\"\n");  // LISP names compare without case
}

TEST_F(EmulatorSession, RegistersItsCommandAndRemovesItAtUnload) {
  start();
  const Command* command = EmulatedHost::instance().commandStack().find(L"KVT1");
  ASSERT_NE(command, nullptr);
  EXPECT_EQ(command->group, L"KVT1_COMMANDS");
  EXPECT_EQ(command->localName, L"KVT1");
  EXPECT_EQ(command->flags, 0);
  EXPECT_NE(command->resource, nullptr);

  session->unload();
  EXPECT_EQ(EmulatedHost::instance().commandStack().find(L"KVT1"), nullptr);
}

TEST_F(EmulatorSession, CleansTheEarlierInstallationFromTheSupportPath) {
  start(L"C:\\Data;C:\\Halvorn\\KVTools 2017\\Support;D:\\Fonts;c:\\kvtools\\lisp");
  EXPECT_EQ(run(L"(getenv \"ACAD\")\n"), L"\"C:\\\\Data;D:\\\\Fonts\"\n");
}

TEST_F(EmulatorSession, ReportsFaultyLinesAndGoesOn) {
  start();
  EXPECT_EQ(run(L"(nosuch 1)\n(kvt1_help \"x\"\n(kvt1_support))\nBOGUS\n(kvt1_GetSettings \"##121\")\n"),
            L"; error: line 1: no function definition: nosuch\n"
            L"; error: line 2: unbalanced parentheses: '(' is not closed\n"
            L"shell open: https://www.halvorn.aero/support/kvt (show 3)\n(0)\n"
            L"; error: line 3: unbalanced parentheses: ')' closes nothing\n"
            L"; error: line 4: unknown command: BOGUS\n"
            L"\"0\"\n");
  EXPECT_EQ(session->faults(), 4);
}

TEST_F(EmulatorSession, EchoesEachLineAsTheCommandLineShowsIt) {
  start();
  session->setEcho(true);
  EXPECT_EQ(run(L"(kvt1_info \"a\")\nNEW\n"),
            L"Command: (kvt1_info \"a\")\nMore parameters provided\nnil\nCommand: NEW\n");
}

TEST_F(EmulatorSession, GivesTheUserADataFolderAtFirstStart) {
  start();
  session->unload();
  std::wstring userData;
  ASSERT_EQ(SettingsStore().readString(kSettingUserDataPath, userData), 0);
  EXPECT_NE(userData.find(L"Halvorn Systems\\KVT 1"), std::wstring::npos);
}

// The user's own DataPath stays as the user wrote it, start after start,
// however long, and stored expandable it is expanded; a folder that cannot
// be made keeps the module from starting.
TEST(EmulatorLoad, KeepsTheUsersOwnDataFolder) {
  testing::setProcessEnvironment("KVT1_TEST_ROOT", "expanded");
  struct Case {
    const char* what;
    std::wstring below;  // the value, below the installation's folder
    std::uint32_t type;
    std::wstring folder;  // the folder the module uses, below the installation's folder
    bool starts;
  };
  const std::wstring deep = L"\\" + std::wstring(140, L'd');
  const Case cases[] = {
      {"150 characters", deep, platform::kRegSz, deep, true},
      {"expandable", L"\\%KVT1_TEST_ROOT%\\user", platform::kRegExpandSz, L"\\expanded\\user", true},
      {"below a file", L"\\file.txt\\user", platform::kRegSz, L"", false},
  };
  for (const Case& c : cases) {
    testing::TestInstallation installation;
    installation.writeFile(L"file.txt", "not a folder");
    const std::wstring value = installation.folder() + c.below;
    {
      platform::RegistryKey user;
      ASSERT_EQ(platform::RegistryKey::create(platform::RegistryRoot::CurrentUser, productKeyPath(),
                                              platform::RegistryAccess::Full, user),
                platform::kRegSuccess);
      ASSERT_EQ(user.setValue(L"DataPath", c.type, value.c_str(),
                              static_cast<std::uint32_t>((value.size() + 1) * sizeof(wchar_t))),
                platform::kRegSuccess);
    }
    for (int run = 0; run < 10; ++run) {
      std::wstring output;
      Session session([&](const std::wstring& text) { output += text; });
      EXPECT_EQ(session.load(modulePath()), c.starts) << c.what << platform::toUtf8(output);
      session.unload();
    }
    std::wstring stored;
    ASSERT_EQ(SettingsStore().readString(kSettingUserDataPath, stored), 0) << c.what;
    if (c.starts) {
      EXPECT_EQ(stored, installation.folder() + c.folder) << c.what;
      std::FILE* probe = platform::openFile(stored + L"\\probe.txt", "wb");  // opens only in an existing folder
      EXPECT_NE(probe, nullptr) << c.what;
      if (probe != nullptr) std::fclose(probe);
    } else {
      EXPECT_EQ(stored, value) << c.what;
    }
  }
}

// A UTF-8 map with a byte order mark and a NUL line: every record is found,
// the first one too, and names compare in lower case beyond A-Z.
TEST_F(EmulatorSession, HelpFindsEveryRecordOfAnyMap) {
  installation.writeFile(L"Program\\KVTHelpID.csv", "\xEF\xBB\xBF\xC3\x84rgerDlg,kv_aerger,aerger.htm,10130\n" +
                                                        std::string(1, '\0') +
                                                        "\nAirportDialog,kv_airport,airport.htm,10120\n");
  installation.writeFile(L"Data\\Help\\KVT.chm", "ITSF");
  start();
  SettingsStore settings;
  const std::wstring help = productHelpFile(settings);
  EXPECT_EQ(run(L"(kvt1_help \"\u00e4rgerdlg\")\n(kvt1_help \"AIRPORTDIALOG\")\n"),
            L"help: topic 10130 of " + help + L"\n(0)\nhelp: topic 10120 of " + help + L"\n(0)\n");
}

TEST_F(EmulatorSession, HelpOpensTopicsOrTheContents) {
  installation.writeFile(L"Program\\KVTHelpID.csv", "_debug,,,0\nAirportDialog,kv_airport,airport.htm,10120\n");
  installation.writeFile(L"Data\\Help\\KVT.chm", "ITSF");
  // The module joins folders and file names with the system's separator.
#ifdef _WIN32
  const std::wstring help = installation.dataFolder() + L"\\Help\\KVT.chm";
#else
  const std::wstring help = installation.dataFolder() + L"/Help/KVT.chm";
#endif
  start();
  EXPECT_EQ(run(L"(kvt1_help \"AirportDialog\")\n(kvt1_help \"NoSuchDialog\")\n"),
            L"HelpMapping; Dialog:AirportDialog  Id:10120\nhelp: topic 10120 of " + help +
                L"\n(0)\n"
                L"HelpMapping; Dialog:NoSuchDialog  NotFound\nhelp: contents of " +
                help + L"\n(0)\n");
  EXPECT_EQ(run(L"(kvt1_setfunhelp \"c:kv_airport\" \"AIRPORT\")\n(kvt1_setfunhelp \"c:x\" \"runway\")\n"),
            L"HelpMapping; Command:AIRPORT  Topic:airport.htm\n"
            L"function help: c:kv_airport -> topic \"airport.htm\" of " +
                slashed(help) +
                L"\n(0)\n"
                L"HelpMapping; Command:runway  Not found\n(0)\n");
  const auto& recorded = EmulatedHost::instance().functionHelp();
  ASSERT_EQ(recorded.size(), 1u);
  EXPECT_EQ(recorded[0].function, L"c:kv_airport");
  EXPECT_EQ(recorded[0].topic, L"airport.htm");
  EXPECT_EQ(recorded[0].helpFile, slashed(help));  // forward slashes only
}

TEST_F(EmulatorSession, OpensTheSupportPageMaximised) {
  start();
  EXPECT_EQ(run(L"(kvt1_support)\n"), L"shell open: https://www.halvorn.aero/support/kvt (show 3)\n(0)\n");
}

TEST(EmulatorLoad, AModuleWithoutAnInstallationRefusesToStart) {
  testing::TestInstallation notInstalled(false);
  std::wstring output;
  Session session([&](const std::wstring& text) { output += text; });
  EXPECT_FALSE(session.load(modulePath()));
  EXPECT_EQ(output, L"; error: line 0: the module refused to initialise (kRetError); the host unloads it\n");
  EXPECT_EQ(EmulatedHost::instance().commandStack().find(L"KVT1"), nullptr);
}

TEST(EmulatorLoad, RefusesAFileThatIsNoModule) {
  std::wstring output;
  Session session([&](const std::wstring& text) { output += text; });
  EXPECT_FALSE(session.load(modulePath() + L".missing"));
  EXPECT_EQ(output.rfind(L"; error: line 0: cannot load the module: ", 0), 0u);
}

}  // namespace
}  // namespace kvt1::emu
