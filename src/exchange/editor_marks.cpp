// SPDX-License-Identifier: MIT
#include "exchange/editor_marks.h"

#include <string>
#include <string_view>

#include "base/text.h"

namespace vbr {
namespace {

// Each alone is the mark.
constexpr std::u16string_view kLineCopies[] = {
    u"MSDEVLineSelect", u"VisualStudioEditorOperationsLineCutCopyClipboardTag"};

// Editors built on a browser's engine keep a JSON text in the block of the page's own formats.
constexpr std::u16string_view kPageFormats = u"Chromium Web Custom MIME Data Format";
constexpr std::u16string_view kEmptySelection = u"\"isFromEmptySelection\":true";

bool Holds(const ClipboardBlock& block, std::u16string_view text) {
    const std::string_view bytes(reinterpret_cast<const char*>(block.Bytes.data()),
                                 block.Bytes.size());
    return bytes.find({reinterpret_cast<const char*>(text.data()),
                       text.size() * sizeof(char16_t)}) != bytes.npos;
}

}  // namespace

bool IsCopyWithoutSelection(const ClipboardSession& session) {
    for (const std::uint32_t format : session.Formats()) {
        const std::u16string name = session.FormatName(format);
        for (const std::u16string_view mark : kLineCopies) {
            if (EqualsNoCase(name, mark)) {
                return true;
            }
        }
        if (EqualsNoCase(name, kPageFormats)) {
            const auto block = session.Read(format);
            return block && Holds(*block, kEmptySelection);
        }
    }
    return false;
}

}  // namespace vbr
