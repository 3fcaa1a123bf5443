// A typical dialog page of about forty elements opened through the litehtml
// layout provider: target under 5 ms for the page open including layout.
#include "htmlui/engine/litehtml/LitehtmlLayout.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

namespace {

// Builds the page element by element, numbering each one as the engine does.
class PageWriter {
 public:
  PageWriter& open(const std::string& tag, const std::string& attributes = "") {
    html_ += "<" + tag + " kvt1-node=\"" + std::to_string(node_++) + "\"" + attributes + ">";
    return *this;
  }
  PageWriter& text(const std::string& text) {
    html_ += text;
    return *this;
  }
  PageWriter& close(const std::string& tag) {
    html_ += "</" + tag + ">";
    return *this;
  }
  PageWriter& element(const std::string& tag, const std::string& content, const std::string& attributes = "") {
    return open(tag, attributes).text(content).close(tag);
  }
  const std::string& html() const { return html_; }

 private:
  std::string html_;
  int node_ = 0;
};

std::string dialogPage() {
  PageWriter page;
  page.open("html").text("<head><style>#Rows td { padding: 2px 6px; } .Hint { color: #555555; }</style></head>");
  page.open("body", " title=\"Update\"").element("h2", "A new version of the application is available");
  page.open("p")
      .text("Version ")
      .element("b", "1.1.0.1")
      .text(
          " can be downloaded now. The update keeps your "
          "settings and ");
  page.element("a", "release notes", " href=\"notes\"").text(" list every change.").close("p");
  page.open("table", " id=\"Rows\"");
  for (int row = 0; row < 6; ++row) {
    page.open("tr").element("td", "Setting " + std::to_string(row));
    page.element("td", "Value of setting " + std::to_string(row), " class=\"Hint\"").close("tr");
  }
  page.close("table");
  for (int box = 0; box < 4; ++box) {
    page.open("div").open("input", box % 2 ? " type=\"checkbox\" class=\"kvt1-checked\"" : " type=\"checkbox\"");
    page.element("label", "Check for updates option " + std::to_string(box)).close("div");
  }
  page.open("hr").open("div", " style=\"text-align:right\"");
  for (const char* name : {"OK", "CANCEL", "HELP"}) {
    page.element("button", name, std::string(" name=\"") + name + "\"");
  }
  page.close("div").open("menu", " class=\"context\"").element("li", "Copy").close("menu");
  return page.close("body").close("html").html();
}

// A new provider each time: fonts, style sheets and text widths from scratch.
void BM_OpenDialogPage(benchmark::State& state) {
  const std::string html = dialogPage();
  for (auto _ : state) {
    kvt1::html::LitehtmlLayout layout;
    layout.layout(html, 420);
    benchmark::DoNotOptimize(layout.minWidth() + layout.maxWidth() + layout.contentHeight());
  }
}
BENCHMARK(BM_OpenDialogPage)->Unit(benchmark::kMillisecond);

// The engine lays the page out again after each change of the DOM.
void BM_RelayoutDialogPage(benchmark::State& state) {
  const std::string html = dialogPage();
  kvt1::html::LitehtmlLayout layout;
  for (auto _ : state) {
    layout.layout(html, 420);
    benchmark::DoNotOptimize(layout.hitTest(100, 100));
  }
}
BENCHMARK(BM_RelayoutDialogPage)->Unit(benchmark::kMillisecond);

void BM_RenderDialogPng(benchmark::State& state) {
  kvt1::html::LitehtmlLayout layout;
  layout.layout(dialogPage(), 420);
  const std::string path = (std::filesystem::temp_directory_path() / "kvt1-bench-dialog.png").string();
  for (auto _ : state) benchmark::DoNotOptimize(layout.renderPng(path));
  std::filesystem::remove(path);
}
BENCHMARK(BM_RenderDialogPng)->Unit(benchmark::kMillisecond);

}  // namespace
