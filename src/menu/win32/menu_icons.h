// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <map>
#include <string>
#include <utility>

#include "menu/menu_look.h"
#include "platform/win32/gdi_handle.h"

namespace vbr {

// The icons of the phrase menu, kept once they are loaded.
class MenuIcons {
  public:
    // The icon of that kind for that size in pixels; null when there is none.
    HICON Get(MenuIcon kind, int size);
    // An icon of the program's resources.
    HICON GetResource(int id, int size);
    // The small icon that the shell shows for a program; null when there is no such file.
    HICON GetProgram(const std::u16string& path);

  private:
    std::map<std::pair<int, int>, UniqueIcon> resources_;  // by id and size
    std::map<std::u16string, UniqueIcon> programs_;        // by path
    UniqueIcon plainText_;
    bool plainTextTried_ = false;
};

// The icon without its colours; null when the system refuses.
UniqueIcon MakeGrayIcon(HICON icon);

}  // namespace vbr
