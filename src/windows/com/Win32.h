#pragma once

// Windows' own declarations, those of COM included; the only way to them. Behind this the macros are gone that have the
// names of members of ours, such as NativeWindows::FindWindow: a call of Windows' own names the wide function in full,
// as in ::FindWindowW.

#ifndef UNICODE
#define UNICODE
#endif
#ifndef _UNICODE
#define _UNICODE
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef STRICT
#define STRICT
#endif

// Windows Vista is the least that the toolchain's own libraries run on. What COM and windows need is older.
#ifndef _WIN32_WINNT
#define _WIN32_WINNT 0x0501
#endif
#ifndef interface
#define interface struct
#endif

#include <windows.h>
//
#include <ocidl.h>
#include <ole2.h>
#include <oleauto.h>
#include <olectl.h>

#undef CreateFont
#undef CreateWindow
#undef DELETE
#undef DeleteFile
#undef DrawText
#undef ERROR
#undef FindText
#undef FindWindow
#undef FindWindowEx
#undef GetClassName
#undef GetCurrentTime
#undef GetFreeSpace
#undef GetMessage
#undef GetObject
#undef GetWindowText
#undef LoadString
#undef MessageBox
#undef OPAQUE
#undef PostMessage
#undef RegisterClass
#undef ReplaceText
#undef SendMessage
#undef SetWindowText
#undef ShellExecute
#undef TextOut
#undef TRANSPARENT
#undef Yield
#undef far
#undef interface
#undef near
#undef small
