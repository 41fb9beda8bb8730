// SPDX-License-Identifier: MIT
#include "platform/win32/win_stamped_files.h"

#include <algorithm>
#include <new>

#include "platform/win32/elevation.h"
#include "platform/win32/handle.h"
#include "platform/win32/new_file.h"
#include "platform/win32/own_file.h"
#include "platform/win32/verbatim_path.h"
#include "platform/win32/win_system_error.h"

namespace vbr {
namespace {

namespace fs = std::filesystem;

static_assert(kErrorFileExists == ERROR_FILE_EXISTS);

constexpr std::size_t kMaxWrite = 16 * 1024 * 1024;

// Another process holds a file for one save.
constexpr DWORD kHoldPatienceMs = 500;
constexpr DWORD kHoldStepMs = 10;
// A link of that name goes, not what it leads to.
constexpr DWORD kHeldFlags = FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT;

std::optional<SystemError> LastError() {
    const DWORD code = GetLastError();
    return SystemErrorOf(code);
}

FILETIME FileTimeOf(FileTicks ticks) {
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

bool WriteAll(HANDLE file, std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const auto part = static_cast<DWORD>(std::min(bytes.size(), kMaxWrite));
        DWORD written = 0;
        if (!WriteFile(file, bytes.data(), part, &written, nullptr) || written == 0) {
            return false;
        }
        bytes = bytes.subspan(written);
    }
    return true;
}

bool SetCreated(HANDLE file, FileTicks created) {
    const FILETIME time = FileTimeOf(created);
    return created == 0 || SetFileTime(file, &time, nullptr, nullptr);
}

bool SetReadOnly(const fs::path& path, bool on) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return false;
    }
    const bool isOn = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    return isOn == on ||
           SetFileAttributesW(path.c_str(), attributes ^ DWORD{FILE_ATTRIBUTE_READONLY});
}

class WinHeldFile : public HeldFile {
  public:
    explicit WinHeldFile(UniqueHandle file) : file_(std::move(file)) {}

  private:
    UniqueHandle file_;
};

}  // namespace

std::optional<SystemError> WinStampedFiles::CreateNew(
    const fs::path& path, std::span<const std::span<const std::byte>> pieces,
    const FileStamp& stamp) {
    const fs::path target = ReachablePath(path);
    UniqueHandle file(CreateFileW(target.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!IsValid(file)) {
        return LastError();
    }
    const bool written = std::all_of(pieces.begin(), pieces.end(),
                                     [&file](std::span<const std::byte> piece) {
                                         return WriteAll(file.get(), piece);
                                     }) &&
                         SetCreated(file.get(), stamp.Created) && FlushFileBuffers(file.get());
    if (!written) {
        const auto error = LastError();
        file.reset();
        DeleteFileW(target.c_str());
        return error;
    }
    file.reset();
    SetReadOnly(target, stamp.ReadOnly);
    return std::nullopt;
}

std::optional<SystemError> WinStampedFiles::MoveIn(const fs::path& path, std::string_view bytes,
                                                   const FileStamp& stamp, bool replace) {
    const fs::path target = ReachablePath(path);
    const fs::path fresh = ReachablePath(NewFileIn(path.parent_path()));
    if (!WriteWhole(fresh, bytes) || !SwapIn(fresh, target, replace)) {
        auto error = LastError();
        DeleteFileW(fresh.c_str());
        if (error->Code == ERROR_ALREADY_EXISTS) {
            error->Code = kErrorFileExists;
        }
        return error;
    }
    // Only now: a file that takes the name of one just gone gets that one's creation time.
    SetStamp(path, stamp);
    return std::nullopt;
}

std::optional<SystemError> WinStampedFiles::SetStamp(const fs::path& path, const FileStamp& stamp) {
    const fs::path target = ReachablePath(path);
    if (stamp.Created != 0) {
        // Writing an attribute needs no right to write, but a file that has the mark refuses.
        SetReadOnly(target, false);
        const UniqueHandle file(CreateFileW(target.c_str(), FILE_WRITE_ATTRIBUTES,
                                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                            nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                                            nullptr));
        if (!IsValid(file) || !SetCreated(file.get(), stamp.Created)) {
            return LastError();
        }
    }
    return SetReadOnly(target, stamp.ReadOnly) ? std::nullopt : LastError();
}

std::optional<StampedFiles::Content> WinStampedFiles::Read(const fs::path& path) {
    const UniqueHandle file(CreateFileW(ReachablePath(path).c_str(), GENERIC_READ, FILE_SHARE_READ,
                                        nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size{};
    FILETIME created{};
    if (!IsValid(file) || GetFileType(file.get()) != FILE_TYPE_DISK ||
        !GetFileSizeEx(file.get(), &size) || size.QuadPart > LONGLONG{kMaxStampedFile} ||
        !GetFileTime(file.get(), &created, nullptr, nullptr)) {
        return std::nullopt;
    }
    try {
        Content content;
        content.Created = FileTicks{created.dwHighDateTime} << 32 | created.dwLowDateTime;
        content.Bytes.resize(size.LowPart);
        DWORD read = 0;
        if (!ReadFile(file.get(), content.Bytes.data(), size.LowPart, &read, nullptr) ||
            read != size.LowPart) {
            return std::nullopt;
        }
        return content;
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

std::optional<SystemError> WinStampedFiles::Delete(const fs::path& path) {
    if (DeleteOwnFile(path) || GetLastError() == ERROR_FILE_NOT_FOUND) {
        return std::nullopt;
    }
    return LastError();
}

std::unique_ptr<HeldFile> WinStampedFiles::Hold(const fs::path& path) {
    if (IsProcessElevated() && IsInLink(path)) {
        return nullptr;
    }
    const fs::path target = ReachablePath(path);
    const ULONGLONG start = GetTickCount64();
    for (;;) {
        UniqueHandle file(CreateFileW(target.c_str(), GENERIC_WRITE | DELETE, 0, nullptr,
                                      OPEN_ALWAYS, kHeldFlags, nullptr));
        if (IsValid(file)) {
            return std::make_unique<WinHeldFile>(std::move(file));
        }
        // One that is just going may not be opened either.
        const DWORD error = GetLastError();
        const bool isHeld = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
        if (!isHeld || GetTickCount64() - start >= kHoldPatienceMs) {
            return nullptr;
        }
        Sleep(kHoldStepMs);
    }
}

}  // namespace vbr
