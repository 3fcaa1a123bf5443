#pragma once
// The GDI+ C++ classes. The build leaves the OLE headers out of windows.h
// (WIN32_LEAN_AND_MEAN), and GDI+ needs their stream and property types.
#include <windows.h>

#include <objidl.h>

#include <gdiplus.h>
