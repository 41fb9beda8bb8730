// SPDX-License-Identifier: MIT
#include "platform/win32/win_file_store.h"

#include <cstdint>

#include "base/text.h"
#include "platform/stamped_files.h"
#include "platform/win32/handle.h"
#include "platform/win32/new_file.h"
#include "platform/win32/own_file.h"
#include "platform/win32/verbatim_path.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_system_error.h"

namespace vbr {
namespace {

namespace fs = std::filesystem;

// A file on its way in that is older was left by a process that ended while it wrote.
constexpr std::uint64_t kStaleAfter = 3600ULL * 10'000'000;  // in units of 100 ns

// Far above any file of ours, and below what memory may not give.
constexpr LONGLONG kMaxRead = 256LL * 1024 * 1024;
constexpr DWORD kSmallFile = 8192;

// Calls `visit` with each entry that fits the pattern; the error that ended it, or 0.
template <typename Visit>
DWORD ForEachEntry(const fs::path& pattern, const Visit& visit) {
    WIN32_FIND_DATAW entry{};
    const Unique<HANDLE, FindClose> search(
        FindFirstFileExW(ReachablePath(pattern).c_str(), FindExInfoBasic, &entry,
                         FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH));
    if (!IsValid(search)) {
        const DWORD error = GetLastError();
        return error == ERROR_FILE_NOT_FOUND ? 0 : error;
    }
    do {
        visit(entry);
    } while (FindNextFileW(search.get(), &entry));
    const DWORD error = GetLastError();
    return error == ERROR_NO_MORE_FILES ? 0 : error;
}

std::uint64_t Joined(DWORD high, DWORD low) {
    return std::uint64_t{high} << 32 | low;
}

std::uint64_t Ticks(const FILETIME& time) {
    return Joined(time.dwHighDateTime, time.dwLowDateTime);
}

UniqueHandle OpenForAttributes(const fs::path& path) {
    return UniqueHandle(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

// What a link leads to, so that the file is replaced and not the link; else the path itself.
fs::path FollowLink(const fs::path& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
        return path;
    }
    const UniqueHandle file = OpenForAttributes(path);
    std::wstring target(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetFinalPathNameByHandleW(
            file.get(), target.data(), static_cast<DWORD>(target.size()), FILE_NAME_NORMALIZED);
        if (length == 0) {
            return path;
        }
        const bool fits = length < target.size();
        target.resize(length);
        if (fits) {
            return target;
        }
    }
}

void DeleteStaleIn(const fs::path& folder) {
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    ForEachEntry(folder / Concat(kNewFilePrefix, u"*", kNewFileSuffix),
                 [&](const WIN32_FIND_DATAW& entry) {
                     if (Ticks(entry.ftLastWriteTime) + kStaleAfter < Ticks(now)) {
                         DeleteOwnFile(folder / entry.cFileName);
                     }
                 });
}

}  // namespace

std::optional<std::string> WinFileStore::Read(const fs::path& path) {
    const UniqueHandle file(CreateFileW(ReachablePath(path).c_str(), GENERIC_READ, FILE_SHARE_READ,
                                        nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    // Most files are small; to ask for the size first takes as long as to read them.
    char head[kSmallFile];
    DWORD read = 0;
    if (!IsValid(file) || !ReadFile(file.get(), head, sizeof head, &read, nullptr)) {
        return std::nullopt;
    }
    std::string bytes(head, read);
    if (read < sizeof head) {
        return bytes;
    }
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file.get(), &size) || size.QuadPart > kMaxRead || size.QuadPart < read) {
        return std::nullopt;
    }
    bytes.resize(size.LowPart);
    const DWORD rest = size.LowPart - kSmallFile;
    if (!ReadFile(file.get(), bytes.data() + kSmallFile, rest, &read, nullptr) || read != rest) {
        return std::nullopt;
    }
    return bytes;
}

std::optional<SystemError> WinFileStore::Replace(const fs::path& path, std::string_view bytes) {
    const fs::path target = FollowLink(ReachablePath(path));
    const fs::path fresh = ReachablePath(NewFileIn(target.parent_path()));
    if (WriteWhole(fresh, bytes) && SwapIn(fresh, target, true)) {
        if (IsFirstIn(target.parent_path())) {
            DeleteStaleIn(target.parent_path());
        }
        return std::nullopt;
    }
    const SystemError error = SystemErrorOf(GetLastError());
    DeleteFileW(fresh.c_str());
    return error;
}

bool WinFileStore::IsFirstIn(const fs::path& folder) {
    const std::lock_guard lock(mutex_);
    return swept_.insert(folder).second;
}

PathKind WinFileStore::KindOf(const fs::path& path) {
    const DWORD attributes = GetFileAttributesW(ReachablePath(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return PathKind::Missing;
    }
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? PathKind::Folder : PathKind::File;
}

std::optional<SystemError> WinFileStore::List(const fs::path& folder,
                                              std::vector<FolderEntry>& entries) {
    const DWORD error = ForEachEntry(folder / L"*", [&entries](const WIN32_FIND_DATAW& entry) {
        const std::wstring_view name = entry.cFileName;
        if (name != L"." && name != L"..") {
            const bool isFolder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
            entries.push_back(
                {FromWide(name.data(), name.size()), isFolder ? PathKind::Folder : PathKind::File});
        }
    });
    return error == 0 ? std::nullopt : std::optional(SystemErrorOf(error));
}

std::u16string WinFileStore::FolderIdentity(const fs::path& folder) {
    const UniqueHandle handle = OpenForAttributes(ReachablePath(folder));
    BY_HANDLE_FILE_INFORMATION info{};
    if (!IsValid(handle) || !GetFileInformationByHandle(handle.get(), &info)) {
        return {};
    }
    // Some network drives give every folder the index 0.
    const std::uint64_t index = Joined(info.nFileIndexHigh, info.nFileIndexLow);
    return index == 0 ? std::u16string()
                      : Concat(info.dwVolumeSerialNumber, u":", static_cast<std::int64_t>(index));
}

}  // namespace vbr
