// Usage reporting: recording one use while the application runs, and the
// end-of-run merge and compressed save of a report with 100,000 tool-use
// times. The counters report the file size per 1,000 times.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>

#include "online/usage/CHvUsageReport.h"
#include "online/usage/UsageReportStore.h"

namespace {

// A realistic report: a few tools and counters, the times spread over the tools.
Hv::CHvUsageReport reportWith(int toolUses) {
  Hv::CHvUsageReport report;
  report.SetGuid(L"{0F8FAD5B-D9CB-469F-A165-70867728950E}");
  for (int day = 0; day < 200; ++day) report.AddLogin(L"AutoCAD 2018::x86::170393861", 1500000000u + day * 86400u);
  const wchar_t* tools[] = {L"Surfaces::ICAO",    L"Surfaces::FAA",       L"Building::Import",
                            L"Heightfield::Open", L"Heightfield::Filter", L"Settings"};
  std::mt19937 random(7);
  std::uint32_t time = 1500000000u;
  for (int i = 0; i < toolUses; ++i) {
    time += 1 + random() % 600;
    report.AddToolUse(tools[random() % 6], time);
  }
  report.AddCustomValue(L"KVTVer", L"1.1.0", false);
  report.AddCustomValue(L"WinXP", L"No", false);
  report.AddCount(L"Count::Building::Import", 1234);
  return report;
}

std::wstring benchFolder() {
  const auto folder =
      std::filesystem::temp_directory_path() / ("kvt1-usage-bench-" + std::to_string(std::random_device()()));
  std::filesystem::create_directories(folder);
  return folder.wstring();
}

void BM_RecordToolUse(benchmark::State& state) {
  Hv::CHvUsageReport report = reportWith(0);
  std::uint32_t time = 1500000000u;
  for (auto _ : state) {
    report.AddToolUse(L"Heightfield::Filter", ++time);
    if (report.ToolUses()[0].times.size() >= 1000000) {
      state.PauseTiming();
      report.Clear();
      state.ResumeTiming();
    }
  }
}
BENCHMARK(BM_RecordToolUse);

void BM_CountFeature(benchmark::State& state) {
  Hv::CHvUsageReport report = reportWith(0);
  for (auto _ : state) report.AddCount(L"Count::Regulation::Canada", 1);
  benchmark::DoNotOptimize(report.Counters().back().count);
}
BENCHMARK(BM_CountFeature);

// End of run: read the stored report, merge the run into it, save it compressed.
void BM_EndOfRunMergeAndSave(benchmark::State& state) {
  const std::wstring folder = benchFolder();
  const std::wstring path = folder + L"/UsageReport_0_30.rpt";
  const kvt1::usage::UsageReportStore store;
  store.Save(path, reportWith(static_cast<int>(state.range(0))), true);
  const Hv::CHvUsageReport run = reportWith(50);
  for (auto _ : state) {
    Hv::CHvUsageReport stored;
    if (store.Load(path, stored) != kvt1::usage::ReportLoad::Loaded) state.SkipWithError("load failed");
    stored.Merge(run);
    if (!store.Save(path, stored, true)) state.SkipWithError("save failed");
  }
  std::error_code error;
  const auto bytes = std::filesystem::file_size(std::filesystem::path(path), error);
  state.counters["bytes_per_1000_times"] = static_cast<double>(bytes) * 1000.0 / static_cast<double>(state.range(0));
  std::filesystem::remove_all(std::filesystem::path(folder), error);
}
BENCHMARK(BM_EndOfRunMergeAndSave)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

// The save alone, compressed and plain.
void BM_SaveReport(benchmark::State& state) {
  const std::wstring folder = benchFolder();
  const std::wstring path = folder + L"/UsageReport_0_30.rpt";
  const kvt1::usage::UsageReportStore store;
  const Hv::CHvUsageReport report = reportWith(100000);
  for (auto _ : state) store.Save(path, report, state.range(0) != 0);
  std::error_code error;
  state.counters["bytes_per_1000_times"] =
      static_cast<double>(std::filesystem::file_size(std::filesystem::path(path), error)) / 100.0;
  std::filesystem::remove_all(std::filesystem::path(folder), error);
}
BENCHMARK(BM_SaveReport)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

}  // namespace
