// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/date_time.h"
#include "base/menu_item.h"

namespace vbr {

// Kinds of a phrase, as WPMenuItem::DataType holds them.
inline constexpr std::int32_t kDataTypeText = 0;
inline constexpr std::int32_t kDataTypeRtf = 1;
inline constexpr std::int32_t kDataTypeExec = 2;

// Bits of VBRCommand::FlagsMenu.
inline constexpr std::uint32_t kSeparatorBefore = 1;
inline constexpr std::uint32_t kSeparatorAfter = 2;

// The word a phrase file holds for a kind. An unknown word gives TEXT, an unknown value "TEXT".
std::int32_t DataTypeFromText(std::u16string_view word);
std::u16string_view DataTypeToText(std::int32_t value);

// One phrase, or a group of them. It can be moved, not copied, so that each child list always has
// one owner.
struct VBRCommand : WPMenuItem {
    std::u16string Cmd;  // the text, RTF source or command line, with its macros
    std::uint32_t SortID = 0;
    bool UseTitleOnly = false;
    SystemTime DateUsage;                               // UTC
    std::unique_ptr<std::vector<VBRCommand>> Commands;  // not null makes the record a group
    bool DisabledIsNoHasSelection = false;
    std::int32_t UsageCount = 0;  // never below 0
    bool Enabled = true;
    std::uint32_t FlagsMenu = 0;
    std::filesystem::path FilePath;  // the phrase's file; for a group its folder

    bool IsGroup() const { return Commands != nullptr; }

    // A group is enabled when any record below it is.
    bool IsEnabled() const;
    void SetEnabled(bool enabled) { Enabled = enabled; }

    const SystemTime& GetDateUsage() const { return DateUsage; }
    void SetDateUsage(const SystemTime& utc) { DateUsage = utc; }

    // Notes the time of a use; false for a group, which has none.
    bool StampDateUsage(const SystemTime& utcNow);
    void AddUsage();
};

}  // namespace vbr
