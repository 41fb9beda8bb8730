// SPDX-License-Identifier: MIT
#include "hook/no_runtime.h"

#include "platform/win32/windows.h"

#include <cstddef>
#include <cstdint>
#include <intrin.h>

// The compiler calls these by itself, and there is no C runtime in the library to have them.
extern "C" {

std::uintptr_t __stack_chk_guard = 0x2B99'2DDF'A232'0000;

[[noreturn]] void __stack_chk_fail() {
    asm volatile("int $0x29" : : "c"(FAST_FAIL_STACK_COOKIE_CHECK_FAILURE));
    __builtin_unreachable();
}

void* memset(void* to, int value, std::size_t count) {
    __stosb(static_cast<unsigned char*>(to), static_cast<unsigned char>(value), count);
    return to;
}

void* memcpy(void* to, const void* from, std::size_t count) {
    __movsb(static_cast<unsigned char*>(to), static_cast<const unsigned char*>(from), count);
    return to;
}

}  // extern "C"

namespace vbr::hook {

__attribute__((no_stack_protector)) void ArmStackProtector() {
    FILETIME now;
    LARGE_INTEGER count;
    GetSystemTimeAsFileTime(&now);
    QueryPerformanceCounter(&count);
    const std::uint64_t time = std::uint64_t{now.dwHighDateTime} << 32 | now.dwLowDateTime;
    const auto place = reinterpret_cast<std::uintptr_t>(&now);
    std::uint64_t value = time ^ place ^ static_cast<std::uint64_t>(count.QuadPart) << 20 ^
                          std::uint64_t{GetCurrentProcessId()} << 32 ^ GetCurrentThreadId();
    value *= 0x9E37'79B9'7F4A'7C15;
    // A zero byte at its low end ends a text that runs over.
    __stack_chk_guard = static_cast<std::uintptr_t>((value ^ value >> 29) << 8);
}

}  // namespace vbr::hook
