// The Linux store's own promises: its files, its folder, the read-only
// machine root, broken files left alone, atomic saves, and saves of other
// processes seen.
#include "platform/posix/RegistryStore.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>

#include "platform/RegFileData.h"
#include "platform/SaveFaults.h"
#include "platform/Unicode.h"
#include "platform/posix/RegistryFile.h"
#include "tests/platform/RegistryTestSupport.h"

namespace kvt1::platform {
namespace {

constexpr const wchar_t* kProductKey = L"Software\\Halvorn Systems\\KVT1\\1.1\\CAD";

std::vector<std::string> filesIn(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

long setString(RegistryKey& key, const std::wstring& name, const std::wstring& text) {
  return key.setValue(name, kRegSz, text.c_str(), static_cast<std::uint32_t>((text.size() + 1) * sizeof(wchar_t)));
}

// Restores an environment variable as it was.
class SavedVariable {
 public:
  explicit SavedVariable(const char* name) : name_(name) {
    const char* value = std::getenv(name);
    if (value != nullptr) value_ = value;
    had_ = value != nullptr;
  }
  ~SavedVariable() {
    if (had_) {
      ::setenv(name_, value_.c_str(), 1);
    } else {
      ::unsetenv(name_);
    }
  }

 private:
  const char* name_;
  std::string value_;
  bool had_ = false;
};

class RegistryStoreTest : public ::testing::Test {
 protected:
  void SetUp() override { pointStoreAt(folder_.path()); }
  void TearDown() override { RegistryStore::instance().reset(); }

  void pointStoreAt(const std::filesystem::path& folder) {
    ::setenv("KVT1_REGISTRY_DIR", folder.c_str(), 1);
    RegistryStore::instance().reset();
  }

  std::filesystem::path userFile() const { return folder_.path() / "HKEY_CURRENT_USER.reg"; }

  SavedVariable savedFolder_{"KVT1_REGISTRY_DIR"};
  TemporaryFolder folder_;
};

TEST_F(RegistryStoreTest, SavesEveryChangeAsARegeditFile) {
  const std::filesystem::path nested = folder_.path() / "not" / "yet";
  pointStoreAt(nested);
  RegistryKey missing;
  EXPECT_EQ(RegistryKey::open(RegistryRoot::CurrentUser, kProductKey, RegistryAccess::Read, missing), kRegFileNotFound);
  EXPECT_FALSE(std::filesystem::exists(nested)) << "reading creates nothing";

  RegistryKey key;
  ASSERT_EQ(RegistryKey::create(RegistryRoot::CurrentUser, kProductKey, RegistryAccess::Full, key), kRegSuccess);
  ASSERT_EQ(setString(key, L"DataPath", L"/home/user/KVT1"), kRegSuccess);
  const unsigned char qword[] = {1, 2, 3, 4, 5, 6, 7, 8};
  ASSERT_EQ(key.setValue(L"Stamp", 11, qword, sizeof qword), kRegSuccess);
  EXPECT_EQ(filesIn(nested), std::vector<std::string>{"HKEY_CURRENT_USER.reg"}) << "no temporary file stays";

  const std::string bytes = readBytes(nested / "HKEY_CURRENT_USER.reg");
  EXPECT_EQ(bytes.substr(0, 10), std::string("\xFF\xFEW\0i\0n\0d\0", 10));
  std::vector<RegSection> sections;
  RegFileError error;
  ASSERT_TRUE(parseRegFile(bytes, sections, error)) << error.message;
  ASSERT_EQ(sections.size(), 5u);
  EXPECT_EQ(sections[0].path, L"HKEY_CURRENT_USER\\Software");
  EXPECT_EQ(sections[4].path, L"HKEY_CURRENT_USER\\Software\\Halvorn Systems\\KVT1\\1.1\\CAD");
  ASSERT_EQ(sections[4].values.size(), 2u);
  EXPECT_EQ(sections[4].values[1].type, 11u);

  // A new store reads the same back.
  RegistryStore::instance().reset();
  RegistryKey reread;
  ASSERT_EQ(RegistryKey::open(RegistryRoot::CurrentUser, L"software\\HALVORN SYSTEMS\\kvt1\\1.1\\cad",
                              RegistryAccess::Read, reread),
            kRegSuccess);
  EXPECT_EQ(queryWhole(reread, L"DataPath").data, regStringData(std::wstring(L"/home/user/KVT1\0", 16)));
  const QueriedValue stamp = queryWhole(reread, L"Stamp");
  EXPECT_EQ(stamp.type, 11u);
  EXPECT_EQ(stamp.data, std::vector<unsigned char>(qword, qword + sizeof qword));
}

TEST_F(RegistryStoreTest, FindsItsFolderFromTheEnvironment) {
  SavedVariable config("XDG_CONFIG_HOME");
  SavedVariable home("HOME");
  ::unsetenv("KVT1_REGISTRY_DIR");
  ::setenv("XDG_CONFIG_HOME", "/srv/config", 1);
  RegistryStore::instance().reset();
  EXPECT_EQ(RegistryStore::instance().folder(), "/srv/config/kvt1/registry");

  ::unsetenv("XDG_CONFIG_HOME");
  ::setenv("HOME", "/home/someone", 1);
  EXPECT_EQ(RegistryStore::instance().folder(), "/srv/config/kvt1/registry") << "kept until the store is reset";
  RegistryStore::instance().reset();
  EXPECT_EQ(RegistryStore::instance().folder(), "/home/someone/.config/kvt1/registry");
  EXPECT_EQ(RegistryStore::instance().filePath(RegistryRoot::ClassesRoot),
            "/home/someone/.config/kvt1/registry/HKEY_CLASSES_ROOT.reg");
}

TEST_F(RegistryStoreTest, MachineRootIsReadOnly) {
  const std::filesystem::path machineFile = folder_.path() / "HKEY_LOCAL_MACHINE.reg";
  const std::string installed =
      "Windows Registry Editor Version 5.00\r\n\r\n"
      "[HKEY_LOCAL_MACHINE\\Software\\Halvorn Systems\\KVT1\\1.1\\CAD]\r\n"
      "\"ProgramPath\"=\"/opt/kvt1\"\r\n";
  writeBytes(machineFile, installed);

  RegistryKey machine;
  ASSERT_EQ(RegistryKey::open(RegistryRoot::LocalMachine, kProductKey, RegistryAccess::Read, machine), kRegSuccess);
  EXPECT_EQ(queryWhole(machine, L"ProgramPath").data, regStringData(std::wstring(L"/opt/kvt1\0", 10)));

  RegistryKey refused;
  EXPECT_EQ(RegistryKey::open(RegistryRoot::LocalMachine, kProductKey, RegistryAccess::Full, refused),
            kRegAccessDenied);
  EXPECT_EQ(RegistryKey::create(RegistryRoot::LocalMachine, L"Software\\Other", RegistryAccess::Read, refused),
            kRegAccessDenied);
  EXPECT_EQ(machine.createSubKey(L"New", RegistryAccess::Read, refused), kRegAccessDenied);
  EXPECT_FALSE(refused.isOpen());
  EXPECT_EQ(setString(machine, L"ProgramPath", L"/tmp"), kRegAccessDenied);
  EXPECT_EQ(machine.deleteTree(L""), kRegAccessDenied);

  bool created = true;
  RegistryKey existing;
  EXPECT_EQ(RegistryKey::create(RegistryRoot::LocalMachine, kProductKey, RegistryAccess::Read, existing, &created),
            kRegSuccess);
  EXPECT_FALSE(created);
  EXPECT_EQ(readBytes(machineFile), installed);
  EXPECT_EQ(filesIn(folder_.path()), std::vector<std::string>{"HKEY_LOCAL_MACHINE.reg"});
}

struct Damage {
  const char* what;
  std::string bytes;
  const char* line;
};

// A good file of the store with key A (a value) and key B (a long binary value).
std::string goodFile() {
  RegSection a;
  a.path = L"HKEY_CURRENT_USER\\A";
  a.values = {RegValue{L"Kept", kRegSz, regStringData(std::wstring(L"yes\0", 4))}};
  RegSection b;
  b.path = L"HKEY_CURRENT_USER\\B";
  b.values = {RegValue{L"Long", kRegBinary, std::vector<unsigned char>(300, 0xAB)}};
  return writeRegFile({a, b});
}

TEST_F(RegistryStoreTest, BrokenFilesAreReportedAndNeverOverwritten) {
  const std::string good = goodFile();
  // Cut after the first digit of the third byte of the third continuation line of "Long".
  std::size_t cut = 0;
  for (int line = 0; line < 3; ++line) cut = good.find(toUtf16(L"\r\n  ab"), cut + 1);
  cut += 2 * 11;
  const Damage cases[] = {
      {"a broken line", good + toUtf16(L"xyz\r\n"), "line 21:"},
      {"a file cut in the middle of a value", good.substr(0, cut), "line 10:"},
      {"a UTF-16 file with an odd byte count", good + "!", "line 20:"},
      {"a key of another root",
       "Windows Registry Editor Version 5.00\n[HKEY_CURRENT_USER\\A]\n\"Kept\"=\"yes\"\n[HKEY_USERS\\B]\n", "line 4:"},
  };
  for (const Damage& damage : cases) {
    SCOPED_TRACE(damage.what);
    writeBytes(userFile(), damage.bytes);
    RegistryStore::instance().reset();

    testing::internal::CaptureStderr();
    RegistryKey a;
    ASSERT_EQ(RegistryKey::open(RegistryRoot::CurrentUser, L"A", RegistryAccess::Full, a), kRegSuccess);
    const std::string report = testing::internal::GetCapturedStderr();
    EXPECT_NE(report.find(userFile().string()), std::string::npos) << report;
    EXPECT_NE(report.find(damage.line), std::string::npos) << report;

    testing::internal::CaptureStderr();
    EXPECT_EQ(queryWhole(a, L"Kept").data, regStringData(std::wstring(L"yes\0", 4))) << "keys before the damage read";
    EXPECT_EQ(setString(a, L"Kept", L"no"), kRegAccessDenied);
    EXPECT_EQ(queryWhole(a, L"Kept").data, regStringData(std::wstring(L"yes\0", 4)));
    RegistryKey created;
    EXPECT_EQ(RegistryKey::create(RegistryRoot::CurrentUser, L"C", RegistryAccess::Full, created), kRegAccessDenied);
    EXPECT_EQ(a.deleteTree(L""), kRegAccessDenied);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "reported once";

    EXPECT_EQ(readBytes(userFile()), damage.bytes);
    EXPECT_EQ(filesIn(folder_.path()), std::vector<std::string>{"HKEY_CURRENT_USER.reg"});
  }

  // Once the file is repaired, the store takes it up again.
  writeBytes(userFile(), good);
  RegistryKey a;
  ASSERT_EQ(RegistryKey::open(RegistryRoot::CurrentUser, L"A", RegistryAccess::Full, a), kRegSuccess);
  EXPECT_EQ(setString(a, L"Kept", L"again"), kRegSuccess);
}

TEST_F(RegistryStoreTest, AFileBeyondTheSizeBoundIsReportedAndNeverOverwritten) {
  const std::string huge = goodFile() + std::string(kMaxRegistryFileBytes, ' ');
  writeBytes(userFile(), huge);
  RegistryStore::instance().reset();
  testing::internal::CaptureStderr();
  RegistryKey created;
  EXPECT_EQ(RegistryKey::create(RegistryRoot::CurrentUser, L"C", RegistryAccess::Full, created), kRegAccessDenied);
  const std::string report = testing::internal::GetCapturedStderr();
  EXPECT_NE(report.find(userFile().string()), std::string::npos) << report;
  EXPECT_NE(report.find("too large"), std::string::npos) << report;
  EXPECT_EQ(readBytes(userFile()), huge);
}

TEST_F(RegistryStoreTest, FailedSaveLeavesThePreviousFile) {
  RegistryKey key;
  ASSERT_EQ(RegistryKey::create(RegistryRoot::CurrentUser, kProductKey, RegistryAccess::Full, key), kRegSuccess);
  ASSERT_EQ(setString(key, L"DataPath", L"/data"), kRegSuccess);
  const std::string before = readBytes(userFile());

  // The file size limit stops the write of the temporary file half way.
  rlimit saved{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &saved), 0);
  const auto savedSignal = std::signal(SIGXFSZ, SIG_IGN);
  rlimit limited = saved;
  limited.rlim_cur = before.size() + 64;
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limited), 0);
  const std::vector<unsigned char> large(4096, 0x5A);
  const long result = key.setValue(L"Large", kRegBinary, large.data(), static_cast<std::uint32_t>(large.size()));
  ::setrlimit(RLIMIT_FSIZE, &saved);
  std::signal(SIGXFSZ, savedSignal);

  EXPECT_EQ(result, kRegIoFailed);
  EXPECT_EQ(readBytes(userFile()), before);
  EXPECT_EQ(filesIn(folder_.path()), std::vector<std::string>{"HKEY_CURRENT_USER.reg"});
  EXPECT_EQ(queryWhole(key, L"Large").result, kRegFileNotFound) << "the refused change is undone in memory too";

  ASSERT_EQ(key.setValue(L"Large", kRegBinary, large.data(), static_cast<std::uint32_t>(large.size())), kRegSuccess);
  EXPECT_EQ(queryWhole(key, L"Large").data, large);
}

// A save that fails at any step (a full disk, a flush, the replace) is
// reported, undone in memory, and leaves the previous file as it was.
TEST_F(RegistryStoreTest, ASaveThatFailsAtAnyStepLeavesThePreviousFile) {
  RegistryKey key;
  ASSERT_EQ(RegistryKey::create(RegistryRoot::CurrentUser, kProductKey, RegistryAccess::Full, key), kRegSuccess);
  ASSERT_EQ(setString(key, L"DataPath", L"/data"), kRegSuccess);
  const std::string before = readBytes(userFile());
  for (const SaveStep step : {SaveStep::Write, SaveStep::Flush, SaveStep::Replace}) {
    armSaveFault(step);
    EXPECT_EQ(setString(key, L"DataPath", L"/elsewhere"), kRegIoFailed) << static_cast<int>(step);
    disarmSaveFaults();
    EXPECT_EQ(readBytes(userFile()), before);
    EXPECT_EQ(filesIn(folder_.path()), std::vector<std::string>{"HKEY_CURRENT_USER.reg"});
    EXPECT_EQ(queryWhole(key, L"DataPath").data, regStringData(std::wstring(L"/data\0", 6)));
  }
  EXPECT_EQ(setString(key, L"DataPath", L"/elsewhere"), kRegSuccess);
}

TEST_F(RegistryStoreTest, SeesTheSavesOfAnotherProcess) {
  RegistryKey key;
  ASSERT_EQ(RegistryKey::create(RegistryRoot::CurrentUser, kProductKey, RegistryAccess::Full, key), kRegSuccess);
  ASSERT_EQ(setString(key, L"FromParent", L"1"), kRegSuccess);

  const pid_t child = ::fork();
  ASSERT_NE(child, -1);
  if (child == 0) {
    RegistryKey own;
    const bool saved =
        RegistryKey::open(RegistryRoot::CurrentUser, kProductKey, RegistryAccess::Full, own) == kRegSuccess &&
        setString(own, L"FromChild", L"2") == kRegSuccess;
    ::_exit(saved ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);

  EXPECT_EQ(queryWhole(key, L"FromChild").data, regStringData(std::wstring(L"2\0", 2)));
  ASSERT_EQ(setString(key, L"Later", L"3"), kRegSuccess);
  RegistryStore::instance().reset();
  for (const wchar_t* name : {L"FromParent", L"FromChild", L"Later"}) {
    EXPECT_EQ(queryWhole(key, name).result, kRegSuccess) << "lost " << toUtf8(name);
  }
}

}  // namespace
}  // namespace kvt1::platform
