#pragma once
// The settings the module keeps, by number: up to 1000 in the machine-wide
// product key, from 1001 in the user's.
namespace kvt1 {

enum SettingNumber {
  kSettingProgramPath = 1,
  kSettingLanguage = 2,
  kSettingDataPath = 3,
  kSettingDeploymentPath = 4,
  kSettingUserDataPath = 1002,
  kSettingUserDefinedPath = 1003,
  kSettingPropObjSourceDir = 1004,
  kSettingPlotTemplateFile = 1005,
  kSettingPropTemplateDir = 1006,
  kSettingTutorials = 1007,
  kSettingAllowAEMigr = 1008,
};

constexpr int kLastMachineSetting = 1000;

// The registry value name of a setting; null for a number without one.
const wchar_t* settingValueName(int number);

// Whether the setting names a folder or file: such values may be as long as
// any path and may be stored as expandable strings ("%APPDATA%\...").
bool isPathSetting(int number);

}  // namespace kvt1
