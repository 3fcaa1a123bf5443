// The DOM engine's selector queries over a 5,000-element page (target: well
// under 50 us each) and the parsing of a 100 KB page.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include "htmlui/engine/DomEngine.h"

namespace {

using kvt1::html::DomEngine;

HWND benchWindow() { return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(0x42)); }

// Rows of five elements each: div.row[FPID] > span.cell, input, b, i.
std::string rowsPage(int rows) {
  std::string page = "<html><head><style>.row{}</style></head><body>";
  for (int i = 0; i < rows; ++i) {
    const std::string n = std::to_string(i);
    page += "<div.row FPID='" + n + "' id=r" + n + "><span .cell>cell " + n +
            "</span><input|text value='v'><b>bold</b><i title='t &amp; u'>it</i></div>\n";
  }
  return page + "</body></html>";
}

BOOL HLCALLBACK countElement(HELEMENT, LPVOID param) {
  ++*static_cast<int*>(param);
  return FALSE;
}

void selectOnce(benchmark::State& state, const char* selector, int expected) {
  DomEngine engine;
  const std::string page = rowsPage(1000);
  engine.LoadHtmlEx(benchWindow(), reinterpret_cast<LPCBYTE>(page.data()), static_cast<UINT>(page.size()), nullptr);
  HELEMENT root = nullptr;
  engine.GetRootElement(benchWindow(), &root);
  for (auto _ : state) {
    int found = 0;
    engine.SelectElements(root, selector, &countElement, &found);
    benchmark::DoNotOptimize(found);
    if (found != expected) state.SkipWithError("unexpected number of elements");
  }
}

void BM_SelectItemByNumber(benchmark::State& state) { selectOnce(state, "[FPID='500']", 1); }
BENCHMARK(BM_SelectItemByNumber)->Unit(benchmark::kMicrosecond);

void BM_SelectById(benchmark::State& state) { selectOnce(state, "#r999", 1); }
BENCHMARK(BM_SelectById)->Unit(benchmark::kMicrosecond);

void BM_SelectChildrenByClass(benchmark::State& state) { selectOnce(state, "div.row > span.cell", 1000); }
BENCHMARK(BM_SelectChildrenByClass)->Unit(benchmark::kMicrosecond);

void BM_SelectStatesAndNegation(benchmark::State& state) {
  selectOnce(state, "input:not(:disabled), i[title^=t]", 2000);
}
BENCHMARK(BM_SelectStatesAndNegation)->Unit(benchmark::kMicrosecond);

void BM_ParsePage100KB(benchmark::State& state) {
  DomEngine engine;
  const std::string page = rowsPage(1000).substr(0, 100 * 1024) + "</body></html>";
  for (auto _ : state)
    engine.LoadHtmlEx(benchWindow(), reinterpret_cast<LPCBYTE>(page.data()), static_cast<UINT>(page.size()), nullptr);
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(page.size()));
}
BENCHMARK(BM_ParsePage100KB)->Unit(benchmark::kMillisecond);

}  // namespace
