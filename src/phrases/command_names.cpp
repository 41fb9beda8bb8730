// SPDX-License-Identifier: MIT
#include "phrases/command_names.h"

#include "base/text.h"
#include "phrases/command_file.h"

namespace vbr {
namespace {

constexpr std::u16string_view kForbidden = u"?:\\\"!/<>.\t\n*|{}=()'";

}  // namespace

std::u16string MakeSafeFileName(std::u16string_view title, bool blanksToo,
                                std::u16string_view replacement) {
    std::u16string name(Trim(title, u" \t"));
    name = name.substr(0, name.find(u'\n'));
    for (std::size_t i = 0; i < kForbidden.size(); ++i) {
        ReplaceAll(name, kForbidden.substr(i, 1), replacement);
    }
    if (blanksToo) {
        ReplaceAll(name, u" ", replacement);
    }
    ReplaceAll(name, u"___", u"_");
    ReplaceAll(name, u"__", u"_");
    return std::u16string(Trim(name, u"_"));
}

std::u16string MakeFileTitle(std::u16string_view title, std::uint32_t index, bool withExtension,
                             bool blanksToo) {
    std::u16string name = MakeSafeFileName(title, blanksToo);
    if (blanksToo) {
        for (const std::u16string_view run : {u"   ", u"  ", u" ", u"___", u"__"}) {
            ReplaceAll(name, run, u"_");
        }
    }
    if (index > 1) {
        name += ToDecimal(index);
    }
    if (withExtension) {
        name += kPhraseExtension;
    }
    return name;
}

std::filesystem::path MakeUniquePath(FileStore& files, std::u16string_view title,
                                     const std::filesystem::path& folder, bool withExtension,
                                     bool blanksToo, bool asFile) {
    const PathKind taken = asFile ? PathKind::File : PathKind::Folder;
    std::filesystem::path path;
    for (std::uint32_t index = 1; index != 0; ++index) {
        path = folder / MakeFileTitle(title, index, withExtension, blanksToo);
        if (files.KindOf(path) != taken) {
            break;
        }
    }
    return path;
}

}  // namespace vbr
