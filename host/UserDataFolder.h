#pragma once
// The user's data folder ("DataPath" of the user's settings): given a default
// below the user's application-data folder when unset or empty, and created.
// A value the user has is never replaced, even one that cannot be read.
namespace kvt1 {

class SettingsStore;

// True once the folder exists; false when it cannot be named or created.
bool ensureUserDataFolder(SettingsStore& settings);

}  // namespace kvt1
