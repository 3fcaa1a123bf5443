#include "tools/kvt1-host/gallery/ControlsGallery.h"

#include "host/HtmlEngineSetup.h"
#include "platform/DynamicLibrary.h"
#include "platform/ThisModule.h"
#include "platform/WideFormat.h"
#include "tools/kvt1-host/gallery/CControlsGalleryDlg.h"

namespace kvt1::emu {

void showControlsGallery(const std::function<void(const std::wstring&)>& print) {
  // Windows draws with the library's DLL when it is found beside the program
  // or on the path; elsewhere the engine is our own.
#ifdef _WIN32
  const platform::DynamicLibrary library = platform::DynamicLibrary::load(L"htmlayout.dll");
#else
  const platform::DynamicLibrary library;
#endif
  HtmlEngineSetup engine;
  engine.start(library, platform::thisModuleHandle());
  if (engine.engine() == nullptr) {
    print(L"gallery: no HTML engine on this system\n");
    return;
  }
  CControlsGalleryDlg dialog(print);
  print(platform::formatWide(L"gallery: closed (%d)\n", dialog.DoModal()));
}

}  // namespace kvt1::emu
