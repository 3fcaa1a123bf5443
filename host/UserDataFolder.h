#pragma once
// The user's data folder ("DataPath" of the user's settings): given a default
// below the user's application-data folder when unset or empty, and created.
// A value the user has is never replaced, even one that cannot be read.
#include <optional>
#include <string>

namespace kvt1 {

class CSettingsStore;

// The folder, once it exists; nothing when it cannot be named or created.
std::optional<std::wstring> ensureUserDataFolder(CSettingsStore& settings);

}  // namespace kvt1
