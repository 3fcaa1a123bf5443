#pragma once
// The module's use of the online services: loading the HTTP bridge and the
// update settings at start-up, and running a check for this module's product.
#include <string>

#include "platform/DialogWindow.h"

namespace kvt1 {

class CSettingsStore;

// Loads the HTTP client library from the module folder (with or without a
// trailing separator) and the update settings from the product key.
void loadUpdateServices(const std::wstring& moduleFolder);

// The language code sent with a request: the installation's "Language" when
// it is three ASCII letters, else "ENG".
std::wstring updateLanguage(CSettingsStore& settings);

// A check for this module's product version, its findings shown in the
// update notification over parent; manual checks ignore the start-up
// switches and end with a message when nothing was found.
void runModuleUpdateCheck(bool manual, CSettingsStore& settings, HWND parent);

// Frees the HTTP client library (at unload).
void releaseUpdateServices();

}  // namespace kvt1
