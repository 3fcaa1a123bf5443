#include "host/LispServices.h"

#include "host/arx/Arx.h"
#include "platform/Shell.h"
#include "settings/CHelpTopicMap.h"
#include "settings/HelpFiles.h"

namespace kvt1 {

const wchar_t kSupportPageAddress[] = L"https://www.halvorn.aero/support/kvt";

void CLispServices::showHelp(const std::wstring& dialogName) {
  SHelpTopic topic;
  const bool found = helpMap_.findByDialog(dialogName, topic);
  if (helpMap_.logging()) {
    if (found) {
      acutPrintf(L"HelpMapping; Dialog:%s  Id:%d\n", dialogName.c_str(), topic.id);
    } else {
      acutPrintf(L"HelpMapping; Dialog:%s  NotFound\n", dialogName.c_str());
    }
  }
  kvt1::showHelp(settings_, found ? topic.id : 0, false);
}

void CLispServices::setFunctionHelp(const std::wstring& functionName, const std::wstring& commandKey) {
  SHelpTopic topic;
  const bool found = helpMap_.findByCommand(commandKey, topic);
  if (helpMap_.logging()) {
    if (found) {
      acutPrintf(L"HelpMapping; Command:%s  Topic:%s\n", commandKey.c_str(), topic.topic.c_str());
    } else {
      acutPrintf(L"HelpMapping; Command:%s  Not found\n", commandKey.c_str());
    }
  }
  if (!found) return;
  std::wstring helpFile = productHelpFile(settings_);
  for (wchar_t& c : helpFile) {
    if (c == L'\\') c = L'/';
  }
  acedSetFunHelp(functionName.c_str(), helpFile.c_str(), topic.topic.c_str(), 0);
}

void CLispServices::openSupportPage() { platform::shellOpen(kSupportPageAddress, platform::kShowMaximized); }

void CLispServices::driveSplash(int) {}
void CLispServices::showInfo() {}
void CLispServices::countFeatureUse(const std::wstring&) {}
bool CLispServices::readSetting(const std::wstring&) { return false; }
void CLispServices::writeSetting(const std::wstring&, const std::wstring&) {}

}  // namespace kvt1
