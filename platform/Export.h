#pragma once
// A function exported from the program or library that defines it, under its
// plain C name, for a module or host that looks it up by that name.
#ifdef _WIN32
#define KVT1_EXPORT extern "C" __declspec(dllexport)
#else
#define KVT1_EXPORT extern "C" __attribute__((visibility("default")))
#endif
