#pragma once
// The services behind the LISP functions, called once a call's arguments have
// passed their checks: help topics, function help, the splash, the about
// box, usage counting, the support page and the update check's setting
// (key "##120").
#include <string>

#include "platform/Sleep.h"

namespace kvt1 {

class CHelpTopicMap;
class CKVTSplash;
class SettingsStore;

// The maker's support page, opened by kvt1_support.
extern const wchar_t kSupportPageAddress[];

class CLispServices {
 public:
  using SleepFunction = void (*)(unsigned milliseconds);

  CLispServices(CHelpTopicMap& helpMap, SettingsStore& settings, SleepFunction sleep = platform::sleepMilliseconds)
      : helpMap_(helpMap), settings_(settings), sleep_(sleep) {}

  // The splash that kvt1_splash drives; null while there is none.
  void setSplash(CKVTSplash* splash) { splash_ = splash; }

  void showHelp(const std::wstring& dialogName);
  // Nothing unless the splash is shown. Code 3 stops its timed display; then
  // the waiting messages are handled, so that it repaints or closes, and the
  // call sleeps 100 ms.
  void driveSplash(int code);
  // The about box, modal, owned by the host's main window.
  void showInfo();
  void setFunctionHelp(const std::wstring& functionName, const std::wstring& commandKey);
  void countFeatureUse(const std::wstring& key);
  void openSupportPage();
  bool readSetting(const std::wstring& key);
  void writeSetting(const std::wstring& key, const std::wstring& value);

 private:
  CHelpTopicMap& helpMap_;
  SettingsStore& settings_;
  SleepFunction sleep_;
  CKVTSplash* splash_ = nullptr;
};

}  // namespace kvt1
