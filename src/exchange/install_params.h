// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vbr {

// Who describes the target: the program itself, or the hook library from within the target.
enum class QueryRouteChoice : std::uint32_t {
    OfSystem = 0,  // the program on 64-bit Windows, the library on 32-bit Windows
    Local = 1,
    Posted = 2,
};

// The block that WP_Install of the hook library receives. A binary layout between the program and
// the library: packed, fields in this order. The block and its texts end with the call.
#pragma pack(push, 1)
struct WPInstallParams {
    std::uint64_t TrayWindow = 0;
    std::uint32_t QueryMessage = 0;  // the registered message that starts a query
    std::uint32_t Reserved1 = 0;
    const char16_t* DataNeededName = nullptr;
    const char16_t* DataCompletedName = nullptr;
    const char16_t* InterchangeAreaName = nullptr;
    const char16_t* LogPath = nullptr;  // null while the log is off
    std::uint32_t ErrorCode = 0;        // out: one of the codes below
    std::uint32_t Reserved2 = 0;
    std::uint16_t LogAtom = 0;  // global atom of the log's path, 0 while the log is off
    std::uint32_t AllowWaitAnswer = 0;
    QueryRouteChoice Route = QueryRouteChoice::OfSystem;
};
#pragma pack(pop)

static_assert(sizeof(void*) != 8 || sizeof(WPInstallParams) == 66);

// Why the hook library could not be installed.
inline constexpr std::uint32_t kHookSuccess = 0;
inline constexpr std::uint32_t kHookBadNames = 1;
inline constexpr std::uint32_t kHookAlreadyInstalled = 2;
inline constexpr std::uint32_t kHookNotHooked = 3;
inline constexpr std::uint32_t kHookNotLoaded = 4;
inline constexpr std::uint32_t kHookNoInstallExport = 5;
inline constexpr std::uint32_t kHookNoServiceEvent = 7;

}  // namespace vbr
