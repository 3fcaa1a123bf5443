#pragma once
// Characters of an ANSI file (bytes in the ANSI code page) on a C stream.
// Readers store a terminating NUL and return the number of characters
// stored; wide buffers receive the converted text, shortened to fit.
// Writers return the number of characters given, or -1 when the write failed.
// A null stream reads nothing and fails every write.
#include <cstdio>
#include <string_view>

#include "support/SIFileReading.h"

namespace kvt1 {

// Reads up to count bytes (the buffer holds count + 1). The end of the file
// is recognised by the byte value 255, so a byte 0xFF in the data also ends
// the read; it is consumed and not stored.
int ansiReadChars(std::FILE* file, char* buffer, int count, ReadStop stop);
int ansiReadChars(std::FILE* file, wchar_t* buffer, int count, ReadStop stop);

// Reads one line of at most count - 1 characters, with its line end.
// Returns 0 at the end of the file.
int ansiReadLine(std::FILE* file, char* buffer, int count, LineEnd lineEnd);
int ansiReadLine(std::FILE* file, wchar_t* buffer, int count, LineEnd lineEnd);

int ansiWrite(std::FILE* file, std::string_view text);
int ansiWrite(std::FILE* file, std::wstring_view text);

}  // namespace kvt1
