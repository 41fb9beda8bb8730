// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <atomic>
#include <gtest/gtest.h>
#include <oleacc.h>
#include <richedit.h>

#include "desktop/driver/waiting.h"
#include "hook/posted/query_answer.h"
#include "windows/hook_fixture.h"
#include "windows/target_thread.h"

namespace vbr {
namespace {

LPARAM Address(const void* place) {
    return reinterpret_cast<LPARAM>(place);
}

class HookAnswerTest : public testing::Test {
  protected:
    HookAnswerTest() {
        LoadLibraryW(L"riched20.dll");
        EXPECT_TRUE(fixture_.Install(QueryRouteChoice::Posted));
    }

    HookFixture fixture_;
};

TEST_F(HookAnswerTest, TheSelectionOfTextControlsIsTold) {
    struct Case {
        const wchar_t* Class;
        DWORD Style;
        std::u16string Text;
        int From;
        int To;
        std::int32_t State;
        std::u16string Selected;
    };
    const std::u16string lines = u"  <a & b>\r\n\r\n\t\"Привет\" 🙂 ";
    // Each of them takes five bytes of the document.
    std::u16string large;
    for (int i = 0; i < 1000; ++i) {
        large.append(90, u'&').append(u"\r\n");
    }
    const Case cases[] = {
        {L"Edit", 0, u"one two", 4, 7, kSelTextExtracted, u"two"},
        {L"Edit", 0, u"one two", 4, 4, kSelTextNone, u""},
        {L"Edit", ES_PASSWORD, u"secret", 0, -1, kSelTextNone, u""},
        {L"Edit", ES_MULTILINE, lines, 0, -1, kSelTextExtracted, lines},
        {L"Edit", ES_MULTILINE, large, 0, -1, kSelTextFailed, u""},
        {L"Edit", ES_MULTILINE, large + u"end", static_cast<int>(large.size()), -1,
         kSelTextExtracted, u"end"},
        {RICHEDIT_CLASSW, ES_MULTILINE, u"one\r\ntwo\r\nthree", 1, 9, kSelTextExtracted,
         u"ne\r\ntwo\r\nt"},
        {RICHEDIT_CLASSW, ES_MULTILINE, u"one", 2, 2, kSelTextNone, u""},
        {RICHEDIT_CLASSW, ES_PASSWORD, u"secret", 0, -1, kSelTextNone, u""},
        {RICHEDIT_CLASSW, ES_MULTILINE, large, 0, -1, kSelTextFailed, u""},
        {L"Button", 0, u"Press", 0, -1, kSelTextFailed, u""},
    };
    for (const Case& item : cases) {
        SCOPED_TRACE(testing::Message() << &item - cases);
        const TargetThread target(item.Class, item.Style);
        SendMessageW(target.Window(), EM_SETLIMITTEXT, 1'000'000, 0);
        SendMessageW(target.Window(), WM_SETTEXT, 0, Address(item.Text.c_str()));
        SendMessageW(target.Window(), EM_SETSEL, static_cast<WPARAM>(item.From), item.To);
        const auto query = fixture_.Ask(target.Window());
        ASSERT_TRUE(query);
        EXPECT_EQ(query->StateSelText, item.State);
        EXPECT_EQ(query->SelText, item.Selected);
    }
}

TEST_F(HookAnswerTest, TheTargetAndItsCaretAreTold) {
    const TargetThread target(L"Edit", 0);
    SendMessageW(target.Window(), WM_SETTEXT, 0, Address(L"one two"));
    SendMessageW(target.Window(), EM_SETSEL, 3, 3);
    const auto query = fixture_.Ask(target.Window());
    ASSERT_TRUE(query);
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const auto window = reinterpret_cast<WindowHandle>(target.Window());
    const DWORD thread = GetWindowThreadProcessId(target.Window(), nullptr);
    EXPECT_EQ(query->AppPath, FromWide(path));
    EXPECT_EQ(query->WindowClassName, u"Edit");
    EXPECT_EQ(query->TargetWindow, window);
    EXPECT_EQ(query->GuiThreadInfo.Focus, window);
    EXPECT_EQ(query->GuiThreadInfo.Caret, window);
    EXPECT_EQ(query->Hkl, static_cast<LayoutHandle>(
                              reinterpret_cast<std::uintptr_t>(GetKeyboardLayout(thread))));
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    ASSERT_TRUE(GetGUIThreadInfo(thread, &info));
    POINT below = {info.rcCaret.left, info.rcCaret.bottom};
    ClientToScreen(target.Window(), &below);
    EXPECT_EQ(query->PointX, below.x);
    EXPECT_EQ(query->PointY, below.y);
}

// The system's object for the window in the place of one for a caret that the program draws itself.
LRESULT CALLBACK TellOfDrawnCaret(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    IAccessible* caret = nullptr;
    if (message != WM_GETOBJECT || static_cast<LONG>(lParam) != OBJID_CARET ||
        FAILED(CreateStdAccessibleObject(window, OBJID_CLIENT, __uuidof(IAccessible),
                                         reinterpret_cast<void**>(&caret)))) {
        return TargetThread::CallOriginal(window, message, wParam, lParam);
    }
    const LRESULT told = LresultFromObject(__uuidof(IAccessible), wParam, caret);
    caret->Release();
    return told;
}

TEST_F(HookAnswerTest, ACaretThatTheProgramDrawsItselfIsFoundByItsAccessibleObject) {
    const TargetThread target(L"Button", 0, TellOfDrawnCaret);
    const auto query = fixture_.Ask(target.Window());
    ASSERT_TRUE(query);
    RECT client{};
    GetClientRect(target.Window(), &client);
    POINT below = {client.left, client.bottom};
    ClientToScreen(target.Window(), &below);
    EXPECT_EQ(query->PointX, below.x);
    EXPECT_EQ(query->PointY, below.y);
}

HANDLE g_blocked;

// Holds its thread, when it is asked for the selection, until the test lets it go.
LRESULT CALLBACK Block(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == EM_GETSEL) {
        WaitForSingleObject(g_blocked, INFINITE);
    }
    return TargetThread::CallOriginal(window, message, wParam, lParam);
}

TEST_F(HookAnswerTest, AControlThatNeverAnswersDoesNotHoldTheAnswerUp) {
    const UniqueHandle blocked(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    g_blocked = blocked.get();
    const TargetThread target(L"Edit", 0, Block);
    const auto query = fixture_.Ask(target.Window());
    SetEvent(g_blocked);
    ASSERT_TRUE(query);
    EXPECT_EQ(query->StateSelText, kSelTextFailed);
    EXPECT_EQ(query->WindowClassName, u"Edit");
    EXPECT_NE(query->PointX, -1);
    // What it says at last goes nowhere, and it is asked as always the next time.
    SendMessageW(target.Window(), WM_SETTEXT, 0, Address(L"one"));
    PostMessageW(target.Window(), EM_SETSEL, 0, -1);
    const auto next = fixture_.Ask(target.Window());
    ASSERT_TRUE(next);
    EXPECT_EQ(next->SelText, u"one");
}

std::atomic<int> g_meantForRichEdits;

LRESULT CALLBACK LookAlike(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    g_meantForRichEdits += message >= WM_USER ? 1 : 0;
    return DefWindowProcW(window, message, wParam, lParam);
}

TEST_F(HookAnswerTest, AWindowThatOnlyLooksLikeARichEditGetsNoNumbersThatMeanOtherThingsToIt) {
    WNDCLASSW look{};
    look.lpfnWndProc = LookAlike;
    look.hInstance = GetModuleHandleW(nullptr);
    look.lpszClassName = L"MyRichEdit20W";
    RegisterClassW(&look);
    {
        const TargetThread target(look.lpszClassName, 0);
        const auto query = fixture_.Ask(target.Window());
        ASSERT_TRUE(query);
        EXPECT_EQ(query->StateSelText, kSelTextFailed);
    }
    EXPECT_EQ(g_meantForRichEdits, 0);
    UnregisterClassW(look.lpszClassName, look.hInstance);
}

bool IsLibraryLoaded() {
    const auto path = ProgramFolder() / "test_build" / "Vellumbridge.dll";
    return GetModuleHandleW(path.c_str()) != nullptr;
}

TEST_F(HookAnswerTest, TheLibraryStaysUntilTheThreadThatWasAskedHasLeft) {
    const UniqueHandle blocked(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    g_blocked = blocked.get();
    const TargetThread target(L"Edit", 0, Block);
    ASSERT_TRUE(fixture_.Ask(target.Window()));
    // The answer is given without the thread, which is still within the library's code.
    ASSERT_TRUE(fixture_.Uninstall());
    Sleep(2 * hook::kAnswerMs);
    EXPECT_TRUE(IsLibraryLoaded());
    SetEvent(g_blocked);
    EXPECT_TRUE(desktop::WaitUntil([] { return !IsLibraryLoaded(); }));
    // It goes on as if nothing had been.
    SendMessageW(target.Window(), WM_SETTEXT, 0, Address(L"one"));
    EXPECT_EQ(SendMessageW(target.Window(), WM_GETTEXTLENGTH, 0, 0), 3);
}

TEST_F(HookAnswerTest, AnAnswerThatNobodyHasReadYetIsNotWrittenOver) {
    const TargetThread first(L"Edit", 0);
    const TargetThread second(L"Button", 0);
    ASSERT_TRUE(fixture_.Post(first.Window()));
    ASSERT_TRUE(fixture_.WaitForAnswer());
    ASSERT_TRUE(fixture_.Post(second.Window()));
    SendMessageW(second.Window(), WM_NULL, 0, 0);
    EXPECT_EQ(fixture_.TakeAnswer()->WindowClassName, u"Edit");
}

}  // namespace
}  // namespace vbr
