#pragma once
// The user's data folder ("DataPath" of the user's settings): given a default
// below the user's application-data folder when unset, and created.
namespace kvt1 {

class CSettingsStore;

void ensureUserDataFolder(CSettingsStore& settings);

}  // namespace kvt1
