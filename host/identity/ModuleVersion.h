#pragma once
// The module's version texts, read from its own version resource. Results
// live in rings of buffers: a caller may use several in one expression, and
// must copy a text it keeps beyond six further calls of the same kind.
#include <string>

namespace kvt1 {

enum class VersionNumber { File, Product };
// "%d.%d.%d.%d" from the fixed version information; ring of 7 buffers.
const wchar_t* moduleVersionNumber(VersionNumber which);

// Selector 0: "ProductVersion", 1: "FileVersion", from the first translation
// that has it; empty for any other selector or a missing resource. Ring of 10.
const std::wstring& moduleVersionString(int selector);

// "<fileName> [prodVer:<product version> fileVer:<file version>]".
std::wstring moduleVersionDescription(const std::wstring& fileName);

}  // namespace kvt1
