#pragma once
// The product's page tags, the same in every dialog of the product.
#include <string>

namespace kvt1 {

constexpr int kBuildYear = 2018;
extern const wchar_t kHtmlComponent[];
extern const wchar_t kCompanyName[];

// "*prod": the product name; "*buildyear": 2018; "*htmlcomponent":
// "HTMLayout"; "*companyname": "Halvorn Aero". Any other tag that starts
// with "*" is unknown (empty: the page shows "UNKNOWN TAG USED (...)"); a
// tag without it is a key of the text store.
std::wstring ResolveProductTag(const std::wstring& tag);

// Mixes the product's tag resolver into a dialog class of the framework.
template <class TDialog>
class CHTMDialogKVT : public TDialog {
 public:
  using TDialog::TDialog;

 protected:
  std::wstring ResolveTag(const std::wstring& tag) override { return ResolveProductTag(tag); }
};

}  // namespace kvt1
