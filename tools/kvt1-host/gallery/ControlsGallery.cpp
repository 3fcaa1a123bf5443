#include "tools/kvt1-host/gallery/ControlsGallery.h"

#include "host/HtmlEngineSetup.h"
#include "platform/DynamicLibrary.h"
#include "platform/WideFormat.h"
#include "tools/kvt1-host/gallery/CControlsGalleryDlg.h"

namespace kvt1::emu {

void showControlsGallery(const std::function<void(const std::wstring&)>& print) {
  // The library's DLL draws when it is found beside the program or on the
  // path (Windows); otherwise our own engine does.
#ifdef _WIN32
  const platform::DynamicLibrary library = platform::DynamicLibrary::load(L"htmlayout.dll");
#else
  const platform::DynamicLibrary library;
#endif
  HtmlEngineSetup engine;
  engine.start(library);
  CControlsGalleryDlg dialog(print);
  print(platform::formatWide(L"gallery: closed (%d)\n", dialog.DoModal()));
}

}  // namespace kvt1::emu
