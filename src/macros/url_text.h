// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vbr {

// The URL (http, https or ftp) at the start of a text, or with `wantUrl` false what follows it.
// Without a URL that is nothing, or the text without its leading white space.
std::u16string ExtractUrl(std::u16string_view text, bool wantUrl);

// The text without "http://", "https://", "file://" and "ftp://" at its start, the list walked once
// in this order, and without the macro that asks for it.
std::u16string TrimProtocols(std::u16string_view text);

}  // namespace vbr
