// SPDX-License-Identifier: MIT
#include "platform/win32/own_file.h"

#include "platform/win32/windows.h"

#include <string>

#include "platform/win32/elevation.h"
#include "platform/win32/handle.h"
#include "platform/win32/verbatim_path.h"

namespace vbr {
namespace {

namespace fs = std::filesystem;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

UniqueHandle Open(const std::wstring& path, DWORD access, DWORD flags) {
    return UniqueHandle(
        CreateFileW(path.c_str(), access, kShareAll, nullptr, OPEN_EXISTING, flags, nullptr));
}

std::wstring FinalPath(const UniqueHandle& file) {
    std::wstring path(MAX_PATH, L'\0');
    while (true) {
        const DWORD length = GetFinalPathNameByHandleW(
            file.get(), path.data(), static_cast<DWORD>(path.size()), FILE_NAME_NORMALIZED);
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(length + std::size_t{1});
    }
}

// The path up to its last backslash, which stays behind a drive.
std::wstring Above(const std::wstring& path) {
    const std::size_t slash = path.rfind(L'\\');
    const bool isDrive = slash != path.npos && slash > 0 && path[slash - 1] == L':';
    return path.substr(0, slash == path.npos ? 0 : slash + (isDrive ? 1 : 0));
}

// Where the path leads when its last `names` names are no links.
std::wstring PlaceWithoutLinks(const std::wstring& path, int names) {
    std::wstring folder = path;
    for (; names > 0; --names) {
        folder = Above(folder);
    }
    std::wstring place = FinalPath(Open(folder, FILE_READ_ATTRIBUTES, FILE_FLAG_BACKUP_SEMANTICS));
    std::wstring_view rest = std::wstring_view(path).substr(folder.size());
    rest.remove_prefix(rest.starts_with(L'\\') ? 1 : 0);
    return place.append(place.ends_with(L'\\') ? L"" : L"\\").append(rest);
}

bool IsAt(const UniqueHandle& file, const std::wstring& place) {
    const std::wstring at = FinalPath(file);
    return !at.empty() &&
           CompareStringOrdinal(at.c_str(), -1, place.c_str(), -1, TRUE) == CSTR_EQUAL;
}

void AllowWritingAt(const fs::path& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        SetFileAttributesW(path.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
    }
}

bool AllowWriting(const UniqueHandle& file) {
    FILE_BASIC_INFO info{};
    if (!GetFileInformationByHandleEx(file.get(), FileBasicInfo, &info, sizeof info)) {
        return false;
    }
    info.FileAttributes &= ~DWORD{FILE_ATTRIBUTE_READONLY};
    info.FileAttributes |= info.FileAttributes == 0 ? DWORD{FILE_ATTRIBUTE_NORMAL} : 0;
    return SetFileInformationByHandle(file.get(), FileBasicInfo, &info, sizeof info) != 0;
}

// What is checked and what is deleted are one file, whatever happens to the path meanwhile.
bool DeleteByHandle(const std::wstring& path) {
    const UniqueHandle file = Open(path, DELETE | FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES,
                                   FILE_FLAG_OPEN_REPARSE_POINT);
    if (!IsValid(file)) {
        return false;
    }
    if (!IsAt(file, PlaceWithoutLinks(path, 2))) {
        SetLastError(ERROR_ACCESS_DENIED);
        return false;
    }
    FILE_DISPOSITION_INFO gone{TRUE};
    return AllowWriting(file) &&
           SetFileInformationByHandle(file.get(), FileDispositionInfo, &gone, sizeof gone);
}

}  // namespace

bool IsInLink(const fs::path& path) {
    const std::wstring folder = Above(ReachablePath(path).make_preferred());
    const UniqueHandle opened = Open(folder, FILE_READ_ATTRIBUTES, FILE_FLAG_BACKUP_SEMANTICS);
    return IsValid(opened) && !IsAt(opened, PlaceWithoutLinks(folder, 1));
}

bool DeleteOwnFile(const fs::path& path, bool isElevated) {
    const fs::path target = ReachablePath(path).make_preferred();
    if (isElevated) {
        return DeleteByHandle(target);
    }
    AllowWritingAt(target);
    return DeleteFileW(target.c_str()) != 0;
}

bool DeleteOwnFile(const fs::path& path) {
    static const bool isElevated = IsProcessElevated();
    return DeleteOwnFile(path, isElevated);
}

}  // namespace vbr
