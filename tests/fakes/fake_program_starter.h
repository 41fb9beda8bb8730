// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <string>
#include <vector>

#include "base/text.h"
#include "platform/program_starter.h"

namespace vbr {

// Files and folders by their full names, and what was started.
class FakeProgramStarter : public ProgramStarter {
  public:
    struct Failure {
        WindowHandle Owner = 0;
        std::u16string Text;
        std::u16string Title;

        bool operator==(const Failure&) const = default;
    };

    std::set<std::u16string> Files;
    std::set<std::u16string> Folders;
    std::optional<std::uint32_t> Error;
    std::vector<std::u16string> Started;  // path and parameters, each in brackets
    std::vector<Failure> Failures;
    mutable int Asked = 0;

    bool IsFile(std::u16string_view path) const override {
        ++Asked;
        return Files.contains(std::u16string(path));
    }
    bool IsFolder(std::u16string_view path) const override {
        ++Asked;
        return Folders.contains(std::u16string(path));
    }
    std::optional<std::uint32_t> Start(std::u16string_view path,
                                       std::u16string_view parameters) override {
        Started.push_back(Concat(u"[", path, u"][", parameters, u"]"));
        return Error;
    }
    void TellFailure(WindowHandle owner, std::u16string_view text,
                     std::u16string_view title) override {
        Failures.push_back({owner, std::u16string(text), std::u16string(title)});
    }
};

}  // namespace vbr
