// SPDX-License-Identifier: MIT
#pragma once

namespace vbr {

// Lower-case letters from First to Last, every Step-th, become upper case by adding ToUpper.
struct LowerRange {
    char16_t First;
    char16_t Last;
    int Step;
    int ToUpper;
};

// The simple one-to-one pairs of the Unicode character database, ascending.
inline constexpr LowerRange kLowerRanges[] = {
    {0x00E0, 0x00F6, 1, -0x20},  // Latin-1
    {0x00F8, 0x00FE, 1, -0x20}, {0x00FF, 0x00FF, 1, 0x79},
    {0x0101, 0x012F, 2, -1},  // Latin Extended-A
    {0x0133, 0x0137, 2, -1},    {0x013A, 0x0148, 2, -1},
    {0x014B, 0x0177, 2, -1},    {0x017A, 0x017E, 2, -1},
    {0x01CE, 0x01DC, 2, -1},  // Latin Extended-B
    {0x01DF, 0x01EF, 2, -1},    {0x01F9, 0x021F, 2, -1},
    {0x0223, 0x0233, 2, -1},    {0x03AC, 0x03AC, 1, -0x26},  // Greek
    {0x03AD, 0x03AF, 1, -0x25}, {0x03B1, 0x03C1, 1, -0x20},
    {0x03C3, 0x03CB, 1, -0x20}, {0x03CC, 0x03CC, 1, -0x40},
    {0x03CD, 0x03CE, 1, -0x3F}, {0x0430, 0x044F, 1, -0x20},  // Cyrillic
    {0x0450, 0x045F, 1, -0x50}, {0x0461, 0x0481, 2, -1},
    {0x048B, 0x04BF, 2, -1},    {0x04C2, 0x04CE, 2, -1},
    {0x04D1, 0x0523, 2, -1},    {0x0561, 0x0586, 1, -0x30},  // Armenian
    {0x1E01, 0x1E95, 2, -1},                                 // Latin Extended Additional
    {0x1EA1, 0x1EFF, 2, -1},    {0xFF41, 0xFF5A, 1, -0x20},  // fullwidth forms
};

}  // namespace vbr
