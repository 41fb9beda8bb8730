// SPDX-License-Identifier: MIT
#pragma once

#include "platform/system_info.h"

namespace vbr {

// Counts how often it is asked for a name or a version; calls that can fail do.
class FakeSystemInfo : public SystemInfo {
  public:
    std::optional<Point> Cursor;
    mutable int Asked = 0;

    std::u16string UserName() const override { return Answer(u"ann"); }
    std::optional<Point> CursorPosition() const override { return Cursor; }
    std::optional<std::u16string> SystemDirectory() const override { return std::nullopt; }
    std::u16string SystemDescription() const override { return Answer(u"system"); }
    bool Is64BitWindows() const override { return true; }
    std::u16string FileVersion(ProgramFile file) const override {
        constexpr const char16_t* kVersions[] = {u"main", u"editor", u"library"};
        return Answer(kVersions[static_cast<int>(file)]);
    }

  private:
    std::u16string Answer(const char16_t* value) const {
        ++Asked;
        return value;
    }
};

}  // namespace vbr
