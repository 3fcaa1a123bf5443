#pragma once
// The Windows types that the HTML engine's declarations use. On Windows they
// come from <windows.h>; elsewhere the few needed are declared here with the
// same sizes as on 32- and 64-bit Windows.
#ifdef _WIN32
#include <windows.h>
#define HLCALLBACK CALLBACK
#else
#include <cstdint>

// Declared the same way as in host/arx/ArxTypes.h, so both may be included.
typedef struct HINSTANCE__* HINSTANCE;
typedef struct HWND__* HWND;
typedef struct HDC__* HDC;

typedef int BOOL;
typedef int INT;
typedef unsigned int UINT;
typedef std::int32_t LONG;
typedef std::uint32_t DWORD;
typedef unsigned char BYTE;
typedef std::uint64_t UINT64;
typedef std::uintptr_t UINT_PTR;
typedef std::uintptr_t WPARAM;
typedef std::intptr_t LPARAM;
typedef std::intptr_t LRESULT;
typedef void VOID;
typedef void* LPVOID;
typedef BYTE* LPBYTE;
typedef const char* LPCSTR;
typedef const wchar_t* LPCWSTR;
typedef UINT* LPUINT;

struct POINT {
  LONG x;
  LONG y;
};
typedef POINT* LPPOINT;

struct RECT {
  LONG left;
  LONG top;
  LONG right;
  LONG bottom;
};
typedef RECT* LPRECT;

struct SIZE {
  LONG cx;
  LONG cy;
};
typedef SIZE* LPSIZE;

struct NMHDR {
  HWND hwndFrom;
  UINT_PTR idFrom;
  UINT code;
};

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif
#define WM_NOTIFY 0x004E
#define HLCALLBACK
#endif
