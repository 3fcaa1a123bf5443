#include "online/usage/dialog/CHvsUsageDlgBase.h"

#include <cwchar>

#include "online/usage/CHvsUsageReportManagerBase.h"
#include "platform/DialogWindow.h"

CHvsUsageDlgBase::CHvsUsageDlgBase(HWND parent) : CHTMDialogKVT(L"HTM_DLG_USAGEREPORTREGISTER", parent) {
  SetResult(kUsageConsentClosed);
}

bool CHvsUsageDlgBase::OnButtonClick(const kvt1::CHTMElement&, const std::wstring& id, BEHAVIOR_EVENT_PARAMS&) {
  if (id == L"btnOk") {
    End(CheckedAnswer());
  } else if (id == L"btnLater") {
    End(kUsageConsentLater);
  } else if (id == L"btnMoreInfo") {
    OnMoreInfo();
  } else {
    return false;
  }
  return true;
}

int CHvsUsageDlgBase::CheckedAnswer() const {
  const kvt1::CHTMElement checked = Root().SelectFirst(L"[name='yesno']:checked");
  if (!checked.IsValid()) return kUsageConsentDeclined;
  return std::wcstol(checked.GetAttribute("value").c_str(), nullptr, 10) == 1 ? kUsageConsentAgreed
                                                                              : kUsageConsentDeclined;
}

void CHvsUsageDlgBase::End(int result) {
  SetResult(result);
  kvt1::platform::postMessage(GetHwnd(), WM_CLOSE, 0, 0);
}
