#pragma once
// The Win32 types, window messages, styles and virtual keys that portable
// code uses: <windows.h> on Windows; elsewhere the subset used, declared with
// the same names, sizes and values as on 32- and 64-bit Windows.
#ifdef _WIN32
#include <windows.h>
#else
#include <cstdint>

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

#define TRUE 1
#define FALSE 0

#define WM_DESTROY 0x0002
#define WM_SIZE 0x0005
#define WM_SETFOCUS 0x0007
#define WM_KILLFOCUS 0x0008
#define WM_PAINT 0x000F
#define WM_CLOSE 0x0010
#define WM_QUIT 0x0012
#define WM_ERASEBKGND 0x0014
#define WM_GETMINMAXINFO 0x0024
#define WM_NOTIFY 0x004E
#define WM_SETICON 0x0080
#define WM_NCDESTROY 0x0082
#define WM_KEYDOWN 0x0100
#define WM_KEYUP 0x0101
#define WM_CHAR 0x0102
#define WM_INITDIALOG 0x0110
#define WM_TIMER 0x0113
#define WM_MOUSEMOVE 0x0200
#define WM_LBUTTONDOWN 0x0201
#define WM_LBUTTONUP 0x0202
#define WM_RBUTTONDOWN 0x0204
#define WM_RBUTTONUP 0x0205
#define WM_MOUSELEAVE 0x02A3
#define WM_USER 0x0400
#define WM_APP 0x8000

#define MK_LBUTTON 0x0001
#define MK_RBUTTON 0x0002

#define WS_POPUP 0x80000000u
#define WS_CHILD 0x40000000u
#define WS_CAPTION 0x00C00000u
#define WS_BORDER 0x00800000u
#define WS_DLGFRAME 0x00400000u
#define WS_SYSMENU 0x00080000u
#define WS_THICKFRAME 0x00040000u
#define WS_EX_DLGMODALFRAME 0x00000001u
#define WS_EX_TOPMOST 0x00000008u
#define WS_EX_WINDOWEDGE 0x00000100u

#define VK_BACK 0x08
#define VK_TAB 0x09
#define VK_RETURN 0x0D
#define VK_ESCAPE 0x1B
#define VK_END 0x23
#define VK_HOME 0x24
#define VK_LEFT 0x25
#define VK_UP 0x26
#define VK_RIGHT 0x27
#define VK_DOWN 0x28
#define VK_DELETE 0x2E
#endif
