#include "online/NoUpdatesMessage.h"

#include "platform/ActiveWindow.h"
#include "platform/MessageBox.h"
#include "text/TextResources.h"

namespace kvt1 {

const wchar_t kNoUpdatesText[] = L"No updates were found.";
const wchar_t kUpdatesCaption[] = L"Automatic Updates Notification";

namespace {

// The language module's text under "MsgNoUpdates", or the English one.
std::wstring localText(const wchar_t* subKey, const wchar_t* english) {
  const std::wstring text = NTxtRes::GetText(L"MsgNoUpdates", subKey, true);
  return text.empty() ? english : text;
}

}  // namespace

void showNoUpdatesMessage() {
  platform::showMessageBox(platform::activeWindow(), localText(L"InfoText", kNoUpdatesText),
                           localText(L"CaptionText", kUpdatesCaption), platform::kMbOk | platform::kMbIconInformation);
}

}  // namespace kvt1
