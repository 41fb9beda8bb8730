// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <cstring>
#include <dbghelp.h>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

#include "platform/win32/handle.h"
#include "windows/program_folder.h"

namespace vbr {
namespace {

// What Windows takes from its own folder whatever lies beside the program: libraries that it keeps
// ready for all programs.
const std::set<std::string> kSafeImports = {"ADVAPI32.dll", "GDI32.dll", "KERNEL32.dll",
                                            "msvcrt.dll",   "ole32.dll", "SHELL32.dll",
                                            "USER32.dll"};

class BuiltFile : public testing::TestWithParam<const char*> {
  protected:
    void SetUp() override {
        const auto path = ProgramFolder() / GetParam();
        std::ifstream file(path, std::ios::binary);
        bytes_ = {std::istreambuf_iterator<char>(file), {}};
        ASSERT_FALSE(bytes_.empty()) << path;
        module_.reset(LoadLibraryExW(path.c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES));
        ASSERT_TRUE(module_) << path;
    }
    const IMAGE_NT_HEADERS64& Headers() const {
        const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(bytes_.data());
        return *reinterpret_cast<const IMAGE_NT_HEADERS64*>(bytes_.data() + dos->e_lfanew);
    }
    bool IsLibrary() const { return std::string_view(GetParam()).ends_with(".dll"); }
    std::string_view Code() const {
        const auto* base = reinterpret_cast<const char*>(module_.get());
        return {base + Headers().OptionalHeader.BaseOfCode, Headers().OptionalHeader.SizeOfCode};
    }
    bool Holds(std::u16string_view text) const {
        const std::string wide(reinterpret_cast<const char*>(text.data()),
                               text.size() * sizeof(char16_t));
        std::string narrow;
        for (const char16_t unit : text) {
            narrow += static_cast<char>(unit);
        }
        return bytes_.find(wide) != bytes_.npos || bytes_.find(narrow) != bytes_.npos;
    }

    std::string bytes_;
    UniqueLibrary module_;
};

TEST_P(BuiltFile, LiesAtAnyAddressAndHasNoDataThatRuns) {
    constexpr WORD kMarks = IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA |
                            IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE |
                            IMAGE_DLLCHARACTERISTICS_NX_COMPAT;
    EXPECT_EQ(Headers().OptionalHeader.DllCharacteristics & kMarks, kMarks);
    // Without this table it could not be moved.
    EXPECT_GT(Headers().OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_BASERELOC].Size, 0U);
    const IMAGE_SECTION_HEADER* section = IMAGE_FIRST_SECTION(&Headers());
    for (int i = 0; i < Headers().FileHeader.NumberOfSections; ++i, ++section) {
        const DWORD both = IMAGE_SCN_MEM_EXECUTE | IMAGE_SCN_MEM_WRITE;
        EXPECT_NE(section->Characteristics & both, both) << i;
    }
}

TEST_P(BuiltFile, ImportsNothingThatAFileBesideItCouldStandInFor) {
    ULONG size = 0;
    const auto* entry = static_cast<const IMAGE_IMPORT_DESCRIPTOR*>(
        ImageDirectoryEntryToData(module_.get(), TRUE, IMAGE_DIRECTORY_ENTRY_IMPORT, &size));
    ASSERT_TRUE(entry);
    const std::set<std::string> allowed =
        IsLibrary() ? std::set<std::string>{"KERNEL32.dll", "USER32.dll"} : kSafeImports;
    for (; entry->Name; ++entry) {
        const std::string name = reinterpret_cast<const char*>(module_.get()) + entry->Name;
        EXPECT_TRUE(allowed.contains(name)) << name;
    }
}

TEST_P(BuiltFile, WatchesItsStackAndMarksWhereJumpsMayEnd) {
    std::size_t marks = 0;  // endbr64
    for (std::size_t at = 0; (at = Code().find("\xF3\x0F\x1E\xFA", at)) != Code().npos; ++at) {
        ++marks;
    }
    EXPECT_GT(marks, IsLibrary() ? 5U : 500U);
    // How the process ends when a return address was written over: mov $2, %ecx; int $0x29.
    const std::string_view failFast("\xB9\x02\x00\x00\x00\xCD\x29", 7);
    EXPECT_TRUE(Code().find(failFast) != Code().npos ||
                bytes_.find("stack smashing detected") != bytes_.npos);
}

TEST_P(BuiltFile, HasNothingOfWhatOnlyTestsOrOtherSystemsNeed) {
    EXPECT_FALSE(Holds(u"VELLUMBRIDGE_QUERY_ROAD"));
    if (IsLibrary()) {
        EXPECT_FALSE(Holds(u"wine_get_version"));
        EXPECT_FALSE(Holds(u"SetWindowsHookEx"));
        EXPECT_FALSE(Holds(u"CreateToolhelp32Snapshot"));
        EXPECT_FALSE(Holds(u"oleacc"));
    }
}

INSTANTIATE_TEST_SUITE_P(All, BuiltFile,
                         testing::Values("Vellumbridge.exe", "Vellumbridge.dll",
                                         "VellumbridgeEditor.exe", "Vellumbridge_Welcome.exe"));

}  // namespace
}  // namespace vbr
