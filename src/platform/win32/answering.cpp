// SPDX-License-Identifier: MIT
#include "platform/win32/answering.h"

namespace vbr {
namespace {

constexpr UINT kAnswerMs = 200;

}  // namespace

bool Answers(HWND window) {
    DWORD_PTR ignored = 0;
    return IsWindow(window) &&
           SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, kAnswerMs, &ignored) != 0;
}

}  // namespace vbr
