#pragma once
// Characters of a UTF-16LE file on a C stream, whatever the size of wchar_t:
// where wchar_t holds 32 bits, a surrogate pair on disk is one character in
// memory and a character beyond the basic plane is written as a pair. A lone
// surrogate reads as U+FFFD on every system.
// Readers store a terminating NUL and return the number of characters
// stored; narrow buffers receive the text converted to the ANSI code page,
// shortened to fit. Writers return the number of characters given, or -1
// when the write failed. A null stream reads nothing and fails every write.
#include <cstdio>
#include <string_view>

#include "support/SIFileReading.h"

namespace kvt1 {

// Reading ends at U+FFFF: the value given at the end of the file, and one
// that never occurs in text.
constexpr unsigned long kUtf16End = 0xFFFF;
constexpr wchar_t kByteOrderMark = 0xFEFF;

// One UTF-16 unit; kUtf16End at the end of the file or before a lone last byte.
unsigned long utf16ReadUnit(std::FILE* file);

// Reads up to count characters (the buffer holds count + 1).
int utf16ReadChars(std::FILE* file, wchar_t* buffer, int count, ReadStop stop);
int utf16ReadChars(std::FILE* file, char* buffer, int count, ReadStop stop);

// Reads one line of at most count - 1 characters, with its line end.
// Returns 0 at the end of the file.
int utf16ReadLine(std::FILE* file, wchar_t* buffer, int count, LineEnd lineEnd);
int utf16ReadLine(std::FILE* file, char* buffer, int count, LineEnd lineEnd);

int utf16Write(std::FILE* file, std::wstring_view text);
int utf16Write(std::FILE* file, std::string_view text);

}  // namespace kvt1
