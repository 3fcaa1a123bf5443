// Reading a setting the store has cached, and loading a help topic map of
// 10,000 lines, in a throwaway installation.
#include <benchmark/benchmark.h>

#include <string>

#include "settings/CHelpTopicMap.h"
#include "settings/SettingNumbers.h"
#include "settings/SettingsStore.h"
#include "tests/common/TestInstallation.h"

namespace {

void BM_CachedSettingRead(benchmark::State& state) {
  kvt1::testing::TestInstallation installation;
  kvt1::SettingsStore settings;
  std::wstring text;
  if (settings.readString(kvt1::kSettingProgramPath, text) != 0) return state.SkipWithError("not installed");
  for (auto _ : state) {
    benchmark::DoNotOptimize(settings.readString(kvt1::kSettingProgramPath, text));
  }
}
BENCHMARK(BM_CachedSettingRead);

void BM_LoadHelpMap10000Lines(benchmark::State& state) {
  kvt1::testing::TestInstallation installation;
  std::string map;
  for (int i = 0; i < 10000; ++i) {
    map += "Dialog" + std::to_string(i) + ", kv_command_" + std::to_string(i) + " ,Topic" + std::to_string(i) +
           ".htm," + std::to_string(10000 + i) + "\r\n";
  }
  const std::wstring file = installation.writeFile(L"Program\\KVTHelpID.csv", map);
  kvt1::CHelpTopicMap helpMap;
  for (auto _ : state) {
    helpMap.load(file);
    benchmark::DoNotOptimize(helpMap.records().data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(map.size()));
}
BENCHMARK(BM_LoadHelpMap10000Lines)->Unit(benchmark::kMillisecond);

}  // namespace
