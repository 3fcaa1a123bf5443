#pragma once
// The module's consent question: asked with the host's main window hidden.
#include "online/usage/dialog/CHvsUsageDlgBase.h"

class CHvsUsageDialog : public CHvsUsageDlgBase {
 public:
  using CHvsUsageDlgBase::CHvsUsageDlgBase;

  // Hides the main window (when given), runs the dialog modally and shows the
  // window again. An EHvsUsageConsent result; kUsageConsentClosed also when
  // the dialog could not be shown.
  static int Ask(HWND mainWindow);

 protected:
  // Opens the product's page about the programme in the browser.
  void OnMoreInfo() override;
};
