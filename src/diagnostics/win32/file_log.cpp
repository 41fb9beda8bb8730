// SPDX-License-Identifier: MIT
#include "diagnostics/win32/file_log.h"

#include <system_error>

#include "base/text.h"
#include "platform/object_names.h"
#include "platform/win32/wide.h"
#include "platform/win32/world_security.h"

namespace vbr {
namespace {

constexpr DWORD kPatienceMs = 5000;
constexpr DWORD kRetryMs = 50;
constexpr char16_t kByteOrderMark = 0xFEFF;

bool Append(const UniqueHandle& file, std::u16string_view text) {
    DWORD written = 0;
    const auto bytes = static_cast<DWORD>(text.size() * sizeof(char16_t));
    return WriteFile(file.get(), text.data(), bytes, &written, nullptr) && written == bytes;
}

UniqueHandle OpenForAppend(const std::u16string& path) {
    UniqueHandle file(CreateFileW(Wide(path), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!IsValid(file) && GetLastError() == ERROR_FILE_NOT_FOUND) {
        file.reset(CreateFileW(Wide(path), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                               FILE_ATTRIBUTE_NORMAL, nullptr));
    }
    if (IsValid(file) && SetFilePointer(file.get(), 0, nullptr, FILE_END) == 0) {
        Append(file, {&kByteOrderMark, 1});
    }
    return file;
}

// Another program may hold the file for a moment; it is not waited for.
bool CanBeOpened(const std::u16string& path) {
    return IsValid(OpenForAppend(path)) || GetLastError() == ERROR_SHARING_VIOLATION;
}

}  // namespace

bool FileLog::StartLog(const std::u16string& path) {
    bool isGuardTaken = false;
    if (!Open(path, isGuardTaken)) {
        return false;
    }
    if (isGuardTaken) {
        LogError(Concat(u"Another program holds the name ", kEventLogGuard,
                        u": entries of two programs may mix"));
    }
    return true;
}

bool FileLog::Open(const std::u16string& path, bool& isGuardTaken) {
    const std::lock_guard lock(mutex_);
    if (!path_.empty() || path.empty() || !CanBeOpened(path)) {
        return false;
    }
    atom_ = GlobalAddAtomW(Wide(path));
    guard_.reset(CreateEventW(WorldSecurity(), TRUE, TRUE, Wide(kEventLogGuard.data())));
    isGuardTaken = !guard_;
    if (isGuardTaken) {
        // Writers of this process still take turns.
        guard_.reset(CreateEventW(nullptr, TRUE, TRUE, nullptr));
    }
    if (!atom_ || !guard_) {
        TurnOff();
        return false;
    }
    try {
        stopping_ = false;
        writer_ = std::thread([this] { WriteQueue(); });
    } catch (const std::system_error&) {
        TurnOff();
        return false;
    }
    path_ = path;
    return true;
}

void FileLog::StopLog() {
    {
        const std::lock_guard lock(mutex_);
        if (path_.empty()) {
            return;
        }
        stopping_ = true;
    }
    wake_.notify_one();
    writer_.join();
    const std::lock_guard lock(mutex_);
    TurnOff();
}

void FileLog::TurnOff() {
    if (atom_) {
        GlobalDeleteAtom(atom_);
        atom_ = 0;
    }
    guard_.reset();
    path_.clear();
}

bool FileLog::IsLogOn() const {
    const std::lock_guard lock(mutex_);
    return !path_.empty();
}

std::u16string FileLog::Path() const {
    const std::lock_guard lock(mutex_);
    return path_;
}

std::uint16_t FileLog::Atom() const {
    const std::lock_guard lock(mutex_);
    return atom_;
}

void FileLog::QueueEntry(std::u16string entry) {
    {
        const std::lock_guard lock(mutex_);
        if (path_.empty() || stopping_) {
            return;
        }
        queue_.push_back({std::move(entry), GetTickCount64()});
    }
    wake_.notify_one();
}

void FileLog::WriteQueue() {
    std::unique_lock lock(mutex_);
    while (true) {
        wake_.wait(lock, [this] { return stopping_ || !queue_.empty(); });
        if (queue_.empty()) {
            return;
        }
        const Entry entry = std::move(queue_.front());
        queue_.pop_front();
        const std::u16string path = path_;
        lock.unlock();
        WriteEntry(path, entry);
        lock.lock();
    }
}

void FileLog::WriteEntry(const std::u16string& path, const Entry& entry) {
    // A writer that died with the guard held must not stop the others for good.
    if (WaitForSingleObject(guard_.get(), kPatienceMs) != WAIT_OBJECT_0) {
        SetEvent(guard_.get());
        return;
    }
    ResetEvent(guard_.get());
    if (const UniqueHandle file = OpenPatiently(path, entry); IsValid(file)) {
        Append(file, entry.Text);
    }
    SetEvent(guard_.get());
}

// Another program may hold the file for a moment. When one entry has waited for it in vain, those
// that came meanwhile have waited too.
UniqueHandle FileLog::OpenPatiently(const std::u16string& path, const Entry& entry) {
    const bool waitedInVain = entry.QueuedAt < gaveUpAt_;
    const ULONGLONG giveUp = GetTickCount64() + (waitedInVain ? 0 : kPatienceMs);
    UniqueHandle file = OpenForAppend(path);
    while (!IsValid(file) && GetLastError() == ERROR_SHARING_VIOLATION) {
        if (GetTickCount64() >= giveUp) {
            gaveUpAt_ = waitedInVain ? gaveUpAt_ : giveUp;
            return {};
        }
        Sleep(kRetryMs);
        file = OpenForAppend(path);
    }
    return file;
}

}  // namespace vbr
