// SPDX-License-Identifier: MIT
#include "diagnostics/exception_names.h"

#include <algorithm>
#include <iterator>

namespace vbr {
namespace {

struct ExceptionName {
    std::uint32_t Code;
    std::u16string_view Name;
};

constexpr ExceptionName kNames[] = {
    {0xC0000005, u"EXCEPTION_ACCESS_VIOLATION"},
    {0x80000003, u"EXCEPTION_BREAKPOINT"},
    {0x80000002, u"EXCEPTION_DATATYPE_MISALIGNMENT"},
    {0x80000004, u"EXCEPTION_SINGLE_STEP"},
    {0xC000008C, u"EXCEPTION_ARRAY_BOUNDS_EXCEEDED"},
    {0xC000008D, u"EXCEPTION_FLT_DENORMAL_OPERAND"},
    {0xC000008E, u"EXCEPTION_FLT_DIVIDE_BY_ZERO"},
    {0xC000008F, u"EXCEPTION_FLT_INEXACT_RESULT"},
    {0xC0000090, u"EXCEPTION_FLT_INVALID_OPERATION"},
    {0xC0000091, u"EXCEPTION_FLT_OVERFLOW"},
    {0xC0000092, u"EXCEPTION_FLT_STACK_CHECK"},
    {0xC0000093, u"EXCEPTION_FLT_UNDERFLOW"},
    {0xC0000094, u"EXCEPTION_INT_DIVIDE_BY_ZERO"},
    {0xC0000095, u"EXCEPTION_INT_OVERFLOW"},
    {0xC0000096, u"EXCEPTION_PRIV_INSTRUCTION"},
    {0xC0000025, u"EXCEPTION_NONCONTINUABLE_EXCEPTION"},
};

}  // namespace

std::u16string_view ExceptionCodeName(std::uint32_t code) {
    const auto* found = std::find_if(std::begin(kNames), std::end(kNames),
                                     [code](const ExceptionName& row) { return row.Code == code; });
    return found == std::end(kNames) ? u"Not found" : found->Name;
}

}  // namespace vbr
