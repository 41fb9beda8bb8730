// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <filesystem>
#include <string>

#include "desktop/driver/process.h"

namespace vbr::desktop {

std::string FileBytes(const std::filesystem::path& path);

// The hidden main window of the running program, null when there is none.
HWND TrayWindow();

// Waits until the program answers messages: its menu, hot key and events are up.
bool WaitUntilReady();

// The shipped files, or those that have what only a test may ask for.
enum class Build { Shipped, Test };

// The built program in a folder of its own, with phrases and settings of the test's choice.
class Program {
  public:
    explicit Program(Build build = Build::Shipped);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    const std::filesystem::path& Folder() const { return folder_; }
    std::filesystem::path Phrases() const { return folder_ / L"UserPhrases"; }

    // Writes a phrase; `xmlCmd` is the text as it stands in the file.
    std::filesystem::path AddPhrase(const std::string& name, int sortId, const std::string& xmlCmd,
                                    const std::string& dataType = "TEXT") const;
    void WriteSettings(const std::string& lines) const;
    // What stands in the log file.
    std::u16string Log() const;

    // Puts the editor and the welcome program beside the program.
    void AddCompanions() const;
    // From here on the program starts without an administrator's rights.
    void RunAsStandardUser() { isStandardUser_ = true; }

    // Starts a process of the program with these arguments.
    Process Start(const std::wstring& arguments = L"") const;

    // Starts the resident instance and waits until it is ready.
    bool StartResident(const std::wstring& arguments = L"");
    Process& Resident() { return resident_; }

    // Ends the resident instance by "/exit"; its exit code, or nothing if it goes on.
    std::optional<DWORD> End();

  private:
    std::filesystem::path folder_;
    bool isStandardUser_ = false;
    Process resident_;
};

}  // namespace vbr::desktop
