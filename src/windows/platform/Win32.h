#pragma once

// The window system's own declarations, wide and as small as they come. Included in place of <windows.h> everywhere:
// its macros that have the names of members of ours are gone behind it, so that a call of the system's own names the
// wide function in full, as in ::SendMessageW.

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

// Users sit on anything from XP on: what is newer is looked up at run time.
#ifndef _WIN32_WINNT
#define _WIN32_WINNT 0x0501
#endif

#include <windows.h>

#undef CreateFont
#undef DeleteFile
#undef DrawText
#undef FindText
#undef FindWindow
#undef FindWindowEx
#undef GetFreeSpace
#undef GetMessage
#undef GetObject
#undef GetWindowText
#undef LoadString
#undef MessageBox
#undef PostMessage
#undef RegisterClass
#undef ReplaceText
#undef SendMessage
#undef SetWindowText
#undef TextOut
#undef Yield
#undef interface
#undef near
#undef far
#undef small
#undef ERROR
#undef DELETE
#undef OPAQUE
#undef TRANSPARENT
