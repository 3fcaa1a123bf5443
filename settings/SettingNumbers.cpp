#include "settings/SettingNumbers.h"

namespace kvt1 {

const wchar_t* settingValueName(int number) {
  switch (number) {
    case kSettingProgramPath:
      return L"ProgramPath";
    case kSettingLanguage:
      return L"Language";
    case kSettingDataPath:
      return L"DataPath";
    case kSettingDeploymentPath:
      return L"DeploymentPath";
    case kSettingUserDataPath:
      return L"DataPath";
    case kSettingUserDefinedPath:
      return L"UserDefinedPath";
    case kSettingPropObjSourceDir:
      return L"PropObjSourceDir";
    case kSettingPlotTemplateFile:
      return L"PlotTemplateFile";
    case kSettingPropTemplateDir:
      return L"PropTemplateDir";
    case kSettingTutorials:
      return L"Tutorials";
    case kSettingAllowAEMigr:
      return L"AllowAEMigr";
    default:
      return nullptr;
  }
}

bool isPathSetting(int number) {
  switch (number) {
    case kSettingProgramPath:
    case kSettingDataPath:
    case kSettingDeploymentPath:
    case kSettingUserDataPath:
    case kSettingUserDefinedPath:
    case kSettingPropObjSourceDir:
    case kSettingPlotTemplateFile:
    case kSettingPropTemplateDir:
      return true;
    default:
      return false;
  }
}

}  // namespace kvt1
