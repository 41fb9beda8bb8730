// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include "exchange/query_route.h"
#include "platform/win32/system_library.h"
#include "platform/win32/wide.h"
#include "shell/win32/application.h"

namespace {

// Tests take the road of another system.
std::optional<vbr::RouteKind> RoadOfTest() {
    wchar_t word[16];
    const DWORD length = GetEnvironmentVariableW(L"VELLUMBRIDGE_QUERY_ROAD", word, 16);
    return vbr::ParseRoute(vbr::FromWide(word, length < 16 ? length : 0));
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR cmdLine, int) {
    vbr::SearchSystemFolderOnly();
    return vbr::Application(RoadOfTest()).Main(vbr::FromWide(cmdLine));
}
