#pragma once
// Helpers shared by the registry tests.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <system_error>
#include <vector>

#include "platform/RegFile.h"
#include "platform/Registry.h"

namespace kvt1::platform {

// Where the tests' keys live under the current-user root.
constexpr const wchar_t* kTestKeyParent = L"Software\\Halvorn Systems Test";

// A fresh folder under the system's temporary folder, removed with its contents at the end.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    const std::filesystem::path base = std::filesystem::temp_directory_path();
    for (unsigned attempt = 0;; ++attempt) {
      path_ = base / ("kvt1-registry-" + std::to_string(std::random_device{}()) + std::to_string(attempt));
      if (std::filesystem::create_directory(path_)) break;
    }
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

inline std::string readBytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

inline void writeBytes(const std::filesystem::path& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

// A value's type and data as stored, or the error that answered the query.
struct QueriedValue {
  long result = kRegSuccess;
  std::uint32_t type = 0;
  std::vector<unsigned char> data;
};

inline QueriedValue queryWhole(const RegistryKey& key, const std::wstring& name) {
  QueriedValue value;
  std::uint32_t size = 0;
  value.result = key.queryValue(name, value.type, nullptr, size);
  if (value.result != kRegSuccess) return value;
  value.data.resize(size);
  value.result = key.queryValue(name, value.type, value.data.data(), size);
  value.data.resize(size);
  return value;
}

}  // namespace kvt1::platform
