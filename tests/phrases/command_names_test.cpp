// SPDX-License-Identifier: MIT
#include "phrases/command_names.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/native_file_store.h"
#include "fakes/temp_folder.h"

namespace vbr {
namespace {

TEST(SafeFileName, HoldsNothingThatAFileNameCannot) {
    const std::tuple<std::u16string_view, bool, std::u16string_view> cases[] = {
        {u" \tplain title\t ", false, u"plain title"},
        {u"a?b:c\\d\"e!f/g<h>i.j\tk*l|m{n}o=p(q)r's", false,
         u"a_b_c_d_e_f_g_h_i_j_k_l_m_n_o_p_q_r_s"},
        {u"Dear: all", true, u"Dear_all"},
        {u"first\nsecond", false, u"first"},
        {u"a...b..c", false, u"a_b_c"},
        {u"_a______b_", false, u"a_b"},
        {u"?!...", false, u""},
        {u"Дата — сегодня", true, u"Дата_—_сегодня"},
    };
    for (const auto& [title, blanksToo, name] : cases) {
        EXPECT_EQ(MakeSafeFileName(title, blanksToo), name) << Utf16ToUtf8(title);
    }
    EXPECT_EQ(MakeSafeFileName(u"a/b c", true, u"-"), u"a-b-c");
}

TEST(FileTitle, IndexFollowsFromTheSecondOn) {
    EXPECT_EQ(MakeFileTitle(u"a: b", 1, true, true), u"a_b.vellumbridge");
    EXPECT_EQ(MakeFileTitle(u"a: b", 2, true, true), u"a_b2.vellumbridge");
    EXPECT_EQ(MakeFileTitle(u"???", 2, true, true), u"2.vellumbridge");
    EXPECT_EQ(MakeFileTitle(u"a  b", 3, false, false), u"a  b3");
}

TEST(UniquePath, SkipsWhatIsTakenByTheSameKind) {
    const TempFolder folder;
    NativeFileStore files;
    folder.Write("one.vellumbridge", "");
    folder.Write("one2.vellumbridge", "");
    std::filesystem::create_directory(folder.Path() / "two");
    const auto name = [&](std::u16string_view title, bool extension, bool asFile) {
        return MakeUniquePath(files, title, folder.Path(), extension, true, asFile).filename();
    };
    EXPECT_EQ(name(u"one", true, true), "one3.vellumbridge");
    EXPECT_EQ(name(u"two", false, false), "two2");
    EXPECT_EQ(name(u"two", true, true), "two.vellumbridge");
}

}  // namespace
}  // namespace vbr
