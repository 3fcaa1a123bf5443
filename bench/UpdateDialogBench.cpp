// Opening the update notification: the page taken from the resources, its
// tags filled, parsed, its controls bound, filled and laid out by litehtml,
// then closed again (target: under 5 ms). On Windows the dialog is a real
// window and its first paint is part of it (target under Wine: 10 ms).
#include <benchmark/benchmark.h>

#include <memory>

#include "htmlui/HTMEngine.h"
#include "htmlui/engine/DomEngine.h"
#include "htmlui/engine/litehtml/LitehtmlLayout.h"
#include "online/CHTMCheckForUpdateDlg.h"
#include "online/CHvCheckForUpdatePresenter.h"
#include "tests/online/CSilentCheckForUpdateView.h"

namespace {

void BM_OpenUpdateNotification(benchmark::State& state) {
  kvt1::html::DomEngine engine;
  engine.setLayoutProvider(std::make_unique<kvt1::html::LitehtmlLayout>());
  kvt1::SetHtmlEngine(&engine);
  Hv::Http::CSilentCheckForUpdateView view;
  Hv::Http::CHvCheckForUpdatePresenter presenter(view, nullptr);
  for (auto _ : state) {
    kvt1::CHTMCheckForUpdateDlg dialog(presenter, nullptr);
    dialog.SetResult(true, L"KVT 1.1 Service Pack 1", true, L"KVT 2", false, false);
    if (!dialog.Create()) state.SkipWithError("the dialog did not open");
#ifdef _WIN32
    UpdateWindow(dialog.GetHwnd());  // WM_PAINT draws the page through the engine
#endif
    // The geometry asked of the page is what makes the layout run.
    HELEMENT root = dialog.Root().Handle();
    RECT box{};
    engine.GetElementLocation(root, &box, ROOT_RELATIVE | BORDER_BOX);
    benchmark::DoNotOptimize(box);
    dialog.Close();
  }
  kvt1::SetHtmlEngine(nullptr);
}
BENCHMARK(BM_OpenUpdateNotification)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
