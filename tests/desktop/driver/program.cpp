// SPDX-License-Identifier: MIT
#include "desktop/driver/program.h"

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>

#include "base/text.h"
#include "desktop/driver/waiting.h"
#include "platform/object_names.h"
#include "platform/win32/wide.h"
#include "windows/program_folder.h"

namespace vbr::desktop {
namespace {

std::filesystem::path FolderOf(Build build) {
    if (build == Build::Test) {
        return ProgramFolder() / "test_build";
    }
    const wchar_t* folder = _wgetenv(L"VELLUMBRIDGE_FOLDER");
    return folder ? folder : L"C:\\Vellumbridge";
}

}  // namespace

std::string FileBytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

HWND TrayWindow() {
    return FindWindowW(nullptr, L"Vellumbridge");
}

bool WaitUntilReady() {
    return WaitUntil([] {
        // The last thing that the window's creation makes; before it the hot key may be missing.
        const UniqueHandle created(OpenEventW(SYNCHRONIZE, FALSE, Wide(kEventShowMenu.data())));
        DWORD_PTR ignored = 0;
        return created && TrayWindow() &&
               SendMessageTimeoutW(TrayWindow(), WM_NULL, 0, 0, SMTO_NORMAL, 1000, &ignored) != 0;
    });
}

Program::Program(Build build) {
    static int count = 0;
    folder_ = std::filesystem::temp_directory_path() / (L"vbr-" + std::to_wstring(++count));
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(Phrases());
    for (const wchar_t* file : {L"Vellumbridge.exe", L"Vellumbridge.dll"}) {
        std::filesystem::copy_file(FolderOf(build) / file, folder_ / file);
    }
    WriteSettings("");
}

Program::~Program() {
    resident_.Terminate();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

std::filesystem::path Program::AddPhrase(const std::string& name, int sortId,
                                         const std::string& xmlCmd,
                                         const std::string& dataType) const {
    const std::filesystem::path path = Phrases() / (name + ".vellumbridge");
    std::ofstream(path, std::ios::binary)
        << "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\" ?>\r\n"
           "<VBRCommand UsageCount=\"0\" DisabledIsNoHasSelection=\"0\" UseTitleOnly=\"0\" "
           "SortID=\""
        << sortId << "\" FlagsMenu=\"0\">\r\n    <MenuName>" << name
        << "</MenuName>\r\n    <DataType>" << dataType << "</DataType>\r\n    <Cmd>" << xmlCmd
        << "</Cmd>\r\n    <Hint></Hint>\r\n</VBRCommand>\r\n";
    return path;
}

void Program::WriteSettings(const std::string& lines) const {
    // Not the first start, which does more than others.
    std::ofstream(folder_ / L"Settings.ini")
        << "[Settings]\nVBRVersion=VBR_150\nWelcome_Already_Started_V2_60=1\n"
        << lines << "\n";
}

std::u16string Program::Log() const {
    const std::string bytes = FileBytes(folder_ / L"LogReport.txt");
    return {reinterpret_cast<const char16_t*>(bytes.data()), bytes.size() / sizeof(char16_t)};
}

void Program::AddCompanions() const {
    for (const wchar_t* file : {L"VellumbridgeEditor.exe", L"Vellumbridge_Welcome.exe"}) {
        std::filesystem::copy_file(FolderOf(Build::Shipped) / file, folder_ / file);
    }
}

Process Program::Start(const std::wstring& arguments) const {
    const std::wstring line =
        L"\"" + (folder_ / L"Vellumbridge.exe").wstring() + L"\" " + arguments;
    return isStandardUser_ ? Process::AsStandardUser(line) : Process(line);
}

bool Program::StartResident(const std::wstring& arguments) {
    resident_ = Start(arguments);
    if (WaitUntilReady()) {
        return true;
    }
    const auto exitCode = resident_.WaitForExit(0);
    std::cout << "The program has " << (TrayWindow() ? "a" : "no") << " window and "
              << (resident_.IsRunning() ? "runs"
                  : exitCode            ? "has ended with " + std::to_string(*exitCode)
                                        : "was not started")
              << '\n'
              << Utf16ToUtf8(Log()) << '\n';
    return false;
}

std::optional<DWORD> Program::End() {
    Start(L"/exit").WaitForExit(kPatienceMs);
    return resident_.WaitForExit(kPatienceMs);
}

}  // namespace vbr::desktop
