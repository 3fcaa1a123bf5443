#include "host/HtmlEngineSetup.h"

#include "htmlui/HTMEngine.h"
#include "text/MessageDescription.h"

#ifdef _WIN32
#include "htmlui/engine/HtmlayoutLibrary.h"
#else
#include <dlfcn.h>

#include <optional>
#include <string>
#include <vector>

#include "htmlui/HTMPage.h"
#include "htmlui/engine/DomEngine.h"
#include "htmlui/engine/litehtml/LitehtmlLayout.h"
#include "platform/Resources.h"
#include "platform/Unicode.h"
#endif

namespace kvt1 {
namespace {

#ifdef _WIN32
std::unique_ptr<html::HtmlEngine> makeEngine(const platform::DynamicLibrary& library, void*) {
  return html::loadHtmlayout(library);
}
#else
// Pictures named in a page come from the resources, as the dialogs' other
// resource requests do: "IMG_X.IMAGES" is the resource IMG_X of type IMAGES.
std::vector<unsigned char> pictureResource(void* resources, const std::string& url) {
  const PageResourceName resource = resourceForUrl(platform::fromUtf8(url));
  const std::optional<platform::ResourceData> data = platform::findResource(resources, resource.type, resource.name);
  if (!data) return {};
  return std::vector<unsigned char>(data->bytes, data->bytes + data->size);
}

// Pango starts fontconfig on a thread of its own and registers its types
// with GObject for the life of the process: once the module has used them,
// the font libraries stay loaded when the module is unloaded, or that thread
// would run in unmapped code and a later load would register the types twice.
void keepFontLibrariesLoaded() { dlopen("libpangocairo-1.0.so.0", RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE); }

std::unique_ptr<html::HtmlEngine> makeEngine(const platform::DynamicLibrary&, void* resources) {
  keepFontLibrariesLoaded();
  auto layout = std::make_unique<html::LitehtmlLayout>();
  layout->setImageLoader([resources](const std::string& url) { return pictureResource(resources, url); });
  auto engine = std::make_unique<html::DomEngine>();
  engine->setLayoutProvider(std::move(layout));
  return engine;
}
#endif

}  // namespace

void HtmlEngineSetup::start(const platform::DynamicLibrary& library, void* resources) {
  stop();
  m_engine = makeEngine(library, resources);
  if (!m_engine) return;
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
