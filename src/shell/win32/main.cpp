// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include "platform/win32/system_library.h"
#include "platform/win32/wide.h"
#include "shell/win32/application.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR cmdLine, int) {
    vbr::SearchSystemFolderOnly();
    return vbr::Application().Main(vbr::FromWide(cmdLine));
}
