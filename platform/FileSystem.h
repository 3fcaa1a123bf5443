#pragma once
// Whole-file operations for stores that must survive a crash or a full disk:
// a flush that reaches the disk, an atomic replace, a rename that never
// replaces, removal and an existence test. Paths take "\" or "/" as folder
// separators on every system.
#include <cstdio>
#include <string>

namespace kvt1::platform {

// Flushes the stream's buffer and asks the system to write the file through
// to the disk. False when either step failed.
bool flushToDisk(std::FILE* file);

// Moves source over target in one step: readers see the old or the new file,
// never a mix. Both must lie in the same folder (the same volume).
bool replaceFile(const std::wstring& source, const std::wstring& target);

// Renames source to target; false, and nothing changed, when target exists.
bool renameWithoutReplace(const std::wstring& source, const std::wstring& target);

bool removeFile(const std::wstring& path);

// True for an existing file that is not a folder.
bool fileExists(const std::wstring& path);

}  // namespace kvt1::platform
