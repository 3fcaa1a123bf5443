#include "htmlui/HTMEngine.h"

namespace kvt1 {
namespace {
html::HtmlEngine* g_engine = nullptr;
}  // namespace

html::HtmlEngine* GetHtmlEngine() { return g_engine; }
void SetHtmlEngine(html::HtmlEngine* engine) { g_engine = engine; }

}  // namespace kvt1
