#pragma once
// Linkage of the host's functions. The host exports them (on Windows from its
// core DLL, which the module links against); the emulator's host library
// defines KVT1_ARX_HOST_BUILD to export them itself.
#ifndef KVT1_ARX_RELEASE
#define KVT1_ARX_RELEASE 22
#endif

#if defined(_WIN32)
#if defined(KVT1_ARX_HOST_BUILD)
#define KVT1_ARX_API __declspec(dllexport)
#else
#define KVT1_ARX_API __declspec(dllimport)
#endif
#else
#define KVT1_ARX_API __attribute__((visibility("default")))
#endif

// Function numbers became int in release 20; earlier releases take short.
#if KVT1_ARX_RELEASE >= 20
typedef int ArxFunctionNumber;
#else
typedef short ArxFunctionNumber;
#endif
