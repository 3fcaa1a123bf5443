#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

#include "platform/CaseFolding.h"
#include "platform/File.h"
#include "platform/RegFile.h"
#include "platform/Registry.h"
#include "platform/ThisModule.h"
#include "settings/ProductKey.h"
#include "settings/SettingNumbers.h"

namespace kvt1 {
namespace {

TEST(InstallerFile, HoldsEveryMachineSettingUnderTheProductKey) {
  const std::wstring path =
      (std::filesystem::path(platform::thisModulePath()).parent_path() / L"kvt1-machine.reg").wstring();
  std::FILE* file = platform::openFile(path, "rb");
  ASSERT_NE(file, nullptr);
  std::string bytes;
  char buffer[4096];
  for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, file)) > 0;) bytes.append(buffer, n);
  std::fclose(file);
  ASSERT_EQ(bytes.substr(0, 2), "\xFF\xFE");  // UTF-16LE, as regedit writes and reads it

  std::vector<platform::RegSection> sections;
  platform::RegFileError error;
  ASSERT_TRUE(platform::parseRegFile(bytes, sections, error)) << error.message;
  ASSERT_EQ(sections.size(), 1u);
  EXPECT_EQ(platform::upperCase(sections[0].path), platform::upperCase(L"HKEY_LOCAL_MACHINE\\" + productKeyPath()));

  std::vector<std::wstring> names;
  for (const platform::RegValue& value : sections[0].values) {
    EXPECT_EQ(value.type, platform::kRegSz) << std::string(value.name.begin(), value.name.end());
    EXPECT_FALSE(platform::regStringUnits(value.data).empty());
    names.push_back(value.name);
  }
  EXPECT_EQ(names,
            (std::vector<std::wstring>{settingValueName(kSettingProgramPath), settingValueName(kSettingLanguage),
                                       settingValueName(kSettingDataPath), settingValueName(kSettingDeploymentPath)}));
}

}  // namespace
}  // namespace kvt1
