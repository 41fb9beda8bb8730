// SPDX-License-Identifier: MIT
#include "platform/win32/own_file.h"

#include "platform/win32/windows.h"

#include <gtest/gtest.h>
#include <string>

#include "fakes/temp_folder.h"
#include "platform/win32/loaded_function.h"
#include "platform/win32/win_stamped_files.h"

namespace vbr {
namespace {

namespace fs = std::filesystem;

// Where the system says that it made a link and did not, the one below it does.
void RunBelow(const std::string& command) {
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    std::string line = command;
    const std::string program = "\\\\?\\unix\\bin\\" + command.substr(0, 2);
    CreateProcessA(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                   &start, &process);
}

std::string NameBelow(const fs::path& path) {
    const auto name = FunctionOf<char*(__cdecl*)(const wchar_t*)>(GetModuleHandleW(L"kernel32.dll"),
                                                                  "wine_get_unix_file_name");
    return name ? name(path.c_str()) : std::string();
}

// A link as somebody makes one who wants another file deleted.
class Link {
  public:
    Link(fs::path link, const fs::path& target) : link_(std::move(link)) {
        const DWORD flags = fs::is_directory(target) ? SYMBOLIC_LINK_FLAG_DIRECTORY : 0;
        const bool isTold = CreateSymbolicLinkW(link_.c_str(), target.c_str(), flags | 2);
        if (isTold && fs::exists(link_)) {
            return;
        }
        below_ = NameBelow(link_.parent_path()) + "/" + link_.filename().string();
        RunBelow("ln -s " + NameBelow(target) + " " + below_);
        Await(true);
    }
    ~Link() {
        if (below_.empty()) {
            RemoveDirectoryW(link_.c_str()) || DeleteFileW(link_.c_str());
        } else {
            RunBelow("rm -f " + below_);
            Await(false);
        }
    }
    bool IsMade() const { return fs::exists(link_); }

  private:
    void Await(bool isThere) const {
        for (int i = 0; i < 200 && fs::exists(link_) != isThere; ++i) {
            Sleep(10);
        }
    }
    fs::path link_;
    std::string below_;
};

class OwnFileTest : public testing::Test {
  protected:
    OwnFileTest() {
        folder_.Write("own/a.txt", "x");
        folder_.Write("others/a.txt", "x");
    }
    fs::path In(const char* name) const { return folder_.Path() / name; }

    TempFolder folder_;
};

TEST_F(OwnFileTest, AFileGoesAlsoAReadOnlyOneAndAFolderDoesNot) {
    for (const bool isElevated : {false, true}) {
        folder_.Write("own/b.txt", "x");
        SetFileAttributesW(In("own/b.txt").c_str(), FILE_ATTRIBUTE_READONLY);
        EXPECT_TRUE(DeleteOwnFile(In("own/b.txt"), isElevated));
        EXPECT_FALSE(fs::exists(In("own/b.txt")));
        EXPECT_FALSE(DeleteOwnFile(In("own/b.txt"), isElevated));
        EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
        EXPECT_FALSE(DeleteOwnFile(In("own"), isElevated));
        EXPECT_TRUE(fs::exists(In("own/a.txt")));
    }
}

TEST_F(OwnFileTest, AnElevatedProcessDeletesNothingThroughALinkedFolder) {
    const Link link(In("linked"), In("others"));
    if (!link.IsMade()) {
        GTEST_SKIP() << "No links can be made here";
    }
    EXPECT_TRUE(IsInLink(In("linked/a.txt")));
    EXPECT_FALSE(IsInLink(In("own/a.txt")));
    EXPECT_FALSE(DeleteOwnFile(In("linked/a.txt"), true));
    EXPECT_TRUE(fs::exists(In("others/a.txt")));
    // The user's own links serve the user's own rights.
    EXPECT_TRUE(DeleteOwnFile(In("linked/a.txt"), false));
    EXPECT_FALSE(fs::exists(In("others/a.txt")));
}

TEST_F(OwnFileTest, WhatALinkLeadsToStays) {
    const Link link(In("own/link.txt"), In("others/a.txt"));
    if (!link.IsMade()) {
        GTEST_SKIP() << "No links can be made here";
    }
    DeleteOwnFile(In("own/link.txt"), true);
    EXPECT_TRUE(fs::exists(In("others/a.txt")));
}

}  // namespace
}  // namespace vbr
