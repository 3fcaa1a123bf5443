// ReadLine throughput of the ANSI and UTF-16 text files, side by side with
// std::getline on the same 50 MB files (written once per run into a
// temporary folder). Compare the bytes per second of each pair.
#include <benchmark/benchmark.h>

#include <chrono>
#include <codecvt>
#include <filesystem>
#include <fstream>
#include <locale>
#include <string>

#include "support/CSIFileMBCSText.h"
#include "support/CSIFileUnicodeText.h"
#include "support/SIFileMode.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kFileCharacters = 50u << 20;
constexpr int kBufferCharacters = 4096;

// Lines of varying length with Latin-1 letters, which are the same characters
// in Windows-1252 and UTF-16, so both files hold the same text.
std::u16string sampleText(std::size_t characters) {
  static const char16_t* const kWords[] = {u"Hindernisfläche", u"Anflug", u"Übergangsfläche", u"höhe",
                                           u"Schwelle",        u"Piste",  u"Kegelfläche",     u"Abflug"};
  std::u16string text;
  text.reserve(characters + 200);
  for (unsigned line = 0; text.size() < characters; ++line) {
    for (unsigned word = 0; word < 2 + line % 13; ++word) {
      text += kWords[(line + word) % 8];
      text += u' ';
    }
    for (const char c : std::to_string(line * 37u % 100000u)) text += static_cast<char16_t>(c);
    text += u" m über NN\r\n";
  }
  return text;
}

class SampleFiles {
 public:
  static const SampleFiles& get() {
    static const SampleFiles files;
    return files;
  }
  ~SampleFiles() {
    std::error_code error;
    fs::remove_all(m_folder, error);
  }

  fs::path ansi() const { return m_folder / "ansi.txt"; }
  fs::path utf16() const { return m_folder / "utf16.txt"; }

 private:
  SampleFiles() {
    m_folder = fs::temp_directory_path() /
               ("kvt1-sifile-bench-" + std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()));
    fs::create_directories(m_folder);
    const std::u16string text = sampleText(kFileCharacters);
    std::string ansiBytes(text.begin(), text.end());
    std::string utf16Bytes = "\xFF\xFE";
    for (const char16_t unit : text) {
      utf16Bytes += static_cast<char>(unit & 0xFF);
      utf16Bytes += static_cast<char>(unit >> 8);
    }
    std::ofstream(ansi(), std::ios::binary) << ansiBytes;
    std::ofstream(utf16(), std::ios::binary) << utf16Bytes;
  }

  fs::path m_folder;
};

template <typename Char, typename File>
void readLines(benchmark::State& state, const fs::path& path) {
  Char buffer[kBufferCharacters];
  for (auto _ : state) {
    File file;
    if (!file.Open(path.wstring(), kvt1::kSIReadText)) {
      state.SkipWithError("cannot open the sample file");
      return;
    }
    std::size_t total = 0;
    while (const int length = file.ReadLine(buffer, kBufferCharacters)) total += static_cast<std::size_t>(length);
    benchmark::DoNotOptimize(total);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(fs::file_size(path)));
}

void BM_ReadLine_Ansi(benchmark::State& state) {
  readLines<char, kvt1::CSIFileMBCSText>(state, SampleFiles::get().ansi());
}

void BM_ReadLine_AnsiToWide(benchmark::State& state) {
  readLines<wchar_t, kvt1::CSIFileMBCSText>(state, SampleFiles::get().ansi());
}

void BM_ReadLine_Utf16(benchmark::State& state) {
  readLines<wchar_t, kvt1::CSIFileUnicodeText>(state, SampleFiles::get().utf16());
}

void BM_Getline_Ansi(benchmark::State& state) {
  const fs::path path = SampleFiles::get().ansi();
  for (auto _ : state) {
    std::ifstream in(path, std::ios::binary);
    std::string line;
    std::size_t total = 0;
    while (std::getline(in, line)) total += line.size();
    benchmark::DoNotOptimize(total);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(fs::file_size(path)));
}

// The standard library's own UTF-16LE decoding: deprecated, but the one it has.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
void BM_Getline_Utf16(benchmark::State& state) {
  const fs::path path = SampleFiles::get().utf16();
  using Utf16Le = std::codecvt_utf16<wchar_t, 0x10FFFF, std::codecvt_mode(std::consume_header | std::little_endian)>;
  for (auto _ : state) {
    std::wifstream in(path, std::ios::binary);
    in.imbue(std::locale(in.getloc(), new Utf16Le));
    std::wstring line;
    std::size_t total = 0;
    while (std::getline(in, line)) total += line.size();
    benchmark::DoNotOptimize(total);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(fs::file_size(path)));
}
#pragma GCC diagnostic pop

BENCHMARK(BM_ReadLine_Ansi)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Getline_Ansi)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadLine_Utf16)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Getline_Utf16)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReadLine_AnsiToWide)->Unit(benchmark::kMillisecond);

}  // namespace
