// Opening the update notification: the page taken from the resources, its
// tags filled, parsed, its controls bound, filled and laid out by litehtml
// (target: under 5 ms). On Windows the dialog is a real window and its first
// paint is part of it (target under Wine: 10 ms). Closing the dialog again
// is left out of the time. Without a layout, the engine's and the window's
// own work is measured alone.
#include <benchmark/benchmark.h>

#include <memory>

#include "htmlui/HTMEngine.h"
#include "htmlui/engine/DomEngine.h"
#include "htmlui/engine/litehtml/LitehtmlLayout.h"
#include "online/CHTMCheckForUpdateDlg.h"
#include "online/CHvCheckForUpdatePresenter.h"
#include "tests/online/CSilentCheckForUpdateView.h"

namespace {

void openUpdateNotification(benchmark::State& state, bool laidOut) {
  kvt1::html::DomEngine engine;
  if (laidOut) engine.setLayoutProvider(std::make_unique<kvt1::html::LitehtmlLayout>());
  kvt1::SetHtmlEngine(&engine);
  Hv::Http::CSilentCheckForUpdateView view;
  Hv::Http::CHvCheckForUpdatePresenter presenter(view, nullptr);
  for (auto _ : state) {
    {
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
      state.PauseTiming();
      dialog.Close();
    }
    state.ResumeTiming();
  }
  kvt1::SetHtmlEngine(nullptr);
}
void BM_OpenUpdateNotification(benchmark::State& state) { openUpdateNotification(state, true); }
void BM_OpenUpdateNotificationWithoutLayout(benchmark::State& state) { openUpdateNotification(state, false); }
BENCHMARK(BM_OpenUpdateNotification)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_OpenUpdateNotificationWithoutLayout)->Unit(benchmark::kMillisecond);

}  // namespace
