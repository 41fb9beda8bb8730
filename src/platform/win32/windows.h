// SPDX-License-Identifier: MIT
#pragma once

// The one door to the Windows headers. It takes away the macros that rename functions of ours.

#ifndef UNICODE
#define UNICODE
#endif
#ifndef _UNICODE
#define _UNICODE
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#undef LoadString
#undef GetObject
#undef CreateWindow
#undef CreateEvent
#undef OpenEvent
#undef CreateFile
#undef DeleteFile
#undef SendMessage
#undef PostMessage
#undef GetClassName
#undef ReplaceFile
#undef GetUserName
#undef CopyFile
#undef MoveFile
