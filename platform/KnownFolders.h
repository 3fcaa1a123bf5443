#pragma once
// Folders the system keeps for the user.
#include <string>

namespace kvt1::platform {

// The user's roaming application-data folder, created when missing: the
// shell's AppData folder on Windows; $XDG_DATA_HOME, else ~/.local/share,
// elsewhere. Empty when the system names none.
std::wstring roamingAppDataFolder();

}  // namespace kvt1::platform
