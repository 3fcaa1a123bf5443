#pragma once
// The services behind the LISP functions, called once a call's arguments have
// passed their checks. Each answers on its own subsystem's behalf: help topics
// and the support page (settings), the splash and information dialogs, usage
// counting and the update check settings. A service whose subsystem is not in
// this build answers with no visible effect, and kvt1_GetSettings with "0".
#include <string>

namespace kvt1 {

class CLispServices {
 public:
  void showHelp(const std::wstring& dialogName);
  void driveSplash(int code);
  void showInfo();
  void setFunctionHelp(const std::wstring& functionName, const std::wstring& commandKey);
  void countFeatureUse(const std::wstring& key);
  void openSupportPage();
  bool readSetting(const std::wstring& key);
  void writeSetting(const std::wstring& key, const std::wstring& value);
};

}  // namespace kvt1
