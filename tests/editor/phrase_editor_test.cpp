// SPDX-License-Identifier: MIT
#include "editor/phrase_editor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/text.h"
#include "editor/settings_form.h"
#include "fakes/native_profile_store.h"
#include "fakes/phrase_tree.h"
#include "resources/resource_ids.h"
#include "settings/embedded_strings.h"

namespace vbr {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

TEST(PhraseForm, TakesItsTitleFromTheFirstLineThatSaysSomething) {
    const std::pair<std::u16string, std::u16string> cases[] = {
        {u"\r\n  A title \r\nmore", u"A title"},
        {u" \t\r\n", u"New phrase"},
        {u"", u"New phrase"},
        {std::u16string(100, u'x'), std::u16string(60, u'x')}};
    for (const auto& [text, title] : cases) {
        EXPECT_EQ(FormForText(text).Title, title);
        EXPECT_EQ(FormForText(text).Text, text);
    }
}

class PhraseEditorTest : public testing::Test {
  protected:
    PhraseEditorTest() {
        phrases_.Folder.Write("Group/FOLDER_SELF.vellumbridge", "<VBRCommand SortID=\"1\" />");
        Add("Group/Inner", 1);
        Add("A", 1);
        Add("B", 2);
        Add("C", 3);
        EXPECT_TRUE(editor_.Load(Root() / ""));
    }
    void Add(const std::string& name, std::uint32_t sortId) {
        phrases_.Write(name + ".vellumbridge", VBRCommand{.Cmd = u"text", .SortID = sortId});
    }
    const std::filesystem::path& Root() const { return phrases_.Folder.Path(); }
    std::filesystem::path File(const std::string& name) const {
        return Root() / (name + ".vellumbridge");
    }
    std::string Read(const std::string& name) const {
        return phrases_.Folder.Read(name + ".vellumbridge");
    }
    // All titles as another program would read them.
    std::vector<std::string> Titles() {
        phrases_.Tree.LoadTree(Root());
        std::vector<std::string> titles;
        phrases_.Tree.WalkCommands([&titles](const VBRCommand& record, const VBRCommand* parent) {
            titles.push_back((parent ? "  " : "") + Utf16ToUtf8(record.Text));
            return true;
        });
        return titles;
    }

    PhraseTree phrases_;
    std::optional<SystemError> recycleError_;
    PhraseEditor editor_{phrases_.Files, phrases_.Tree, [this](const std::filesystem::path& path) {
                             if (!recycleError_) {
                                 std::filesystem::remove_all(path);
                             }
                             return recycleError_;
                         }};
};

TEST_F(PhraseEditorTest, ASavedFormStandsInTheFileBesideWhatOthersWroteThere) {
    const PhraseForm shown = FormOf(*editor_.Find(File("A")));
    PhraseForm form = shown;
    form.Title = u"Renamed & <more>";
    form.Text = u"line\r\nline";
    form.Kind = kDataTypeExec;
    form.Hint = u"hint";
    form.Enabled = false;
    form.LineAfter = true;
    EXPECT_TRUE(editor_.Save(File("A"), form, shown));
    EXPECT_EQ(FormOf(*editor_.Find(File("A"))), form);
    // Another program's text stays when the user has changed the title alone.
    PhraseForm titled = form;
    titled.Title = u"Title";
    phrases_.Write("A.vellumbridge", VBRCommand{.Cmd = u"another text", .SortID = 1});
    EXPECT_TRUE(editor_.Save(File("A"), titled, form));
    EXPECT_THAT(Read("A"), testing::AllOf(HasSubstr("another text"), HasSubstr(">Title<")));
}

TEST_F(PhraseEditorTest, ASaveKeepsWhatItDoesNotKnow) {
    phrases_.Folder.Write("A.vellumbridge",
                          "<VBRCommand UsageCount=\"7\" SortID=\"1\" Own=\"x\"><!-- mine -->"
                          "<MenuName>A</MenuName><Cmd>text</Cmd></VBRCommand>");
    EXPECT_TRUE(editor_.Save(File("A"), FormForText(u"new"), PhraseForm()));
    EXPECT_THAT(Read("A"), testing::AllOf(HasSubstr("UsageCount=\"7\""), HasSubstr("Own=\"x\""),
                                          HasSubstr("<!-- mine -->")));
}

TEST_F(PhraseEditorTest, WhatCannotBeReadOrWrittenIsLeftAloneAndTold) {
    const PhraseForm form = FormForText(u"new");
    phrases_.Folder.Write("A.vellumbridge", "no phrase");
    const EditResult unread = editor_.Save(File("A"), form, {});
    EXPECT_THAT(Utf16ToUtf8(unread.Failure), HasSubstr("A.vellumbridge"));
    EXPECT_EQ(Read("A"), "no phrase");
    phrases_.Store.ReplaceError = SystemError{5, u"denied"};
    EXPECT_FALSE(editor_.Save(File("B"), form, {}));
    EXPECT_FALSE(editor_.AddPhrase(Root(), form));
    phrases_.Store.ReplaceError.reset();
    recycleError_ = SystemError{32, u"in use"};
    EXPECT_THAT(Utf16ToUtf8(editor_.Delete(File("B")).Failure), HasSubstr("in use"));
    EXPECT_TRUE(editor_.Find(File("B")));
    // One that somebody deleted meanwhile is written again: the user sees it and edits it.
    const PhraseForm shown = FormOf(*editor_.Find(File("C")));
    PhraseForm changed = shown;
    changed.Text = u"new";
    std::filesystem::remove(File("C"));
    EXPECT_TRUE(editor_.Save(File("C"), changed, shown));
    EXPECT_EQ(FormOf(*editor_.Find(File("C"))), changed);
}

TEST_F(PhraseEditorTest, NewOnesStandLastUnderNamesThatAreFree) {
    EXPECT_EQ(editor_.GroupOf(File("Group/Inner")), Root() / "Group");
    EXPECT_EQ(editor_.GroupOf({}), Root());
    EXPECT_TRUE(editor_.AddPhrase(editor_.GroupOf(Root() / "Group"), FormForText(u"Inner")));
    const EditResult device = editor_.AddPhrase(Root(), FormForText(u"con"));
    EXPECT_EQ(device.Path.filename(), "con_phrase.vellumbridge");
    EXPECT_TRUE(editor_.AddPhrase(Root(), FormForText(u"con")));
    EXPECT_TRUE(editor_.AddGroup(Root(), u"Group"));
    EXPECT_TRUE(editor_.AddGroup(Root() / "Group", u"???"));
    EXPECT_THAT(Titles(), ElementsAre("Group", "  2", "  Inner", "  Inner", "Group2", "A", "B", "C",
                                      "con", "con"));
}

TEST_F(PhraseEditorTest, ThingsMoveAmongTheirKindAndIntoOtherGroups) {
    EXPECT_TRUE(editor_.Shift(File("C"), true));
    EXPECT_TRUE(editor_.Shift(File("A"), true));  // it is the first
    EXPECT_THAT(Titles(), ElementsAre("Group", "  Inner", "A", "C", "B"));
    Add("Group/A", 9);
    editor_.Load(Root());
    const EditResult moved = editor_.Move(File("A"), Root() / "Group");
    EXPECT_TRUE(moved);
    EXPECT_NE(moved.Path, File("Group/A"));  // which another phrase has
    EXPECT_THAT(Titles(), ElementsAre("Group", "  Inner", "  A", "  A", "C", "B"));
    EXPECT_TRUE(editor_.Move(File("Group/Inner"), Root()));
    EXPECT_TRUE(editor_.Move(File("C"), Root()));  // it is there
    EXPECT_TRUE(std::filesystem::exists(File("C")));
    const EditResult inner = editor_.AddGroup(Root() / "Group", u"Below");
    EXPECT_TRUE(editor_.Move(Root() / "Group", inner.Path));  // into itself: nothing happens
    EXPECT_TRUE(editor_.Move(Root() / "Group", Root() / "Group"));
    EXPECT_TRUE(std::filesystem::exists(inner.Path));
    EXPECT_TRUE(editor_.Move(inner.Path, Root()));
    EXPECT_TRUE(std::filesystem::is_directory(Root() / "Below"));
}

TEST_F(PhraseEditorTest, AGroupIsCalledAsItsFolder) {
    const PhraseForm shown = FormOf(*editor_.Find(Root() / "Group"));
    PhraseForm form = shown;
    form.LineBefore = true;
    form.Title = u"Letters";
    const EditResult renamed = editor_.Save(Root() / "Group", form, shown);
    ASSERT_TRUE(renamed);
    EXPECT_EQ(FormOf(*editor_.Find(Root() / "Letters")).LineBefore, true);
    EXPECT_THAT(Titles(), ElementsAre("Letters", "  Inner", "A", "B", "C"));
    EXPECT_THAT(phrases_.Folder.Read("Letters/FOLDER_SELF.vellumbridge"),
                testing::AllOf(HasSubstr("SortID=\"1\""), Not(HasSubstr("MenuName"))));
    editor_.AddGroup(Root(), u"Other");
    form.Title = u"Other";
    EXPECT_FALSE(editor_.Save(Root() / "Letters", form, shown));
    EXPECT_TRUE(std::filesystem::is_directory(Root() / "Letters"));
    EXPECT_TRUE(editor_.Delete(Root() / "Letters"));
    EXPECT_THAT(Titles(), ElementsAre("Other", "A", "B", "C"));
}

TEST(SettingsForm, IsTakenOnlyWithAHotKeyThatNobodyTypesAndAFittingNumber) {
    const EmbeddedStrings texts;
    SettingsForm form{.HotkeyVk = 13, .HotkeyMods = kModAlt | kModControl, .HistoryMax = 30};
    EXPECT_EQ(ProblemOf(form, texts), std::nullopt);
    const std::tuple<std::uint16_t, std::uint16_t, bool> keys[] = {
        {0, kModControl, false}, {65, 0, false},     {65, kModShift, false},
        {65, kModWin, true},     {120, 0, true},     {120, kModShift, true},
        {111, 0, false},         {65, kModAlt, true}};
    for (const auto& [vk, mods, is] : keys) {
        form.HotkeyVk = vk;
        form.HotkeyMods = mods;
        EXPECT_EQ(!ProblemOf(form, texts), is) << vk << '+' << mods;
    }
    form.HotkeyVk = 120;
    for (const std::uint32_t count : {0U, kMostHistoryItems + 1}) {
        form.HistoryMax = count;
        EXPECT_EQ(ProblemOf(form, texts), texts.LoadString(kStrHistoryMaxOutside));
    }
}

TEST(SettingsForm, ChangesWhatTheUserChangedAndNothingThatAnotherDidMeanwhile) {
    TempFolder folder;
    NativeProfileStore profile;
    const SettingsFiles files{
        folder.Path() / "settings.txt", folder.Path() / "settings.txt", {}, u"", u""};
    CVBRSettings settings(profile, files);
    settings.Load();
    settings.Save();
    const SettingsForm shown = FormOf(settings);
    CVBRSettings other(profile, files);
    other.Load();
    other.SoundOnEvents = !shown.Sounds;
    other.Save();
    SettingsForm form = shown;
    form.HistoryMax = 77;
    form.PhrasesFolder = u"%USERPROFILE%\\Mine";
    EXPECT_TRUE(SaveForm(form, shown, settings));
    CVBRSettings next(profile, files);
    next.Load();
    EXPECT_EQ(next.SoundOnEvents, !shown.Sounds);
    EXPECT_EQ(next.ClipboardHistoryMax, 77U);
    EXPECT_EQ(next.PhrasesDirectory, u"%USERPROFILE%\\Mine");
    profile.IsHeld = [](const auto&) { return true; };
    EXPECT_FALSE(SaveForm(form, shown, settings));
}

}  // namespace
}  // namespace vbr
