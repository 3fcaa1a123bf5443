#pragma once
// The splash: a borderless topmost picture (the page "HVSDIALOGS_HTM_SPLASH"
// carries the "fpsplash" marker) with the version written on it, a click
// area and further small pictures. It is shown modeless for a timed display:
// its own timer counts the display down and closes it at the end, and a click
// on the click area, a stop or a modal dialog of the module that opens closes
// it at once. The keyboard stays with the host: its owner gets the foreground
// back, and focus-on-hover is off.
#include <cstdint>
#include <string>
#include <vector>

#include "htmlui/CHTMDialog.h"

namespace kvt1 {

// The click area "clickArea", in pixels of the picture.
struct SHTMSplashClickArea {
  int left = 0;
  int width = 0;
  int height = 0;
};

// A further picture, placed as a div into "InfoImageContainer".
struct SHTMSplashInfoImage {
  std::wstring url;  // e.g. "IMG_NAME.IMAGES": resource IMG_NAME of type IMAGES
  int top = 0;
  int left = 0;
  int width = 0;
  int height = 0;
};

class CHTMSplashDlg : public CHTMDialog {
 public:
  // versionSlot names the version text to show; negative: none.
  CHTMSplashDlg(HWND parent, int versionSlot);

  // Creates the window and shows it for about milliseconds, counted in ticks
  // of kSplashTickMs. False when the window could not be made.
  bool ShowTimed(unsigned milliseconds);
  // Timer off, remaining count cleared, window closed. Nothing when it is not shown.
  void StopTimedDisplay();
  bool IsShown() const;
  unsigned RemainingTicks() const { return m_remainingTicks; }

  static constexpr std::uintptr_t kSplashTimerId = 1;
  static constexpr unsigned kSplashTickMs = 100;

 protected:
  // "url(...)" of this becomes the picture's "background-image".
  virtual std::wstring SplashImageUrl() = 0;
  // The texts of "versionType" and "versionInfo".
  virtual std::wstring VersionTypeText() = 0;
  virtual std::wstring VersionInfoText(int versionSlot) = 0;
  virtual SHTMSplashClickArea ClickArea() = 0;
  virtual std::vector<SHTMSplashInfoImage> InfoImages() { return {}; }

  void OnInitDialog() override;
  void OnTimer(std::uintptr_t id) override;
  // A click on the click area ends the display; the dialog host closes the window.
  void OnMainClick() override;
  // A dialog that waits for the user is never hidden under the topmost
  // splash: the display ends and the window goes before it opens.
  void GiveWayToModalDialog() override { StopTimedDisplay(); }

 private:
  void PlaceInfoImages();

  int m_versionSlot;
  unsigned m_remainingTicks = 0;
};

}  // namespace kvt1
