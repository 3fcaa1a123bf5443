#pragma once
// The module's language resources: a library beside the module named after
// it and the installation's language ("kvt2018ENU.dll" beside "kvt2018.arx"),
// which holds the text document. English is the fallback.
#include <string>

#include "host/ModulePath.h"
#include "platform/DynamicLibrary.h"

namespace kvt1 {

class SettingsStore;

// The language module's path for a language code such as "ENU".
std::wstring languageModulePath(const ModuleLocation& module, const std::wstring& language);

// Loads the module of the installation's language ("Language" setting),
// else the English one; not loaded when neither is there.
platform::DynamicLibrary loadLanguageModule(const ModuleLocation& module, SettingsStore& settings);

}  // namespace kvt1
