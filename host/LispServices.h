#pragma once
// The services behind the LISP functions, called once a call's arguments have
// passed their checks. Help topics, function help, the support page and the
// update check's setting (key "##120") are answered here; the splash and
// information dialogs and usage counting answer with no visible effect until
// their subsystems are part of the module.
#include <string>

namespace kvt1 {

class CHelpTopicMap;
class CSettingsStore;

// The maker's support page, opened by kvt1_support.
extern const wchar_t kSupportPageAddress[];

class CLispServices {
 public:
  CLispServices(CHelpTopicMap& helpMap, CSettingsStore& settings) : helpMap_(helpMap), settings_(settings) {}

  void showHelp(const std::wstring& dialogName);
  void driveSplash(int code);
  void showInfo();
  void setFunctionHelp(const std::wstring& functionName, const std::wstring& commandKey);
  void countFeatureUse(const std::wstring& key);
  void openSupportPage();
  bool readSetting(const std::wstring& key);
  void writeSetting(const std::wstring& key, const std::wstring& value);

 private:
  CHelpTopicMap& helpMap_;
  CSettingsStore& settings_;
};

}  // namespace kvt1
