#include "htmlui/dialogs/CHTMDialogKVT.h"

#include "host/identity/ProductIdentity.h"
#include "platform/WideFormat.h"
#include "text/TextResources.h"

namespace kvt1 {

const wchar_t kHtmlComponent[] = L"HTMLayout";
const wchar_t kCompanyName[] = L"Halvorn Aero";

std::wstring ResolveProductTag(const std::wstring& tag) {
  if (tag.empty() || tag[0] != L'*') return NTxtRes::GetText(tag);
  if (tag == L"*prod") return productName(kProductNumber);
  if (tag == L"*buildyear") return platform::formatWide(L"%d", kBuildYear);
  if (tag == L"*htmlcomponent") return kHtmlComponent;
  if (tag == L"*companyname") return kCompanyName;
  return {};
}

}  // namespace kvt1
