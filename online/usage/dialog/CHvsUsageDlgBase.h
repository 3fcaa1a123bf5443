#pragma once
// The consent question's page "HTM_DLG_USAGEREPORTREGISTER": "btnOk" ends
// with the answer of the checked "yesno" radio, "btnLater" with "ask again",
// "btnMoreInfo" tells more about the programme. Its results are those of
// EHvsUsageConsent; closed without a button it ends with kUsageConsentClosed.
#include <string>

#include "htmlui/CHTMDialog.h"
#include "htmlui/dialogs/CHTMDialogKVT.h"

class CHvsUsageDlgBase : public kvt1::CHTMDialogKVT<kvt1::CHTMDialog> {
 public:
  explicit CHvsUsageDlgBase(HWND parent);

 protected:
  bool OnButtonClick(const kvt1::CHTMElement& element, const std::wstring& id, BEHAVIOR_EVENT_PARAMS& params) override;
  // "More Information...".
  virtual void OnMoreInfo() = 0;

 private:
  // kUsageConsentAgreed when the checked "yesno" radio's value is 1, else kUsageConsentDeclined.
  int CheckedAnswer() const;
  void End(int result);
};
