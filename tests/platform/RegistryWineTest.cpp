// Round trips between our .reg reader and writer and regedit, over the real
// registry: regedit's exports read through our parser, and our files import
// through regedit.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/RegFile.h"
#include "platform/Registry.h"
#include "platform/Unicode.h"
#include "tests/platform/RegistryTestSupport.h"

namespace kvt1::platform {
namespace {

const std::wstring kKeyPath = std::wstring(kTestKeyParent) + L"\\regedit";
const std::wstring kFullPath = L"HKEY_CURRENT_USER\\" + kKeyPath;

template <std::size_t N>
RegValue text(const wchar_t* name, std::uint32_t type, const wchar_t (&textWithNul)[N]) {
  return RegValue{name, type, regStringData(std::wstring_view(textWithNul, N))};
}

// Every kind of value that regedit writes in a way of its own.
std::vector<RegValue> sampleValues() {
  std::vector<unsigned char> longBinary(200);
  for (std::size_t i = 0; i < longBinary.size(); ++i) longBinary[i] = static_cast<unsigned char>(i * 7);
  return {
      text(L"", kRegSz, L"the default"),
      text(L"Path", kRegSz, L"C:\\Program Files\\\"KVT1\""),
      text(L"Gr\u00f6\u00dfe \u4e2d", kRegSz, L"\u00e4\u00f6\u00fc \u20ac \u4e2d\u6587"),
      text(L"Empty", kRegSz, L""),
      text(L"Help", kRegExpandSz, L"%APPDATA%\\Halvorn Systems\\Help"),
      text(L"Lines", kRegMultiSz, L"one\0two\0"),
      RegValue{L"Switch", kRegDword, {0x2A, 0x00, 0x00, 0x80}},
      RegValue{L"ShellState", kRegBinary, longBinary},
      RegValue{L"Nothing", kRegBinary, {}},
      RegValue{L"Stamp", 11, {1, 2, 3, 4, 5, 6, 7, 8}},
  };
}

void setAll(RegistryKey& key, const std::vector<RegValue>& values) {
  for (const RegValue& value : values) {
    ASSERT_EQ(key.setValue(value.name, value.type, value.data.data(), static_cast<std::uint32_t>(value.data.size())),
              kRegSuccess);
  }
}

void expectStored(const RegistryKey& key, const std::vector<RegValue>& values) {
  for (const RegValue& value : values) {
    SCOPED_TRACE(toUtf8(value.name));
    const QueriedValue stored = queryWhole(key, value.name);
    ASSERT_EQ(stored.result, kRegSuccess);
    EXPECT_EQ(stored.type, value.type);
    EXPECT_EQ(stored.data, value.data);
  }
}

// Runs regedit with these arguments and waits for it: its exit code, or -1
// when it did not start or end.
int runRegedit(const std::wstring& arguments) {
  std::wstring commandLine = L"regedit.exe " + arguments;
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process)) {
    return -1;
  }
  DWORD code = static_cast<DWORD>(-1);
  if (WaitForSingleObject(process.hProcess, 120000) != WAIT_OBJECT_0 || !GetExitCodeProcess(process.hProcess, &code)) {
    TerminateProcess(process.hProcess, 1);
    code = static_cast<DWORD>(-1);
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return static_cast<int>(code);
}

std::wstring quoted(const std::wstring& text) { return L"\"" + text + L"\""; }

class RegistryWineTest : public ::testing::Test {
 protected:
  void SetUp() override {
    removeTestKeys();
    ASSERT_EQ(RegistryKey::create(RegistryRoot::CurrentUser, kKeyPath, RegistryAccess::Full, key_), kRegSuccess);
  }
  void TearDown() override {
    key_ = RegistryKey();
    removeTestKeys();
  }

  static void removeTestKeys() {
    RegistryKey software;
    if (RegistryKey::open(RegistryRoot::CurrentUser, L"Software", RegistryAccess::Full, software) == kRegSuccess) {
      software.deleteTree(L"Halvorn Systems Test");
    }
  }

  RegistryKey key_;
  TemporaryFolder folder_;
};

TEST_F(RegistryWineTest, RegeditExportsReadThroughOurParser) {
  const std::vector<RegValue> values = sampleValues();
  setAll(key_, values);
  RegistryKey sub;
  ASSERT_EQ(key_.createSubKey(L"Sub Key", RegistryAccess::Full, sub), kRegSuccess);
  const unsigned char one[] = {1, 0, 0, 0};
  ASSERT_EQ(sub.setValue(L"One", kRegDword, one, sizeof one), kRegSuccess);

  const std::filesystem::path file = folder_.path() / "export.reg";
  ASSERT_EQ(runRegedit(L"/E " + quoted(file.wstring()) + L" " + quoted(kFullPath)), 0);
  const std::string bytes = readBytes(file);

  std::vector<RegSection> sections;
  RegFileError error;
  ASSERT_TRUE(parseRegFile(bytes, sections, error)) << error.line << ": " << error.message;
  ASSERT_EQ(sections.size(), 2u);
  EXPECT_EQ(sections[0].path, kFullPath);
  ASSERT_EQ(sections[0].values.size(), values.size());
  for (const RegValue& value : values) {
    SCOPED_TRACE(toUtf8(value.name));
    const auto found = std::find_if(sections[0].values.begin(), sections[0].values.end(),
                                    [&value](const RegValue& read) { return read.name == value.name; });
    ASSERT_NE(found, sections[0].values.end());
    EXPECT_EQ(found->type, value.type);
    EXPECT_EQ(found->data, value.data);
  }
  EXPECT_EQ(sections[1].path, kFullPath + L"\\Sub Key");
  ASSERT_EQ(sections[1].values.size(), 1u);
  EXPECT_EQ(sections[1].values[0].data, std::vector<unsigned char>(one, one + sizeof one));

  // Our writer gives the same file for the same keys.
  EXPECT_EQ(writeRegFile(sections), bytes);
}

TEST_F(RegistryWineTest, OurFilesImportThroughRegedit) {
  RegSection imported;
  imported.path = kFullPath + L"\\Imported";
  imported.values = sampleValues();
  RegSection deeper;
  deeper.path = imported.path + L"\\Deeper";
  deeper.values = {text(L"Where", kRegSz, L"below")};
  const std::filesystem::path file = folder_.path() / "import.reg";
  writeBytes(file, writeRegFile({imported, deeper}));

  ASSERT_EQ(runRegedit(L"/S " + quoted(file.wstring())), 0);

  RegistryKey key;
  ASSERT_EQ(key_.openSubKey(L"Imported", RegistryAccess::Read, key), kRegSuccess);
  expectStored(key, imported.values);
  RegistryKey below;
  ASSERT_EQ(key.openSubKey(L"Deeper", RegistryAccess::Read, below), kRegSuccess);
  expectStored(below, deeper.values);
}

}  // namespace
}  // namespace kvt1::platform
