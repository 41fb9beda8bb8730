// SPDX-License-Identifier: MIT
#include "platform/win32/verbatim_path.h"

#include "platform/win32/windows.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <system_error>

namespace vbr {
namespace {

constexpr std::wstring_view kVerbatim = L"\\\\?\\";
constexpr std::wstring_view kDevice = L"\\\\.\\";
constexpr std::wstring_view kShare = L"\\\\";
constexpr std::wstring_view kVerbatimShare = L"\\\\?\\UNC\\";

// Below MAX_PATH by the 8.3 name that a folder must leave room for.
constexpr std::size_t kPlainMax = MAX_PATH - 13;

bool IsDropped(wchar_t last) {
    return last == L'.' || last == L' ';
}

bool IsOdd(const std::filesystem::path& part) {
    const std::wstring& name = part.native();
    return !name.empty() && name != L"." && name != L".." && IsDropped(name.back());
}

bool HoldsOddName(const std::filesystem::path& path) {
    return std::any_of(path.begin(), path.end(), IsOdd);
}

std::filesystem::path Verbatim(const std::filesystem::path& path) {
    std::error_code failed;
    const std::filesystem::path whole =
        path.is_absolute() ? path : std::filesystem::absolute(path, failed);
    const std::wstring text = whole.lexically_normal().make_preferred().native();
    if (text.starts_with(kShare)) {
        return std::wstring(kVerbatimShare) + text.substr(kShare.size());
    }
    return std::wstring(kVerbatim) + text;
}

bool Exists(const std::filesystem::path& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace

std::filesystem::path ReachablePath(const std::filesystem::path& path) {
    const std::wstring& text = path.native();
    if (text.starts_with(kVerbatim) || text.starts_with(kDevice)) {
        return path;
    }
    const bool isLong = text.size() >= kPlainMax;
    if (!isLong && !HoldsOddName(path)) {
        return path;
    }
    const std::filesystem::path verbatim = Verbatim(path);
    const bool leadsThere = isLong || Exists(verbatim) ||
                            (!IsOdd(path.filename()) && Exists(Verbatim(path.parent_path())));
    return leadsThere ? verbatim : path;
}

}  // namespace vbr
