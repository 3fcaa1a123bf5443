#include "host/HtmlEngineSetup.h"

#include <optional>
#include <string>
#include <vector>

#include "htmlui/HTMEngine.h"
#include "htmlui/HTMPage.h"
#include "htmlui/engine/DomEngine.h"
#include "htmlui/engine/litehtml/LitehtmlLayout.h"
#include "platform/Resources.h"
#include "platform/Unicode.h"
#include "text/MessageDescription.h"

#ifdef _WIN32
#include <chrono>

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

// Pictures named in a page come from the resources, as the dialogs' other
// resource requests do: "IMG_X.IMAGES" is the resource IMG_X of type IMAGES.
std::vector<unsigned char> pictureResource(void* resources, const std::string& url) {
  const PageResourceName resource = resourceForUrl(platform::fromUtf8(url));
  const std::optional<platform::ResourceData> data = platform::findResource(resources, resource.type, resource.name);
  if (!data) return {};
  return std::vector<unsigned char>(data->bytes, data->bytes + data->size);
}

std::unique_ptr<html::HtmlEngine> domEngine(void* resources) {
  auto layout = std::make_unique<html::LitehtmlLayout>();
  layout->setImageLoader([resources](const std::string& url) { return pictureResource(resources, url); });
  auto engine = std::make_unique<html::DomEngine>();
  engine->setLayoutProvider(std::move(layout));
#ifdef _WIN32
  // Real windows live in real time; the headless desktop's director moves
  // the engine's clock itself.
  engine->setClock([] {
    using namespace std::chrono;
    return static_cast<std::uint64_t>(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
  });
#endif
  return engine;
}

}  // namespace

void HtmlEngineSetup::start(const platform::DynamicLibrary& library, void* resources) {
  stop();
  m_engine = libraryEngine(library);
  if (!m_engine) m_engine = domEngine(resources);
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
