#include "tests/support/SIFileTestSupport.h"

#include <atomic>
#include <chrono>
#include <fstream>
#include <iterator>

#ifdef _WIN32
#include <windows.h>
#else
#include <iconv.h>

#include "platform/CodePage.h"
#endif

namespace kvt1::test {
namespace fs = std::filesystem;

TempFolder::TempFolder() {
  static std::atomic<int> counter{0};
  const auto stamp = std::chrono::steady_clock::now().time_since_epoch().count();
  m_path = fs::temp_directory_path() / ("kvt1-support-" + std::to_string(stamp) + "-" + std::to_string(counter++));
  fs::create_directories(m_path);
}

TempFolder::~TempFolder() {
  std::error_code error;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(m_path, error)) {
    fs::permissions(entry.path(), fs::perms::owner_write, fs::perm_options::add, error);
  }
  fs::remove_all(m_path, error);
}

std::string readBytes(const std::wstring& path) {
  std::ifstream in(fs::path(path), std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void writeBytes(const std::wstring& path, const std::string& bytes) {
  std::ofstream out(fs::path(path), std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

void makeReadOnly(const std::wstring& path, bool readOnly) {
  const fs::perms write = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  fs::permissions(fs::path(path), write, readOnly ? fs::perm_options::remove : fs::perm_options::add);
}

std::string utf16le(std::u16string_view text) {
  std::string bytes;
  for (const char16_t unit : text) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return bytes;
}

#ifdef _WIN32

std::string independentAnsi(std::u16string_view text) {
  const auto* units = reinterpret_cast<const wchar_t*>(text.data());
  const int size = static_cast<int>(text.size());
  BOOL usedDefault = FALSE;
  const int length = WideCharToMultiByte(CP_ACP, 0, units, size, nullptr, 0, nullptr, &usedDefault);
  std::string bytes(static_cast<std::size_t>(length), '\0');
  WideCharToMultiByte(CP_ACP, 0, units, size, bytes.data(), length, nullptr, &usedDefault);
  return usedDefault ? std::string() : bytes;
}

#else

namespace {

// Converts with iconv; empty when any of it cannot be converted.
std::string iconvConvert(const char* to, const char* from, const std::string& input) {
  iconv_t cd = iconv_open(to, from);
  if (cd == reinterpret_cast<iconv_t>(-1)) return {};
  std::string output(input.size() * 4 + 8, '\0');
  char* in = const_cast<char*>(input.data());
  char* out = output.data();
  std::size_t inLeft = input.size();
  std::size_t outLeft = output.size();
  const std::size_t result = iconv(cd, &in, &inLeft, &out, &outLeft);
  iconv_close(cd);
  if (result == static_cast<std::size_t>(-1) || result > 0) return {};
  output.resize(output.size() - outLeft);
  return output;
}

}  // namespace

std::string independentAnsi(std::u16string_view text) {
  const std::string name = "CP" + std::to_string(platform::ansiCodePage());
  return iconvConvert(name.c_str(), "UTF-16LE", utf16le(text));
}

std::string iconvUtf16ToUtf8(const std::string& bytes) { return iconvConvert("UTF-8", "UTF-16", bytes); }

#endif

}  // namespace kvt1::test
