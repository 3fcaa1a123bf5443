#include "tests/online/usage/UsageTestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "platform/File.h"
#include "platform/Registry.h"
#include "platform/Unicode.h"
#include "settings/ProductKey.h"
#include "tests/online/OnlineTestSupport.h"

namespace kvt1::testing {

TestUsageManager::TestUsageManager(std::wstring reportFolder) : folder(std::move(reportFolder)) {
  SetClock([this] { return now; });
}

std::wstring TestUsageManager::GetProductKeyPath() { return productKeyPath(); }

kvt1::usage::ReportChannel TestUsageManager::GetReportChannel() {
  return [this, accepts = channelAccepts, during = whileSending](const std::vector<std::uint8_t>& buffer) {
    sent.push_back(buffer);
    if (during) during();
    return accepts;
  };
}

Hv::CHvUsageReport readStored(const std::wstring& path) {
  Hv::CHvUsageReport report;
  EXPECT_EQ(kvt1::usage::UsageReportStore().Load(path, report), kvt1::usage::ReportLoad::Loaded)
      << platform::toUtf8(path);
  return report;
}

std::string fileBytes(const std::wstring& path) {
  std::string bytes;
  if (std::FILE* file = platform::openFile(path, "rb")) {
    char chunk[4096];
    for (std::size_t got; (got = std::fread(chunk, 1, sizeof chunk, file)) > 0;) bytes.append(chunk, got);
    std::fclose(file);
  }
  return bytes;
}

void writeBytes(const std::wstring& path, const std::string& bytes) {
  platform::createFolders(path.substr(0, path.find_last_of(L"\\/")));
  std::FILE* file = platform::openFile(path, "wb");
  ASSERT_NE(file, nullptr);
  std::fwrite(bytes.data(), 1, bytes.size(), file);
  std::fclose(file);
}

namespace {

std::filesystem::path nativeFolder(const std::wstring& folder) {
  std::wstring native = folder;
#ifndef _WIN32
  std::replace(native.begin(), native.end(), L'\\', L'/');
#endif
  return std::filesystem::path(native);
}

}  // namespace

void makeFolderReadOnly(const std::wstring& folder, bool readOnly) {
  namespace fs = std::filesystem;
  const fs::perms write = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  const fs::perm_options change = readOnly ? fs::perm_options::remove : fs::perm_options::add;
  const fs::path native = nativeFolder(folder);
  for (const auto& entry : fs::directory_iterator(native)) fs::permissions(entry.path(), write, change);
  fs::permissions(native, write, change);
}

std::vector<std::string> folderEntries(const std::wstring& folder) {
  const std::filesystem::path native = nativeFolder(folder);
  std::vector<std::string> names;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(native, error)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::int32_t counterOf(const Hv::CHvUsageReport& report, const std::wstring& name) {
  for (const Hv::SHvUsageCounter& counter : report.Counters()) {
    if (counter.name == name) return counter.count;
  }
  return -1;
}

}  // namespace kvt1::testing
