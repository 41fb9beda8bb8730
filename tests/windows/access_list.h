// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <aclapi.h>
#include <filesystem>
#include <sddl.h>
#include <string>

#include "platform/win32/handle.h"

namespace vbr {

// One entry: full access (0x1F01FF) for everybody (S-1-1-0).
inline constexpr const wchar_t* kOpenToEverybody = L"D:(A;;FA;;;WD)";

// The access list of an open object in its text form.
inline std::wstring AccessListOf(HANDLE handle, SE_OBJECT_TYPE type) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    wchar_t* text = nullptr;
    GetSecurityInfo(handle, type, DACL_SECURITY_INFORMATION, nullptr, nullptr, nullptr, nullptr,
                    &descriptor);
    const UniqueLocal<void> ownedDescriptor(descriptor);
    ConvertSecurityDescriptorToStringSecurityDescriptorW(descriptor, SDDL_REVISION_1,
                                                         DACL_SECURITY_INFORMATION, &text, nullptr);
    const UniqueLocal<wchar_t> ownedText(text);
    return text ? text : L"";
}

inline std::wstring AccessListOf(const std::filesystem::path& path) {
    const UniqueHandle file(CreateFileW(path.c_str(), READ_CONTROL, FILE_SHARE_READ, nullptr,
                                        OPEN_EXISTING, 0, nullptr));
    return AccessListOf(file.get(), SE_FILE_OBJECT);
}

inline UniqueLocal<void> Descriptor(const wchar_t* accessList) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ConvertStringSecurityDescriptorToSecurityDescriptorW(accessList, SDDL_REVISION_1, &descriptor,
                                                         nullptr);
    return UniqueLocal<void>(descriptor);
}

// Gives a file or folder another access list.
inline bool SetAccess(const std::filesystem::path& path, const wchar_t* accessList) {
    return SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, Descriptor(accessList).get());
}

// The access list of a new file that is open to everybody. Windows keeps it as it was given; under
// Wine the file system keeps what the mode of a new file can say.
inline std::wstring AccessListOfOpenFileIn(const std::filesystem::path& folder) {
    const std::filesystem::path path = folder / "open to everybody";
    const UniqueLocal<void> descriptor = Descriptor(kOpenToEverybody);
    SECURITY_ATTRIBUTES security{sizeof security, descriptor.get(), FALSE};
    CloseHandle(CreateFileW(path.c_str(), GENERIC_WRITE, 0, &security, CREATE_NEW, 0, nullptr));
    const std::wstring list = AccessListOf(path);
    DeleteFileW(path.c_str());
    return list;
}

}  // namespace vbr
