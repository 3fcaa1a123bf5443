#include "host/HtmlEngineSetup.h"

#include <string>

#include "htmlui/HTMEngine.h"
#include "htmlui/engine/DomEngine.h"
#include "htmlui/engine/litehtml/LitehtmlLayout.h"
#include "platform/DialogClock.h"
#include "text/MessageDescription.h"

#ifdef _WIN32
#include "htmlui/engine/HtmlayoutLibrary.h"
#endif

namespace kvt1 {
namespace {

// The library's DLL when it lies beside the module with every export the
// dialogs need; it exists for Windows only.
#ifdef _WIN32
std::unique_ptr<html::HtmlEngine> libraryEngine(const platform::DynamicLibrary& library) {
  return html::loadHtmlayout(library);
}
#else
std::unique_ptr<html::HtmlEngine> libraryEngine(const platform::DynamicLibrary&) { return nullptr; }
#endif

std::unique_ptr<html::HtmlEngine> domEngine() {
  auto engine = std::make_unique<html::DomEngine>();
  // Pictures go through the dialog's load-data request like every other resource.
  auto layout = std::make_unique<html::LitehtmlLayout>();
  layout->setImageLoader([pages = engine.get()](const std::string& url) { return pages->pictureData(url); });
  engine->setLayoutProvider(std::move(layout));
  if (auto clock = platform::dialogClock()) engine->setClock(std::move(clock));
  return engine;
}

}  // namespace

void HtmlEngineSetup::start(const platform::DynamicLibrary& library) {
  stop();
  m_engine = libraryEngine(library);
  if (!m_engine) m_engine = domEngine();
  SetHtmlEngine(m_engine.get());
  NTxtRes::SetMsgHandler(&m_messages);
}

void HtmlEngineSetup::stop() {
  if (!m_engine) return;
  NTxtRes::SetMsgHandler(nullptr);
  SetHtmlEngine(nullptr);
  m_engine.reset();
}

}  // namespace kvt1
