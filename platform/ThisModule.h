#pragma once
// The image (module or program) that this code is linked into.
#include <string>

namespace kvt1::platform {

// Its full path, as the system reports it.
std::wstring thisModulePath();

// Its instance handle (the HINSTANCE on Windows, the load address elsewhere).
void* thisModuleHandle();

}  // namespace kvt1::platform
