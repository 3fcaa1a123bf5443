// Behaviour that the Win32 registry (under Wine) and the Linux store share;
// the same cases run against both.
#include "platform/Registry.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <optional>

#include "platform/RegistryValues.h"
#include "tests/common/ProcessEnvironment.h"
#include "tests/platform/RegistryTestSupport.h"
#ifdef _WIN32
#include <windows.h>
#else
#include "platform/posix/RegistryStore.h"
#endif

namespace kvt1::platform {
namespace {

constexpr long kKeyDeleted = 1018;  // ERROR_KEY_DELETED

template <std::size_t N>
std::vector<unsigned char> stringBytes(const wchar_t (&text)[N]) {
  return regStringData(std::wstring_view(text, N));
}

long setString(RegistryKey& key, const std::wstring& name, std::uint32_t type, const std::wstring& text) {
  return key.setValue(name, type, text.c_str(), static_cast<std::uint32_t>((text.size() + 1) * sizeof(wchar_t)));
}

long setDword(RegistryKey& key, const std::wstring& name, std::uint32_t number) {
  return key.setValue(name, kRegDword, &number, sizeof number);
}

// Each test gets an empty key of its own under the current-user root: on
// Linux in a store of its own in a temporary folder.
class RegistryTest : public ::testing::Test {
 protected:
  void SetUp() override {
#ifndef _WIN32
    folder_ = std::make_unique<TemporaryFolder>();
    ::setenv("KVT1_REGISTRY_DIR", folder_->path().c_str(), 1);
    RegistryStore::instance().reset();
#endif
    RegistryKey parent;
    ASSERT_EQ(RegistryKey::create(RegistryRoot::CurrentUser, kTestKeyParent, RegistryAccess::Full, parent),
              kRegSuccess);
    parent.deleteTree(L"registry_tests");
    ASSERT_EQ(parent.createSubKey(L"registry_tests", RegistryAccess::Full, base_), kRegSuccess);
  }

  void TearDown() override {
    base_ = RegistryKey();
    RegistryKey software;
    if (RegistryKey::open(RegistryRoot::CurrentUser, L"Software", RegistryAccess::Full, software) == kRegSuccess) {
      software.deleteTree(L"Halvorn Systems Test");
    }
#ifndef _WIN32
    RegistryStore::instance().reset();
    ::unsetenv("KVT1_REGISTRY_DIR");
#endif
  }

  RegistryKey base_;
#ifndef _WIN32
  std::unique_ptr<TemporaryFolder> folder_;
#endif
};

TEST_F(RegistryTest, CreatesOpensAndReportsNewKeys) {
  RegistryKey key;
  bool created = false;
  ASSERT_EQ(base_.createSubKey(L"One\\Two\\Three", RegistryAccess::Full, key, &created), kRegSuccess);
  EXPECT_TRUE(created);
  EXPECT_TRUE(key.isOpen());
  ASSERT_EQ(base_.createSubKey(L"One\\Two\\Three", RegistryAccess::Full, key, &created), kRegSuccess);
  EXPECT_FALSE(created);

  RegistryKey opened;
  EXPECT_EQ(base_.openSubKey(L"One\\Two", RegistryAccess::Read, opened), kRegSuccess);
  RegistryKey missing;
  EXPECT_EQ(base_.openSubKey(L"One\\Nothing", RegistryAccess::Read, missing), kRegFileNotFound);
  EXPECT_FALSE(missing.isOpen());

  RegistryKey fromRoot;
  EXPECT_EQ(
      RegistryKey::open(RegistryRoot::CurrentUser, std::wstring(kTestKeyParent) + L"\\registry_tests\\One\\Two\\Three",
                        RegistryAccess::Read, fromRoot),
      kRegSuccess);
  EXPECT_EQ(RegistryKey::open(RegistryRoot::CurrentUser, L"Software\\Halvorn Systems Test\\nothing here",
                              RegistryAccess::Read, fromRoot),
            kRegFileNotFound);
  EXPECT_TRUE(fromRoot.isOpen()) << "a failed open leaves the key it was given as it was";

  RegistryKey moved(std::move(fromRoot));
  EXPECT_TRUE(moved.isOpen());
  EXPECT_FALSE(fromRoot.isOpen());  // NOLINT(bugprone-use-after-move): a moved-from key is closed
  RegistryKey closed;
  std::uint32_t count = 0;
  EXPECT_EQ(closed.subKeyCount(count), kRegInvalidHandle);
}

TEST_F(RegistryTest, StringsFollowTheSizeRules) {
  ASSERT_EQ(setString(base_, L"Path", kRegSz, L"C:\\Halvorn"), kRegSuccess);
  const std::uint32_t needed = 11 * sizeof(wchar_t);

  std::uint32_t type = 0;
  std::uint32_t size = 0;
  EXPECT_EQ(base_.queryValue(L"Path", type, nullptr, size), kRegSuccess);
  EXPECT_EQ(type, kRegSz);
  EXPECT_EQ(size, needed);

  wchar_t small[4] = {L'x', L'x', L'x', L'x'};
  size = sizeof small;
  EXPECT_EQ(base_.queryValue(L"Path", type, small, size), kRegMoreData);
  EXPECT_EQ(size, needed);

  wchar_t buffer[32];
  size = sizeof buffer;
  ASSERT_EQ(base_.queryValue(L"Path", type, buffer, size), kRegSuccess);
  EXPECT_EQ(size, needed);
  EXPECT_EQ(std::wstring(buffer, size / sizeof(wchar_t)), std::wstring(L"C:\\Halvorn\0", 11));

  size = needed;
  EXPECT_EQ(base_.queryValue(L"Path", type, buffer, size), kRegSuccess) << "an exact fit is enough";

  ASSERT_EQ(setString(base_, L"", kRegSz, L"the default"), kRegSuccess);
  EXPECT_EQ(queryWhole(base_, L"").data, stringBytes(L"the default"));

  EXPECT_EQ(base_.queryValue(L"Nothing", type, nullptr, size), kRegFileNotFound);
}

TEST_F(RegistryTest, ExpandableStringsStayUnexpandedUntilAsked) {
  testing::setProcessEnvironment("KVT1_TEST_FOLDER", "C:\\Data");
  ASSERT_EQ(setString(base_, L"Help", kRegExpandSz, L"%KVT1_TEST_FOLDER%\\Help"), kRegSuccess);
  const QueriedValue value = queryWhole(base_, L"Help");
  ASSERT_EQ(value.result, kRegSuccess);
  EXPECT_EQ(value.type, kRegExpandSz);
  EXPECT_EQ(value.data, stringBytes(L"%KVT1_TEST_FOLDER%\\Help"));

  EXPECT_EQ(expandEnvironmentStrings(L"%KVT1_TEST_FOLDER%\\Help"), L"C:\\Data\\Help");
  EXPECT_EQ(expandEnvironmentStrings(L"%KVT1_NOT_SET%\\%KVT1_TEST_FOLDER%|100%"), L"%KVT1_NOT_SET%\\C:\\Data|100%");
  EXPECT_EQ(expandEnvironmentStrings(L""), L"");
}

TEST_F(RegistryTest, DwordsAndBinaryComeBackByteForByte) {
  ASSERT_EQ(setDword(base_, L"Switch", 0xDEADBEEFu), kRegSuccess);
  std::uint32_t number = 0;
  std::uint32_t type = 0;
  std::uint32_t size = sizeof number;
  ASSERT_EQ(base_.queryValue(L"Switch", type, &number, size), kRegSuccess);
  EXPECT_EQ(type, kRegDword);
  EXPECT_EQ(size, 4u);
  EXPECT_EQ(number, 0xDEADBEEFu);

  const unsigned char bytes[] = {0, 1, 0, 0xFF, 0x7F, 0};
  ASSERT_EQ(base_.setValue(L"Record", kRegBinary, bytes, sizeof bytes), kRegSuccess);
  unsigned char small[5];
  size = sizeof small;
  EXPECT_EQ(base_.queryValue(L"Record", type, small, size), kRegMoreData);
  EXPECT_EQ(size, sizeof bytes);
  const QueriedValue record = queryWhole(base_, L"Record");
  EXPECT_EQ(record.type, kRegBinary);
  EXPECT_EQ(record.data, std::vector<unsigned char>(bytes, bytes + sizeof bytes));

  ASSERT_EQ(base_.setValue(L"Nothing", kRegBinary, nullptr, 0), kRegSuccess);
  size = 99;
  EXPECT_EQ(base_.queryValue(L"Nothing", type, nullptr, size), kRegSuccess);
  EXPECT_EQ(size, 0u);

  // A value set again takes the new type and data.
  ASSERT_EQ(setString(base_, L"Switch", kRegSz, L"1"), kRegSuccess);
  EXPECT_EQ(queryWhole(base_, L"Switch").type, kRegSz);
}

TEST_F(RegistryTest, EnumeratesSubkeysByNameWithoutCase) {
  // Letters and digits only: Wine orders "_" before letters, Windows after them.
  for (const wchar_t* name : {L"beta", L"Alpha", L"gamma", L"ALPHA2", L"1.0"}) {
    RegistryKey key;
    ASSERT_EQ(base_.createSubKey(name, RegistryAccess::Full, key), kRegSuccess);
  }
  std::uint32_t count = 0;
  ASSERT_EQ(base_.subKeyCount(count), kRegSuccess);
  EXPECT_EQ(count, 5u);

  std::vector<std::wstring> names;
  std::wstring name;
  for (std::uint32_t index = 0; base_.enumSubKey(index, name) == kRegSuccess; ++index) names.push_back(name);
  EXPECT_EQ(names, (std::vector<std::wstring>{L"1.0", L"Alpha", L"ALPHA2", L"beta", L"gamma"}));
  EXPECT_EQ(base_.enumSubKey(5, name), kRegNoMoreItems);
}

TEST_F(RegistryTest, NamesCompareWithoutCaseAndKeepTheirSpelling) {
  RegistryKey key;
  ASSERT_EQ(base_.createSubKey(L"MixedCase\\Inner", RegistryAccess::Full, key), kRegSuccess);
  RegistryKey again;
  bool created = true;
  ASSERT_EQ(base_.createSubKey(L"MIXEDCASE\\inner", RegistryAccess::Full, again, &created), kRegSuccess);
  EXPECT_FALSE(created);
  std::uint32_t count = 0;
  ASSERT_EQ(base_.subKeyCount(count), kRegSuccess);
  EXPECT_EQ(count, 1u);
  std::wstring name;
  ASSERT_EQ(base_.enumSubKey(0, name), kRegSuccess);
  EXPECT_EQ(name, L"MixedCase");

  ASSERT_EQ(setString(key, L"DataPath", kRegSz, L"first"), kRegSuccess);
  ASSERT_EQ(setString(again, L"DATAPATH", kRegSz, L"second"), kRegSuccess);
  EXPECT_EQ(queryWhole(key, L"datapath").data, stringBytes(L"second"));
}

TEST_F(RegistryTest, CopiesWholeTreesAndDeletesThem) {
  RegistryKey old;
  ASSERT_EQ(base_.createSubKey(L"Product\\1.0\\CAD", RegistryAccess::Full, old), kRegSuccess);
  ASSERT_EQ(setString(old, L"DataPath", kRegSz, L"D:\\Old"), kRegSuccess);
  RegistryKey deeper;
  ASSERT_EQ(old.createSubKey(L"Deeper", RegistryAccess::Full, deeper), kRegSuccess);
  ASSERT_EQ(setDword(deeper, L"Level", 3), kRegSuccess);

  RegistryKey product;
  ASSERT_EQ(base_.openSubKey(L"Product", RegistryAccess::Full, product), kRegSuccess);
  RegistryKey current;
  ASSERT_EQ(product.createSubKey(L"1.1", RegistryAccess::Full, current), kRegSuccess);
  ASSERT_EQ(setString(current, L"Kept", kRegSz, L"yes"), kRegSuccess);
  ASSERT_EQ(product.copyTree(L"1.0", current), kRegSuccess);

  RegistryKey copied;
  ASSERT_EQ(current.openSubKey(L"CAD\\Deeper", RegistryAccess::Read, copied), kRegSuccess);
  std::uint32_t level = 0;
  std::uint32_t type = 0;
  std::uint32_t size = sizeof level;
  ASSERT_EQ(copied.queryValue(L"Level", type, &level, size), kRegSuccess);
  EXPECT_EQ(level, 3u);
  RegistryKey copiedCad;
  ASSERT_EQ(current.openSubKey(L"CAD", RegistryAccess::Read, copiedCad), kRegSuccess);
  EXPECT_EQ(queryWhole(copiedCad, L"DataPath").data, stringBytes(L"D:\\Old"));
  EXPECT_EQ(queryWhole(current, L"Kept").data, stringBytes(L"yes"));
  EXPECT_EQ(product.copyTree(L"0.9", current), kRegFileNotFound);

  ASSERT_EQ(product.deleteTree(L"1.0"), kRegSuccess);
  RegistryKey gone;
  EXPECT_EQ(product.openSubKey(L"1.0", RegistryAccess::Read, gone), kRegFileNotFound);
  std::uint32_t count = 0;
  ASSERT_EQ(product.subKeyCount(count), kRegSuccess);
  EXPECT_EQ(count, 1u);
  EXPECT_EQ(product.deleteTree(L"1.0"), kRegFileNotFound);

  // Handles to the deleted keys stay valid objects that answer as Windows does.
  EXPECT_EQ(old.queryValue(L"DataPath", type, nullptr, size), kKeyDeleted);
  EXPECT_EQ(setDword(deeper, L"Level", 4), kKeyDeleted);
  EXPECT_EQ(old.subKeyCount(count), kKeyDeleted);
}

TEST_F(RegistryTest, KeysOpenedForReadingRefuseChanges) {
  RegistryKey reader;
  ASSERT_EQ(RegistryKey::open(RegistryRoot::CurrentUser, std::wstring(kTestKeyParent) + L"\\registry_tests",
                              RegistryAccess::Read, reader),
            kRegSuccess);
  EXPECT_EQ(setDword(reader, L"Nope", 1), kRegAccessDenied);
  EXPECT_EQ(queryWhole(base_, L"Nope").result, kRegFileNotFound);
}

// The typed reads answer a value only when it is there and of their type;
// the readers they replaced differed on the binary and NUL cases.
TEST_F(RegistryTest, TypedReadsAnswerOnlyValuesOfTheirType) {
  const std::string bytes("\x01\x00\x02", 3);
  ASSERT_EQ(setDword(base_, L"Number", 42), kRegSuccess);
  ASSERT_EQ(setString(base_, L"Text", kRegSz, L"one"), kRegSuccess);
  ASSERT_EQ(setString(base_, L"Expand", kRegExpandSz, L"%TEMP%"), kRegSuccess);
  ASSERT_EQ(base_.setValue(L"Bytes", kRegBinary, bytes.data(), 3), kRegSuccess);
  ASSERT_EQ(base_.setValue(L"Short", kRegDword, bytes.data(), 2), kRegSuccess);
  ASSERT_EQ(base_.setValue(L"Empty", kRegBinary, nullptr, 0), kRegSuccess);
  const std::wstring withNul(L"two\0three\0", 10);
  ASSERT_EQ(
      base_.setValue(L"Nul", kRegSz, withNul.data(), static_cast<std::uint32_t>(withNul.size() * sizeof(wchar_t))),
      kRegSuccess);

  const struct {
    const wchar_t* name;
    std::optional<std::uint32_t> number;
    std::optional<std::wstring> text;
    std::optional<std::string> binary;
  } cases[] = {
      {L"Number", 42u, std::nullopt, std::nullopt},          {L"Text", std::nullopt, L"one", std::nullopt},
      {L"Expand", std::nullopt, std::nullopt, std::nullopt}, {L"Bytes", std::nullopt, std::nullopt, bytes},
      {L"Short", std::nullopt, std::nullopt, std::nullopt},  {L"Empty", std::nullopt, std::nullopt, std::nullopt},
      {L"Nul", std::nullopt, L"two", std::nullopt},          {L"Missing", std::nullopt, std::nullopt, std::nullopt},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(readDwordValue(base_, c.name), c.number) << c.name;
    EXPECT_EQ(readStringValue(base_, c.name), c.text) << c.name;
    EXPECT_EQ(readBinaryValue(base_, c.name, 16), c.binary) << c.name;
  }
  EXPECT_EQ(readBinaryValue(base_, L"Bytes", 2), std::nullopt) << "beyond the limit";
  const std::wstring path = std::wstring(kTestKeyParent) + L"\\registry_tests";
  EXPECT_EQ(readDwordValue(RegistryRoot::CurrentUser, path, L"Number"), 42u);
  EXPECT_EQ(readDwordValue(RegistryRoot::CurrentUser, path + L"\\none", L"Number"), std::nullopt);
}

}  // namespace
}  // namespace kvt1::platform
