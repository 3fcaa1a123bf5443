#include "online/NoUpdatesMessage.h"

#include "platform/ActiveWindow.h"
#include "platform/MessageBox.h"

namespace kvt1 {

const wchar_t kNoUpdatesText[] = L"No updates were found.";
const wchar_t kUpdatesCaption[] = L"Automatic Updates Notification";

void showNoUpdatesMessage() {
  platform::showMessageBox(platform::activeWindow(), kNoUpdatesText, kUpdatesCaption,
                           platform::kMbOk | platform::kMbIconInformation);
}

}  // namespace kvt1
