#include "settings/HelpFiles.h"

#include <gtest/gtest.h>

#include "platform/FilePath.h"
#include "platform/MessageBox.h"
#include "platform/Resources.h"
#include "settings/SettingsStore.h"
#include "tests/common/BesideProgram.h"
#include "tests/common/HeadlessRecorder.h"
#include "tests/common/TestInstallation.h"
#include "text/MessageDescription.h"
#include "text/TextResources.h"

namespace kvt1 {
namespace {

// The module joins the installation's folders and its file names with the system's separator.
const std::wstring kSep(1, platform::kFolderSeparator);

class HelpFiles : public ::testing::Test {
 protected:
  void SetUp() override {
    testing::headless() = {};
    installation.writeFile(L"Data\\Help\\KVT.chm", "ITSF");
    installation.writeFile(L"Data\\Help\\installation.chm", "ITSF");
    productHelp = installation.dataFolder() + kSep + L"Help" + kSep + L"KVT.chm";
    installationHelp = installation.dataFolder() + kSep + L"Help" + kSep + L"installation.chm";
  }

  std::vector<std::wstring>& requests() { return testing::headless().helpRequests; }

  testing::TestInstallation installation;
  SettingsStore settings;
  std::wstring productHelp;
  std::wstring installationHelp;
};

TEST_F(HelpFiles, NamesTheInstallationsFiles) {
  EXPECT_EQ(productHelpFile(settings), productHelp);
  EXPECT_EQ(installationHelpFile(settings), installationHelp);
  EXPECT_EQ(helpMapFile(settings), installation.programFolder() + kSep + L"KVTHelpID.csv");
}

TEST_F(HelpFiles, ShowsAKnownTopic) {
  testing::headless().knownTopics = {42};
  showHelp(settings, 42, false);
  EXPECT_EQ(requests(), std::vector<std::wstring>{L"context 42 " + productHelp});
}

TEST_F(HelpFiles, UnknownTopicsFallBackToTheContents) {
  showHelp(settings, 42, false);
  showHelp(settings, 0, false);
  EXPECT_EQ(requests(), (std::vector<std::wstring>{L"context 42 " + productHelp, L"contents " + productHelp,
                                                   L"contents " + productHelp}));
}

TEST_F(HelpFiles, TopicsOfTheSeries10100TryTheirFirstTopic) {
  testing::headless().knownTopics = {10100};
  showHelp(settings, 10105, false);
  showHelp(settings, 10107, false);
  EXPECT_EQ(requests(), (std::vector<std::wstring>{L"context 10105 " + productHelp, L"context 10100 " + productHelp,
                                                   L"context 10107 " + productHelp, L"contents " + productHelp}));
}

TEST_F(HelpFiles, InstallationTopicsOnlyWhenAllowed) {
  testing::headless().knownTopics = {10};
  showHelp(settings, 10, true);
  showHelp(settings, 10, false);
  showHelp(settings, 14, true);
  EXPECT_EQ(requests(), (std::vector<std::wstring>{L"context 10 " + installationHelp, L"context 10 " + productHelp,
                                                   L"context 14 " + productHelp, L"contents " + productHelp}));
}

TEST_F(HelpFiles, AMissingHelpFileIsReportedWithTheInstalledText) {
  platform::DynamicLibrary english = testing::loadBesideProgram(KVT1_ENGLISH_TEXTS);
  ASSERT_TRUE(english.isLoaded());
  platform::setResourceModule(english.image());
  NTxtRes::SetApplicationTitle(L"KVT");
  // Placeholders in the path are part of the path, not of the text.
  for (const wchar_t* dataFolder : {L"Data", L"Data %d %s"}) {
    testing::headless() = {};
    testing::TestInstallation elsewhere(true, dataFolder);  // an installation without help files
    SettingsStore other;
    showHelp(other, 7, false);
    EXPECT_TRUE(requests().empty());
    ASSERT_EQ(testing::headless().messages.size(), 1u);
    EXPECT_EQ(testing::headless().messages[0],
              L"KVT: Product help file '" + productHelpFile(other) + L"[7]' was not found");
    EXPECT_EQ(testing::headless().messageTypes[0], platform::kMbIconWarning | platform::kMbOk);
  }
  NTxtRes::ReleaseTextDocument();
  platform::setResourceModule(nullptr);
}

// Folders with letters beyond ASCII, and machine paths longer than other settings may be.
TEST(HelpFilesAbroad, FindsHelpInFoldersOfAnyNameAndLength) {
  for (const std::wstring& dataFolder : {std::wstring(L"Donn\u00e9es \u00c5r \u0416"), std::wstring(120, L'd')}) {
    testing::headless() = {};
    testing::TestInstallation installation(true, dataFolder);
    installation.writeFile(dataFolder + L"\\Help\\KVT.chm", "ITSF");
    const std::wstring help = installation.dataFolder() + kSep + L"Help" + kSep + L"KVT.chm";
    SettingsStore settings;
    showHelp(settings, 0, false);
    EXPECT_TRUE(testing::headless().messages.empty());
    EXPECT_EQ(testing::headless().helpRequests, std::vector<std::wstring>{L"contents " + help});
  }
}

}  // namespace
}  // namespace kvt1
