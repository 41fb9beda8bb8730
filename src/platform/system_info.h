// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "base/geometry.h"

namespace vbr {

// A file of the program whose version can be asked.
enum class ProgramFile { Main, Editor, HookLibrary };

// Facts about the machine and the program that a phrase can hold.
class SystemInfo {
  public:
    virtual ~SystemInfo() = default;

    // Name of the logged-on user; empty when it can't be read.
    virtual std::u16string UserName() const = 0;
    virtual std::optional<Point> CursorPosition() const = 0;
    virtual std::optional<std::u16string> SystemDirectory() const = 0;
    // Name with " 64x" or " 32x", "build %d" and the service pack, joined by blanks.
    virtual std::u16string SystemDescription() const = 0;
    virtual bool Is64BitWindows() const = 0;
    // The version of the file's version resource, "1.2.3.4"; empty when it can't be read.
    virtual std::u16string FileVersion(ProgramFile file) const = 0;
};

}  // namespace vbr
