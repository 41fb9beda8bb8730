// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <array>
#include <gtest/gtest.h>
#include <malloc.h>
#include <optional>
#include <stdexcept>
#include <thread>

#include "platform/win32/win_fault_catcher.h"

namespace vbr {
namespace {

int* volatile noAddress = nullptr;

void AccessViolation() {
    *noAddress = 1;
}

void DivisionByZero() {
    asm volatile("xorl %%ecx, %%ecx; xorl %%edx, %%edx; movl $1, %%eax; idivl %%ecx" ::
                     : "eax", "ecx", "edx");
}

void CppException() {
    throw std::runtime_error("nobody catches it");
}

// Each level takes a page, so that the guard page is hit.
int FillStack(int level) {
    volatile char page[4096];
    page[0] = static_cast<char>(level);
    return level < 0 ? 0 : FillStack(level + 1) + page[0];
}

TEST(GuardedSection, EachKindOfFaultIsSurvivedAgainAndAgain) {
    const std::pair<void (*)(), std::uint32_t> kCases[] = {{AccessViolation, 0xC0000005},
                                                           {DivisionByZero, 0xC0000094},
                                                           {CppException, kCodeCppException}};
    WinFaultCatcher catcher;
    for (const auto& [work, code] : kCases) {
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(catcher.Run(work), code);
        }
    }
}

TEST(GuardedSection, AStackOverflowIsSurvivedAndTheNextOneToo) {
    std::array<std::optional<std::uint32_t>, 2> codes;
    std::thread([&codes] {
        // Wine leaves the guard page where a stack begins to end, with less room than a newer Wine
        // takes to unwind. Set anew, the page goes down with the stack, as it does on Windows.
        _resetstkoflw();
        WinFaultCatcher catcher;
        for (auto& code : codes) {
            code = catcher.Run([] { FillStack(0); });
        }
    }).join();
    EXPECT_EQ(codes[0], 0xC00000FD);
    EXPECT_EQ(codes[1], 0xC00000FD);
}

TEST(GuardedSection, TheInnermostSectionTakesTheFaultAndTheOuterGoesOn) {
    WinFaultCatcher catcher;
    std::optional<std::uint32_t> inner;
    bool wentOn = false;
    const auto outer = catcher.Run([&] {
        inner = catcher.Run(AccessViolation);
        wentOn = true;
        DivisionByZero();
    });
    EXPECT_EQ(inner, 0xC0000005);
    EXPECT_TRUE(wentOn);
    EXPECT_EQ(outer, 0xC0000094);
}

TEST(GuardedSection, ThreadsFaultAtOnceEachInItsOwnSection) {
    constexpr int kRounds = 500;
    WinFaultCatcher catcher;
    std::array<int, 2> caught{};
    const auto faultOften = [&catcher](void (*work)(), std::uint32_t code, int& count) {
        for (int i = 0; i < kRounds; ++i) {
            count += catcher.Run(work) == code;
        }
    };
    std::thread other(faultOften, DivisionByZero, 0xC0000094, std::ref(caught[0]));
    faultOften(AccessViolation, 0xC0000005, caught[1]);
    other.join();
    EXPECT_EQ(caught, (std::array{kRounds, kRounds}));
}

TEST(GuardedSection, WhatTheWorkHandlesItselfIsNoFault) {
    WinFaultCatcher catcher;
    bool cppCaught = false;
    bool unreadable = false;
    const auto code = catcher.Run([&] {
        try {
            CppException();
        } catch (const std::runtime_error&) {
            cppCaught = true;
        }
        // The system runs into an access violation here, and handles it.
        unreadable = IsBadStringPtrW(reinterpret_cast<const wchar_t*>(8), 10) != 0;
    });
    EXPECT_EQ(code, std::nullopt);
    EXPECT_TRUE(cppCaught);
    EXPECT_TRUE(unreadable);
}

TEST(GuardedSectionDeathTest, AFaultOutsideOfSectionsEndsTheProgram) {
    EXPECT_EXIT(
        {
            // The process ends with the exception's code, and without a debugger.
            SetUnhandledExceptionFilter(
                [](EXCEPTION_POINTERS*) -> LONG { return EXCEPTION_EXECUTE_HANDLER; });
            WinFaultCatcher catcher;
            catcher.Run(AccessViolation);
            DivisionByZero();
        },
        [](int code) { return static_cast<std::uint32_t>(code) == 0xC0000094; }, "");
}

}  // namespace
}  // namespace vbr
