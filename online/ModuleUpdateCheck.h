#pragma once
// The module's use of the online services: loading the HTTP bridge and the
// update settings at start-up, and the checks for this module's product.
#include <functional>
#include <string>

#include "platform/DialogWindow.h"

namespace kvt1 {

class SettingsStore;

// Loads the HTTP client library from the module folder (with or without a
// trailing separator) and the update settings from the product key.
void loadUpdateServices(const std::wstring& moduleFolder);

// The language code sent with a request: the installation's "Language" when
// it is three ASCII letters, else "ENG".
std::wstring updateLanguage(SettingsStore& settings);

// Runs work on the main thread as the module's own, outside any call from
// the host (with the module's resources current).
using ModuleScope = std::function<void(const std::function<void()>& work)>;

// The start-up check, when the settings allow it: the request goes out on a
// worker thread and this returns at once; when the answer comes, the host's
// message loop shows its findings in the update notification over parent,
// inside scope.
void startModuleUpdateCheck(SettingsStore& settings, HWND parent, ModuleScope scope);

// A check the user asked for: waits for its answer while the host's windows
// are served, shows its findings, or the message that there were none.
void runModuleUpdateCheck(SettingsStore& settings, HWND parent);

// For unloading: ends every request at once (the start-up check's, a usage
// upload) and waits for the start-up check's thread; nothing more is shown.
void stopNetworkTransfers();

// Frees the HTTP client library (at unload).
void releaseUpdateServices();

}  // namespace kvt1
