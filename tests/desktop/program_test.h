// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <iostream>

#include "base/text.h"
#include "desktop/driver/keyboard.h"
#include "desktop/driver/menus.h"
#include "desktop/driver/notepad.h"
#include "desktop/driver/program.h"
#include "desktop/driver/waiting.h"
#include "platform/win32/wide.h"

namespace vbr::desktop {

// A program of the test's own. What there is to see of a failure stands in its log.
class ProgramTest : public testing::Test {
  protected:
    explicit ProgramTest(Build build = Build::Shipped) : program_(build) {}
    void TearDown() override {
        if (HasFailure()) {
            std::cout << Utf16ToUtf8(program_.Log()) << '\n';
        }
    }
    // The program with one phrase in its menu.
    void StartWithPhrase(const std::string& xmlCmd, const std::string& settings = "") {
        program_.AddPhrase("Only phrase", 1, xmlCmd);
        Start(settings);
    }
    void Start(const std::string& settings = "") {
        program_.WriteSettings("WriteLog=1\n" + settings);
        ASSERT_TRUE(program_.StartResident());
    }
    static void OpenMenu(const EditWindow& target) {
        ASSERT_TRUE(WaitUntil([&] { return target.BringToFront(); }));
        PressHotkey();
        ASSERT_TRUE(WaitForMenu());
    }
    static void CloseMenu() {
        PressKeys({VK_ESCAPE});
        ASSERT_TRUE(WaitForNoMenu());
    }
    static void Choose(const EditWindow& target, int position = 0) {
        ASSERT_NO_FATAL_FAILURE(OpenMenu(target));
        ChooseMenuItem(position);
    }
    // A named event of the program, null when there is none.
    static UniqueHandle OpenSignal(std::u16string_view name) {
        return UniqueHandle(OpenEventW(SYNCHRONIZE | EVENT_MODIFY_STATE, FALSE, Wide(name.data())));
    }
    int CountInLog(std::u16string_view text) const {
        const std::u16string log = program_.Log();
        int count = 0;
        for (std::size_t at = 0; (at = log.find(text, at)) != log.npos; ++at) {
            ++count;
        }
        return count;
    }
    bool WaitForLog(std::u16string_view text) const {
        return WaitUntil([&] { return CountInLog(text) > 0; });
    }

    Program program_;
};

}  // namespace vbr::desktop
