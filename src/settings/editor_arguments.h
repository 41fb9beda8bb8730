// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vbr {

// What the editor is started for. Other programs start it with these arguments too, so they never
// change.
struct EditorRequest {
    bool AddFromClipboard = false;  // the clipboard's text becomes a phrase
    bool AddSelection = false;      // the text in the shared settings area does
    bool ShowSettings = false;      // the settings come first

    bool operator==(const EditorRequest&) const = default;
};

// Each argument with a blank in front.
std::u16string EditorArguments(const EditorRequest& request);

// In any letter case and order; what is unknown counts for nothing.
EditorRequest ReadEditorArguments(std::u16string_view text);

// The request as bits of one number, and back.
std::uint32_t BitsOf(const EditorRequest& request);
EditorRequest RequestOfBits(std::uint32_t bits);

}  // namespace vbr
