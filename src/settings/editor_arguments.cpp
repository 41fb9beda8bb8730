// SPDX-License-Identifier: MIT
#include "settings/editor_arguments.h"

#include "base/text.h"

namespace vbr {
namespace {

struct Argument {
    std::u16string_view Text;
    bool EditorRequest::*Field;
};

constexpr Argument kArguments[] = {
    {u"/addfromcb", &EditorRequest::AddFromClipboard},
    {u"/addseltext", &EditorRequest::AddSelection},
    {u"/settings", &EditorRequest::ShowSettings},
};

}  // namespace

std::u16string EditorArguments(const EditorRequest& request) {
    std::u16string text;
    for (const Argument& argument : kArguments) {
        if (request.*argument.Field) {
            text += Concat(u" ", argument.Text);
        }
    }
    return text;
}

EditorRequest ReadEditorArguments(std::u16string_view text) {
    EditorRequest request;
    while (!(text = TrimLeft(text, u" \t")).empty()) {
        const std::u16string_view word = text.substr(0, text.find_first_of(u" \t"));
        for (const Argument& argument : kArguments) {
            request.*argument.Field |= EqualsNoCase(word, argument.Text);
        }
        text.remove_prefix(word.size());
    }
    return request;
}

std::uint32_t BitsOf(const EditorRequest& request) {
    std::uint32_t bits = 0;
    std::uint32_t bit = 1;
    for (const Argument& argument : kArguments) {
        bits |= request.*argument.Field ? bit : 0;
        bit <<= 1;
    }
    return bits;
}

EditorRequest RequestOfBits(std::uint32_t bits) {
    EditorRequest request;
    for (const Argument& argument : kArguments) {
        request.*argument.Field = (bits & 1) != 0;
        bits >>= 1;
    }
    return request;
}

}  // namespace vbr
