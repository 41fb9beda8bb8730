// SPDX-License-Identifier: MIT
#include <windows.h>

#include <cstring>

// The least that a resident program is: a hidden window that answers. The floor of the benchmarks.
//   NAME        of the event that it makes when it is ready
//   --hotkey    takes the hot key Ctrl+Alt+Enter
//   LIBRARY     is loaded
int main(int argc, char** argv) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = DefWindowProcW;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"Vellumbridge_Bare";
    RegisterClassW(&windowClass);
    const HWND window = CreateWindowW(windowClass.lpszClassName, L"", WS_OVERLAPPEDWINDOW, 0, 0, 10,
                                      10, nullptr, nullptr, windowClass.hInstance, nullptr);
    if (!window || argc < 2) {
        return 1;
    }
    for (int i = 2; i < argc; ++i) {
        const bool done = std::strcmp(argv[i], "--hotkey") == 0
                              ? RegisterHotKey(window, 1, MOD_CONTROL | MOD_ALT, VK_RETURN) != 0
                              : LoadLibraryA(argv[i]) != nullptr;
        if (!done) {
            return 1;
        }
    }
    // It goes with the process.
    CreateEventA(nullptr, TRUE, FALSE, argv[1]);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
    return 0;
}
