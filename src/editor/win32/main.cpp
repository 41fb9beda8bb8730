// SPDX-License-Identifier: MIT
#include "editor/win32/editor_program.h"
#include "platform/win32/system_library.h"
#include "platform/win32/wide.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR cmdLine, int) {
    vbr::SearchSystemFolderOnly();
    return vbr::RunEditor(vbr::FromWide(cmdLine));
}
