#pragma once
// Files as buffered C streams, opened by wide path, and folder creation.
// Paths take "\" or "/" as folder separators on every system.
#include <cstdio>
#include <string>

namespace kvt1::platform {

// Opens the file with a C mode string ("rb", "wb", "ab+", "rb+", "wb+").
// A read-only file is not opened with a mode that writes. nullptr on failure.
std::FILE* openFile(const std::wstring& path, const char* mode);

// Reads the whole file into bytes. False, with bytes untouched, when the
// file cannot be opened or read or holds more than limit bytes.
bool readWholeFile(const std::wstring& path, std::size_t limit, std::string& bytes);
// The same for what is left of an open stream (standard input, say).
bool readWholeStream(std::FILE* file, std::size_t limit, std::string& bytes);

// Creates the folder and every missing folder above it. True when the folder
// exists afterwards.
bool createFolders(const std::wstring& path);

}  // namespace kvt1::platform
