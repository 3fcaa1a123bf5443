// Text lookups in the shipped English language module, and in the same
// module with one stray "<" in a text: a fault must not make every lookup
// parse the module again (target: the same time per lookup for both).
#include <benchmark/benchmark.h>

#include "platform/Resources.h"
#include "tests/common/BesideProgram.h"
#include "text/TextResources.h"

namespace {

void lookUp(benchmark::State& state, const char* module) {
  kvt1::platform::DynamicLibrary texts = kvt1::testing::loadBesideProgram(module);
  if (!texts.isLoaded()) state.SkipWithError("the language module did not load");
  kvt1::platform::setResourceModule(texts.image());
  for (auto _ : state) benchmark::DoNotOptimize(NTxtRes::GetText(L"MsgNoUpdates", L"InfoText", true));
  NTxtRes::ReleaseTextDocument();
  kvt1::platform::setResourceModule(nullptr);
}

void BM_LookUpInTheEnglishModule(benchmark::State& state) { lookUp(state, KVT1_ENGLISH_TEXTS); }
void BM_LookUpInAModuleWithAStrayBracket(benchmark::State& state) { lookUp(state, KVT1_FAULTY_TEXTS); }
BENCHMARK(BM_LookUpInTheEnglishModule);
BENCHMARK(BM_LookUpInAModuleWithAStrayBracket);

}  // namespace
