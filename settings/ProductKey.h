#pragma once
// Where the product keeps its settings in the registry, below the machine and
// the user roots alike.
#include <string>

namespace kvt1 {

// "Software\Halvorn Systems\<product>": the product, without a version.
const std::wstring& productBaseKeyPath();
// "Software\Halvorn Systems\<product>\1.1": this version's key.
const std::wstring& productVersionKeyPath();
// "Software\Halvorn Systems\<product>\1.1\CAD": the settings.
const std::wstring& productKeyPath();

// The version part of the key, and the number older versions are compared with.
extern const wchar_t kSettingsVersion[];
constexpr double kSettingsVersionNumber = 1.1;

}  // namespace kvt1
