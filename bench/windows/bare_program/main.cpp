// SPDX-License-Identifier: MIT
#include <windows.h>

#include <cstring>
#include <string>

namespace {

// Finds, opens and reads every file below the folder; false when one can't be read.
bool ReadAll(const std::wstring& folder) {
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &found);
    bool read = search != INVALID_HANDLE_VALUE;
    for (BOOL more = read; more && read; more = FindNextFileW(search, &found)) {
        const std::wstring path = folder + L"\\" + found.cFileName;
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            read = found.cFileName[0] == L'.' || ReadAll(path);
            continue;
        }
        const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        char bytes[4096];
        DWORD count = 0;
        read = file != INVALID_HANDLE_VALUE &&
               ReadFile(file, bytes, sizeof bytes, &count, nullptr) && count > 0;
        CloseHandle(file);
    }
    FindClose(search);
    return read;
}

// The microseconds that reading a folder takes; 0 when that fails.
int TimeReading(const std::string& folder) {
    LARGE_INTEGER frequency;
    LARGE_INTEGER start;
    LARGE_INTEGER end;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&start);
    const bool read = ReadAll({folder.begin(), folder.end()});
    QueryPerformanceCounter(&end);
    return read ? static_cast<int>((end.QuadPart - start.QuadPart) * 1'000'000 / frequency.QuadPart)
                : 0;
}

constexpr int kMenuHotkey = 2;

bool Obey(HWND window, const char* argument) {
    if (std::strcmp(argument, "--hotkey") == 0) {
        return RegisterHotKey(window, 1, MOD_CONTROL | MOD_ALT, VK_RETURN) != 0;
    }
    if (std::strcmp(argument, "--menu") == 0) {
        return RegisterHotKey(window, kMenuHotkey, MOD_CONTROL | MOD_ALT, VK_F12) != 0;
    }
    return LoadLibraryA(argument) != nullptr;
}

void ShowMenu(HWND window) {
    const HMENU menu = CreatePopupMenu();
    for (UINT i = 1; i <= 5; ++i) {
        AppendMenuW(menu, MF_STRING, i, L"A phrase of the menu");
    }
    SetForegroundWindow(window);
    TrackPopupMenu(menu, TPM_RETURNCMD, 100, 100, 0, window, nullptr);
    DestroyMenu(menu);
}

}  // namespace

// The least that a resident program is: a hidden window that answers. The floor of the benchmarks.
//   --read FOLDER   alone: reads the files of the folder and ends with the microseconds it took
//   NAME        of the event that it makes when it is ready
//   --hotkey    takes the hot key Ctrl+Alt+Enter
//   --menu      takes the hot key Ctrl+Alt+F12 and shows a small menu at it
//   LIBRARY     is loaded
int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "--read") == 0) {
        return TimeReading(argv[2]);
    }
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
        if (!Obey(window, argv[i])) {
            return 1;
        }
    }
    // It goes with the process.
    CreateEventA(nullptr, TRUE, FALSE, argv[1]);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (message.message == WM_HOTKEY && message.wParam == kMenuHotkey) {
            ShowMenu(window);
        }
        DispatchMessageW(&message);
    }
    return 0;
}
