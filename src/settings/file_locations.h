// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "platform/file_access.h"
#include "settings/settings.h"

namespace vbr {

// Where every file of the program lies. Folders end in a backslash.
struct FileLocations {
    std::u16string ModulePath;
    std::u16string ProgramFolder;
    bool Portable = false;  // everything stays beside the program file
    std::u16string LocalSettings;
    std::u16string UserSettings;
    std::u16string SettingsFile;  // one of the two above
    std::u16string LogFile;

    std::u16string HookLibrary() const;
    std::u16string Editor() const;
    std::u16string Welcome() const;
};

// The root of the drive or the network share that holds a file, with a backslash at its end.
std::u16string DriveRootOf(std::u16string_view path);

// Decides the locations by the drive of the program file and by what may be written. Makes an
// empty Settings.ini beside the program when there is none, and the folder in the user's profile
// when the user copy is chosen.
FileLocations ChooseFileLocations(std::u16string_view modulePath, FileAccess& access);

SettingsFiles SettingsFilesOf(const FileLocations& locations);

// The folder of the phrases for the stored setting, environment variables expanded: empty is the
// default, one without a drive or a share lies below the program folder.
std::u16string EffectivePhrasesFolder(std::u16string_view stored, const FileLocations& locations,
                                      const FileAccess& access);

}  // namespace vbr
