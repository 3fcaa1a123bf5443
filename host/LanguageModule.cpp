#include "host/LanguageModule.h"

#include "settings/SettingNumbers.h"
#include "settings/SettingsStore.h"

namespace kvt1 {
namespace {

const wchar_t kFallbackLanguage[] = L"ENU";

}  // namespace

std::wstring languageModulePath(const ModuleLocation& module, const std::wstring& language) {
  const std::size_t dot = module.fileName.rfind(L'.');
  return module.folder + module.fileName.substr(0, dot) + language + platform::kLibrarySuffix;
}

platform::DynamicLibrary loadLanguageModule(const ModuleLocation& module, SettingsStore& settings) {
  std::wstring language;
  if (settings.readString(kSettingLanguage, language) == 0 && !language.empty() && language != kFallbackLanguage) {
    platform::DynamicLibrary chosen = platform::DynamicLibrary::load(languageModulePath(module, language));
    if (chosen.isLoaded()) return chosen;
  }
  return platform::DynamicLibrary::load(languageModulePath(module, kFallbackLanguage));
}

}  // namespace kvt1
