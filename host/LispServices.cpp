#include "host/LispServices.h"

#include "host/arx/Arx.h"
#include "htmlui/dialogs/CKVTAbout.h"
#include "htmlui/dialogs/CKVTSplash.h"
#include "online/CHvAutomaticUpdateManager.h"
#include "online/ModuleUpdateCheck.h"
#include "online/usage/dialog/ModuleUsageReporting.h"
#include "platform/DialogWindow.h"
#include "platform/Shell.h"
#include "settings/CHelpTopicMap.h"
#include "settings/HelpFiles.h"

namespace kvt1 {

namespace {

constexpr int kSettingAutomaticUpdateCheck = 120;
constexpr int kRunUpdateCheckNow = 2;
constexpr int kSplashStop = 3;
constexpr unsigned kSplashSleepMs = 100;

// An integer from the text's leading digits, after blanks and a sign; 0 without digits.
int leadingInteger(const std::wstring& text) {
  std::size_t at = text.find_first_not_of(L" \t");
  if (at == std::wstring::npos) return 0;
  const bool negative = text[at] == L'-';
  if (text[at] == L'-' || text[at] == L'+') ++at;
  long long value = 0;
  for (; at < text.size() && text[at] >= L'0' && text[at] <= L'9'; ++at) {
    value = value * 10 + (text[at] - L'0');
    if (value > 0x7FFFFFFF) break;
  }
  if (value > 0x7FFFFFFF) value = 0x7FFFFFFF;
  return static_cast<int>(negative ? -value : value);
}

// "##<number>": every "##" removed and the rest read as an integer; a key
// without "##" is number 0.
int settingKeyNumber(std::wstring key) {
  if (key.find(L"##") == std::wstring::npos) return 0;
  for (std::size_t at; (at = key.find(L"##")) != std::wstring::npos;) key.erase(at, 2);
  return leadingInteger(key);
}

}  // namespace

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

void CLispServices::driveSplash(int code) {
  // Only a missing splash makes the call do nothing: a closed one still paces the caller.
  if (splash_ == nullptr) return;
  if (code == kSplashStop) splash_->StopTimedDisplay();
  platform::pumpPendingMessages();
  sleep_(kSplashSleepMs);
}

void CLispServices::showInfo() {
  CKVTAbout about(adsw_acadMainWnd());
  about.DoModal();
}

void CLispServices::countFeatureUse(const std::wstring& key) { countUsageFeature(key); }
bool CLispServices::readSetting(const std::wstring& key) {
  if (settingKeyNumber(key) != kSettingAutomaticUpdateCheck) return false;
  return Hv::Http::CHvAutomaticUpdateManager::Instance()->CheckOnStartUp();
}

void CLispServices::writeSetting(const std::wstring& key, const std::wstring& value) {
  if (settingKeyNumber(key) != kSettingAutomaticUpdateCheck) return;
  const int number = leadingInteger(value);
  if (number == kRunUpdateCheckNow) {
    runModuleUpdateCheck(settings_, adsw_acadMainWnd());
    return;
  }
  Hv::Http::CHvAutomaticUpdateManager* updates = Hv::Http::CHvAutomaticUpdateManager::Instance();
  updates->SetCheckOnStartUp(number == 1);
  updates->SaveCheckOnStartUp();
}

}  // namespace kvt1
