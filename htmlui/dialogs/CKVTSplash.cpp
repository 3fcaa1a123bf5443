#include "htmlui/dialogs/CKVTSplash.h"

#include "host/identity/ModuleVersion.h"
#include "text/TextResources.h"

namespace kvt1 {
namespace {

constexpr int kMarkSize = 40;
constexpr int kMarkMargin = 16;

}  // namespace

CKVTSplash::CKVTSplash(HWND parent) : CHTMDialogKVT(parent, kVersionSlot) {}

std::wstring CKVTSplash::SplashImageUrl() { return L"IMG_VRMSPLASH.IMAGES"; }

std::wstring CKVTSplash::VersionTypeText() { return NTxtRes::GetText(L"DlgSplash/VersionType"); }

std::wstring CKVTSplash::VersionInfoText(int versionSlot) { return moduleVersionString(versionSlot); }

SHTMSplashClickArea CKVTSplash::ClickArea() { return {0, kPictureWidth, kPictureHeight}; }

std::vector<SHTMSplashInfoImage> CKVTSplash::InfoImages() {
  return {{L"IMG_HALVORNMARK.IMAGES", kPictureHeight - kMarkSize - kMarkMargin, kPictureWidth - kMarkSize - kMarkMargin,
           kMarkSize, kMarkSize}};
}

}  // namespace kvt1
