// The module's cost as the host sees it: one LISP call through the host's
// message path, and one initialisation and unload of the module.
#include <benchmark/benchmark.h>

#include "host/ModulePath.h"
#include "platform/DynamicLibrary.h"
#include "platform/ThisModule.h"
#include "tools/kvt1-host/core/EmulatedHost.h"
#include "tools/kvt1-host/core/ResultBuffers.h"

namespace {

using kvt1::emu::EmulatedHost;
using kvt1::emu::LispValue;
typedef AcRx::AppRetCode (*EntryPoint)(AcRx::AppMsgCode, void*);

// The module file built beside this program, loaded as the host loads it.
struct LoadedModule {
  LoadedModule() {
    EmulatedHost::instance().reset();
    EmulatedHost::instance().setOutput([](const std::wstring&) {});
    library = kvt1::platform::DynamicLibrary::load(kvt1::splitModulePath(kvt1::platform::thisModulePath()).folder +
                                                   KVT1_BENCH_MODULE_NAME);
    entry = reinterpret_cast<EntryPoint>(library.symbol("acrxEntryPoint"));
  }
  kvt1::platform::DynamicLibrary library;
  EntryPoint entry = nullptr;
};

void BM_LispCallThroughHostMessage(benchmark::State& state) {
  LoadedModule module;
  if (!module.entry) return state.SkipWithError("module not loaded");
  EmulatedHost& host = EmulatedHost::instance();
  module.entry(AcRx::kInitAppMsg, module.library.handle());
  host.openDocument();
  module.entry(AcRx::kLoadDwgMsg, nullptr);
  const int code = host.functionCode(L"kvt1_help").value_or(-1);
  const std::vector<LispValue> args = {LispValue::fromInteger(5)};  // the type message path, list result

  for (auto _ : state) {
    host.beginCall(code, kvt1::emu::toArgumentList(args));
    module.entry(AcRx::kInvkSubrMsg, nullptr);
    benchmark::DoNotOptimize(host.endCall());
  }
  module.entry(AcRx::kUnloadDwgMsg, nullptr);
  module.entry(AcRx::kUnloadAppMsg, module.library.handle());
}
BENCHMARK(BM_LispCallThroughHostMessage);

void BM_ModuleInitialisation(benchmark::State& state) {
  LoadedModule module;
  if (!module.entry) return state.SkipWithError("module not loaded");
  EmulatedHost::instance().setEnvironment(L"ACAD", L"C:\\Data;C:\\KVTools\\Support;D:\\Fonts");
  for (auto _ : state) {
    benchmark::DoNotOptimize(module.entry(AcRx::kInitAppMsg, module.library.handle()));
    state.PauseTiming();
    module.entry(AcRx::kUnloadAppMsg, module.library.handle());
    state.ResumeTiming();
  }
}
BENCHMARK(BM_ModuleInitialisation);

}  // namespace
