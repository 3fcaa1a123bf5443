// A large context menu: its items built, rendered into a bound dialog's
// page and shown at a point (target: under 20 ms for 1,000 items), once with
// the litehtml layout that places and draws the popup, once with the
// engine's own work alone. On Windows the dialog is a real window and the
// menu's first paint is part of it (target under Wine: 30 ms).
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "htmlui/CHTMDialog.h"
#include "htmlui/CHTMMenuCtrl.h"
#include "htmlui/HTMEngine.h"
#include "htmlui/engine/DomEngine.h"
#include "htmlui/engine/litehtml/LitehtmlLayout.h"

namespace {

// Builds, renders and shows the menu; with a layout the page is laid out
// by litehtml as a paint would, without one the engine's own work is measured.
void showMenu(benchmark::State& state, bool laidOut) {
  kvt1::html::DomEngine engine;
  if (laidOut) engine.setLayoutProvider(std::make_unique<kvt1::html::LitehtmlLayout>());
  kvt1::SetHtmlEngine(&engine);
  {
    kvt1::CHTMMenuCtrl menu(L"mnuBench", kvt1::CHTMMenuCtrl::Kind::Context);
    kvt1::CHTMDialog dialog(L"HTM_DLG_MESSAGE", nullptr);
    if (!dialog.Create() || !menu.Create(dialog)) state.SkipWithError("the dialog did not open");
    const int items = static_cast<int>(state.range(0));
    for (auto _ : state) {
      for (int i = 0; i < items; ++i) {
        kvt1::SHTMMenuItem* item = menu.AddItem(L"Surface " + std::to_wstring(i), nullptr, i);
        item->checked = i % 7 == 0;
        if (i % 50 == 49) menu.AddSeparator();
      }
      menu.Render();
      menu.ShowAt(POINT{40, 30});
#ifdef _WIN32
      UpdateWindow(dialog.GetHwnd());  // WM_PAINT draws the page and the popup through the engine
#endif
      // Asking where the popup is makes the layout run.
      RECT box{};
      engine.GetElementLocation(menu.Element().Handle(), &box, ROOT_RELATIVE | BORDER_BOX);
      benchmark::DoNotOptimize(box);
      // Closing is not part of showing: the page is laid out without the
      // menu, as the repaint after a closed menu would, outside the timing.
      state.PauseTiming();
      menu.HidePopup();
      menu.Clear();
      engine.GetElementLocation(menu.Element().Handle(), &box, ROOT_RELATIVE | BORDER_BOX);
      state.ResumeTiming();
    }
    dialog.Close();
  }
  kvt1::SetHtmlEngine(nullptr);
}
void BM_ShowMenu(benchmark::State& state) { showMenu(state, true); }
void BM_ShowMenuWithoutLayout(benchmark::State& state) { showMenu(state, false); }
BENCHMARK(BM_ShowMenu)->Arg(250)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ShowMenuWithoutLayout)->Arg(1000)->Unit(benchmark::kMillisecond);

}  // namespace
