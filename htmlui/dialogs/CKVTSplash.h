#pragma once
// The product's splash: the picture "IMG_VRMSPLASH.IMAGES" with the product
// version on it and the maker's mark in its lower right corner.
//
// At start-up it shows for kStartUpDisplayMs and never holds the host up:
// the host's start goes on at once, and the host's own message loop drives
// the splash. Its timer counts the display down in ticks of 100 ms; a host
// too busy to take every tick gets fewer of them, so the splash stays a
// little longer while the host is busy starting. It goes when the count runs
// out, when the user clicks it (the click area covers the whole picture), or
// when the LISP application stops it with (kvt1_splash 3). Four seconds is
// long enough to read the version and short enough not to stand in the way.
#include <string>
#include <vector>

#include "htmlui/dialogs/CHTMDialogKVT.h"
#include "htmlui/dialogs/CHTMSplashDlg.h"

namespace kvt1 {

class CKVTSplash : public CHTMDialogKVT<CHTMSplashDlg> {
 public:
  explicit CKVTSplash(HWND parent);

  static constexpr unsigned kStartUpDisplayMs = 4000;
  static constexpr int kPictureWidth = 560;
  static constexpr int kPictureHeight = 320;
  // The module's product version (the version resource's "ProductVersion").
  static constexpr int kVersionSlot = 0;

  bool ShowAtStartUp() { return ShowTimed(kStartUpDisplayMs); }

 protected:
  std::wstring SplashImageUrl() override;
  std::wstring VersionTypeText() override;
  std::wstring VersionInfoText(int versionSlot) override;
  SHTMSplashClickArea ClickArea() override;
  std::vector<SHTMSplashInfoImage> InfoImages() override;
};

}  // namespace kvt1
