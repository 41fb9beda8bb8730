// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include "desktop/driver/clipboard.h"
#include "desktop/program_test.h"

namespace vbr::desktop {
namespace {

std::u16string ClipboardText() {
    return reinterpret_cast<const char16_t*>(ReadClipboard()[L"13"].c_str());
}

// The program with the phrases that a test adds, and Notepad in front of it.
class PhraseMenuOnDesktop : public ProgramTest {
  protected:
    void Add(const std::string& name, const std::string& text) {
        std::filesystem::create_directories((program_.Phrases() / name).parent_path());
        program_.AddPhrase(name, ++sortId_, text);
    }
    void Start(const std::string& settings = "") {
        ProgramTest::Start("InsertCHIntoMenu=0\n" + settings);
    }
    void OpenMenu(POINT mouse = {200, 100}) {
        SetCursorPos(mouse.x, mouse.y);
        ProgramTest::OpenMenu(notepad_);
    }
    static bool HasLine(std::u16string_view label) { return FindMenuLine(label).Label == label; }
    static bool WaitUntilSelected(std::u16string_view label) {
        return WaitUntil([label] { return FindMenuLine(label).IsSelected(); });
    }

    int sortId_ = 0;
    const Notepad notepad_;
};

TEST_F(PhraseMenuOnDesktop, ScreenReadersFindEveryItemOfEveryRegion) {
    Add("Alpha", "a");
    Add("Group/Inner", "b");
    Start();
    OpenMenu();
    std::string shown;
    for (const MenuLine& line : ReadMenu(TopMenuWindow())) {
        shown += Utf16ToUtf8(line.Label) + (line.IsGrayed() ? " (gray)|" : "|");
        EXPECT_TRUE(line.IsAccessible) << shown;
    }
    EXPECT_EQ(shown,
              "Alpha| (gray)|Group|Group/Inner|Clipboard History [Skipped] (gray)|"
              "Edit menu\\settings|Selection into Phrase (gray)|Visit to us (gray)|"
              "Technical Support|");
    CloseMenu();
}

TEST_F(PhraseMenuOnDesktop, TypingMovesAndEnterChooses) {
    Add("Alpha", "one");
    Add("Beta", "two");
    Add("Gamma", "three");
    Start();
    OpenMenu();
    PressKeys({'G'});
    EXPECT_TRUE(WaitUntilSelected(u"Gamma"));
    PressKeys({VK_RETURN});
    ASSERT_EQ(notepad_.WaitForText(u"three"), u"three");
    // Gamma is the first of the recent phrases now.
    OpenMenu();
    PressKeys({'B'});
    EXPECT_TRUE(WaitUntilSelected(u"Beta"));
    PressKeys({'1'});
    EXPECT_TRUE(WaitUntilSelected(u"Gamma"));
    PressKeys({VK_RETURN});
    EXPECT_EQ(notepad_.WaitForText(u"threethree"), u"threethree");
}

TEST_F(PhraseMenuOnDesktop, ARightClickCopiesAndTheMenuStaysOpen) {
    Add("Alpha", "[%SELECTED_TEXT%] &amp; more");
    Start();
    notepad_.SetText(u"sel");
    notepad_.Select(0, 3);
    OpenMenu();
    const HWND menu = TopMenuWindow();
    ClickMenuLine(ReadMenu(menu)[0], MouseButton::Right);
    ASSERT_TRUE(WaitUntil([menu] { return TopMenuWindow() != menu; }));
    EXPECT_TRUE(FindMenuLine(u"Edit").IsGrayed());
    EXPECT_TRUE(HasLine(u"Search In Google [[sel] && more]"));
    EXPECT_NE(ClipboardText(), u"[sel] & more");
    ClickMenuLine(FindMenuLine(u"Copy"), MouseButton::Left);
    ASSERT_TRUE(WaitUntil([] { return ClipboardText() == u"[sel] & more"; }));
    EXPECT_TRUE(WaitUntil([] { return HasLine(u"[sel] & more"); }));
    CloseMenu();
    ASSERT_TRUE(WaitUntil([this] { return notepad_.BringToFront(); }));
    EXPECT_EQ(program_.End(), 0U);
    EXPECT_EQ(ClipboardText(), u"[sel] & more");
    EXPECT_EQ(notepad_.Text(), u"sel");
}

TEST_F(PhraseMenuOnDesktop, TheKeyboardOpensTheRightClickMenuToo) {
    Add("Alpha", "first");
    Add("Beta", "second");
    Start();
    const struct {
        std::vector<WORD> KeysOfTheMenu;
        std::u16string Label;
        std::u16string Text;
    } cases[] = {{{VK_APPS}, u"Alpha", u"first"}, {{VK_SHIFT, VK_F10}, u"Beta", u"second"}};
    for (const auto& [keysOfTheMenu, label, text] : cases) {
        OpenMenu();
        const HWND menu = TopMenuWindow();
        PressKeys({label[0]});
        ASSERT_TRUE(WaitUntilSelected(label));
        PressKeys(keysOfTheMenu);
        ASSERT_TRUE(WaitUntil([menu] { return TopMenuWindow() != menu; }));
        const HWND rightMenu = TopMenuWindow();
        EXPECT_TRUE(HasLine(u"Search In Google [" + text + u"]"));
        EXPECT_NE(ClipboardText(), text);
        PressKeys({VK_DOWN, VK_RETURN});
        EXPECT_TRUE(WaitUntil([&] { return ClipboardText() == text; }));
        // The phrase menu has closed with the other one here, and is there again.
        ASSERT_TRUE(WaitUntil([=] {
            const HWND top = TopMenuWindow();
            return top && top != menu && top != rightMenu;
        }));
        CloseMenu();
    }
}

TEST_F(PhraseMenuOnDesktop, TheMenuStaysOnTheScreenAndSoDoesItsTip) {
    Add("Alpha", "a");
    Start();
    const POINT end = {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    const auto isOnScreen = [end](HWND window) {
        RECT rect{};
        GetWindowRect(window, &rect);
        return rect.left >= 0 && rect.top >= 0 && rect.right <= end.x && rect.bottom <= end.y;
    };
    for (const POINT corner : {POINT{0, 0}, POINT{end.x - 1, end.y - 1}}) {
        OpenMenu(corner);
        EXPECT_TRUE(isOnScreen(TopMenuWindow())) << corner.x;
        PressKeys({'A'});
        const HWND menu = TopMenuWindow();
        HWND tip = nullptr;
        EXPECT_TRUE(WaitUntil([&] {
            tip = FindWindowW(L"MenuToolTip", nullptr);
            return tip && IsWindowVisible(tip);
        }));
        // It finds its place when its size is known.
        EXPECT_TRUE(WaitUntil([&] {
            RECT menuRect{};
            RECT tipRect{};
            RECT common{};
            GetWindowRect(menu, &menuRect);
            GetWindowRect(tip, &tipRect);
            InflateRect(&menuRect, -4, 0);
            return isOnScreen(tip) && !IntersectRect(&common, &menuRect, &tipRect);
        })) << "The tip hides the menu.";
        CloseMenu();
    }
}

TEST_F(PhraseMenuOnDesktop, APhraseInADeepTreeWhoseFileIsGoneStillArrives) {
    std::string path;
    constexpr int kDepth = 12;
    for (int i = 0; i < kDepth; ++i) {
        path += "folder" + std::to_string(i) + "/";
    }
    Add(path + "x", "deep");
    Start();
    OpenMenu();
    std::filesystem::remove_all(program_.Phrases() / "folder0");
    PressKeys({VK_DOWN});
    for (int i = 0; i < kDepth; ++i) {
        PressKeys({VK_RIGHT});
    }
    PressKeys({VK_RETURN});
    EXPECT_EQ(notepad_.WaitForText(u"deep"), u"deep");
    EXPECT_EQ(program_.End(), 0U);
}

}  // namespace
}  // namespace vbr::desktop
