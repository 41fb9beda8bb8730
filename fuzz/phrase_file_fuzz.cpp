// SPDX-License-Identifier: MIT
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "phrases/command_file.h"

namespace {

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

bool IsSamePhrase(const vbr::VBRCommand& a, const vbr::VBRCommand& b) {
    return a.Text == b.Text && a.ToolTipText == b.ToolTipText && a.DataType == b.DataType &&
           a.Cmd == b.Cmd && a.SortID == b.SortID && a.UseTitleOnly == b.UseTitleOnly &&
           a.DateUsage == b.DateUsage && a.DisabledIsNoHasSelection == b.DisabledIsNoHasSelection &&
           a.UsageCount == b.UsageCount && a.Enabled == b.Enabled && a.FlagsMenu == b.FlagsMenu;
}

}  // namespace

// Any bytes can be read, and a phrase that was read survives being saved.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string xml(reinterpret_cast<const char*>(data), size);
    vbr::VBRCommand record;
    if (vbr::ParseCommand(record, xml) == vbr::CommandReadResult::Ok) {
        vbr::VBRCommand back;
        Require(vbr::ParseCommand(back, vbr::CommandToXml(record)) == vbr::CommandReadResult::Ok);
        Require(IsSamePhrase(record, back));
    }
    return 0;
}
