// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "fakes/journal.h"
#include "macros/prompt_dialog.h"

namespace vbr {

// Answers prompts in turn; nothing is Cancel.
class FakePrompter : public Prompter {
  public:
    explicit FakePrompter(Journal& calls) : calls_(calls) {}

    std::deque<std::optional<std::u16string>> Answers;
    std::vector<std::u16string> Defaults;  // as they were shown
    std::function<void()> WhileOpen = [] {};

    bool ShowPromptDialog(WindowHandle, std::u16string& inOutText) override {
        calls_.push_back("prompt");
        Defaults.push_back(inOutText);
        WhileOpen();
        const std::optional<std::u16string> answer = Answers.front();
        Answers.pop_front();
        inOutText = answer.value_or(u"");
        return answer.has_value();
    }

  private:
    Journal& calls_;
};

}  // namespace vbr
