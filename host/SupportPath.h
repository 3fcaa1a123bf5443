#pragma once
// Removal of an earlier installation's folders from the host's support search
// path (the host environment value "ACAD", entries separated by ";").
#include <optional>
#include <string>

namespace kvt1 {

// Lower-case text that marks the earlier installation's folders.
extern const wchar_t kEarlierInstallationMarker[];

// The value without the entry holding the first match of lowerText (compared
// against a lower-cased copy of the value), or nothing when there is no match.
std::optional<std::wstring> removeFirstEntryContaining(const std::wstring& value, const std::wstring& lowerText);

// Removes every entry of the host's "ACAD" value that contains lowerText.
void cleanSupportPath(const std::wstring& lowerText);

}  // namespace kvt1
