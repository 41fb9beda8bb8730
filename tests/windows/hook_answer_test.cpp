// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <atomic>
#include <gtest/gtest.h>
#include <oleacc.h>
#include <richedit.h>

#include "hook/query_answer.h"
#include "windows/hook_desk.h"
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
        EXPECT_TRUE(desk_.Install(QueryRoadChoice::Posted));
    }

    HookDesk desk_;
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
        const auto query = desk_.Ask(target.Window());
        ASSERT_TRUE(query);
        EXPECT_EQ(query->StateSelText, item.State);
        EXPECT_EQ(query->SelText, item.Selected);
    }
}

TEST_F(HookAnswerTest, TheTargetAndItsCaretAreTold) {
    const TargetThread target(L"Edit", 0);
    SendMessageW(target.Window(), WM_SETTEXT, 0, Address(L"one two"));
    SendMessageW(target.Window(), EM_SETSEL, 3, 3);
    const auto query = desk_.Ask(target.Window());
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

// A COM interface has no destructor.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
// The caret of a program that draws its own and tells of it.
class DrawnCaret : public IAccessible {
  public:
    static constexpr LONG kLeft = 123, kTop = 234, kHeight = 17;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        const bool known =
            id == __uuidof(IUnknown) || id == __uuidof(IDispatch) || id == __uuidof(IAccessible);
        *object = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                          VARIANT) override {
        *left = kLeft;
        *top = kTop;
        *width = 1;
        *height = kHeight;
        return S_OK;
    }

#define VBR_NOT_ASKED(Method, ...)                           \
    HRESULT STDMETHODCALLTYPE Method(__VA_ARGS__) override { \
        return E_NOTIMPL;                                    \
    }
    VBR_NOT_ASKED(GetTypeInfoCount, UINT*)
    VBR_NOT_ASKED(GetTypeInfo, UINT, LCID, ITypeInfo**)
    VBR_NOT_ASKED(GetIDsOfNames, REFIID, LPOLESTR*, UINT, LCID, DISPID*)
    VBR_NOT_ASKED(Invoke, DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*)
    VBR_NOT_ASKED(get_accParent, IDispatch**)
    VBR_NOT_ASKED(get_accChildCount, LONG*)
    VBR_NOT_ASKED(get_accChild, VARIANT, IDispatch**)
    VBR_NOT_ASKED(get_accName, VARIANT, BSTR*)
    VBR_NOT_ASKED(get_accValue, VARIANT, BSTR*)
    VBR_NOT_ASKED(get_accDescription, VARIANT, BSTR*)
    VBR_NOT_ASKED(get_accRole, VARIANT, VARIANT*)
    VBR_NOT_ASKED(get_accState, VARIANT, VARIANT*)
    VBR_NOT_ASKED(get_accHelp, VARIANT, BSTR*)
    VBR_NOT_ASKED(get_accHelpTopic, BSTR*, VARIANT, LONG*)
    VBR_NOT_ASKED(get_accKeyboardShortcut, VARIANT, BSTR*)
    VBR_NOT_ASKED(get_accFocus, VARIANT*)
    VBR_NOT_ASKED(get_accSelection, VARIANT*)
    VBR_NOT_ASKED(get_accDefaultAction, VARIANT, BSTR*)
    VBR_NOT_ASKED(accSelect, LONG, VARIANT)
    VBR_NOT_ASKED(accNavigate, LONG, VARIANT, VARIANT*)
    VBR_NOT_ASKED(accHitTest, LONG, LONG, VARIANT*)
    VBR_NOT_ASKED(accDoDefaultAction, VARIANT)
    VBR_NOT_ASKED(put_accName, VARIANT, BSTR)
    VBR_NOT_ASKED(put_accValue, VARIANT, BSTR)
#undef VBR_NOT_ASKED
};

#pragma GCC diagnostic pop

DrawnCaret g_drawnCaret;

LRESULT CALLBACK TellOfDrawnCaret(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_GETOBJECT && static_cast<LONG>(lParam) == OBJID_CARET) {
        return LresultFromObject(__uuidof(IAccessible), wParam, &g_drawnCaret);
    }
    return TargetThread::CallOriginal(window, message, wParam, lParam);
}

TEST_F(HookAnswerTest, ACaretThatTheProgramDrawsItselfIsFoundByItsAccessibleObject) {
    const TargetThread target(L"Button", 0, TellOfDrawnCaret);
    const auto query = desk_.Ask(target.Window());
    ASSERT_TRUE(query);
    EXPECT_EQ(query->PointX, DrawnCaret::kLeft);
    EXPECT_EQ(query->PointY, DrawnCaret::kTop + DrawnCaret::kHeight);
}

HANDLE g_blocked;

// Holds its thread until the test lets it go.
LRESULT CALLBACK BlockOnSelection(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == EM_GETSEL) {
        WaitForSingleObject(g_blocked, INFINITE);
    }
    return TargetThread::CallOriginal(window, message, wParam, lParam);
}

TEST_F(HookAnswerTest, AControlThatNeverAnswersDoesNotHoldTheAnswerUp) {
    const UniqueHandle blocked(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    g_blocked = blocked.get();
    const TargetThread target(L"Edit", 0, BlockOnSelection);
    const auto query = desk_.Ask(target.Window());
    SetEvent(g_blocked);
    ASSERT_TRUE(query);
    EXPECT_EQ(query->StateSelText, kSelTextFailed);
    EXPECT_EQ(query->WindowClassName, u"Edit");
    EXPECT_NE(query->PointX, -1);
    // What it says at last goes nowhere, and it is asked as always the next time.
    SendMessageW(target.Window(), WM_SETTEXT, 0, Address(L"one"));
    PostMessageW(target.Window(), EM_SETSEL, 0, -1);
    const auto next = desk_.Ask(target.Window());
    ASSERT_TRUE(next);
    EXPECT_EQ(next->SelText, u"one");
}

LRESULT CALLBACK BlockOnUser(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_USER) {
        WaitForSingleObject(g_blocked, INFINITE);
    }
    return TargetThread::CallOriginal(window, message, wParam, lParam);
}

TEST_F(HookAnswerTest, AMessageThatWaitedInAHungProgramIsNotAnsweredAnyMore) {
    const UniqueHandle blocked(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    g_blocked = blocked.get();
    const TargetThread target(L"Button", 0, BlockOnUser);
    PostMessageW(target.Window(), WM_USER, 0, 0);
    ASSERT_TRUE(desk_.Post(target.Window()));
    Sleep(hook::kFreshMs + 100);
    SetEvent(g_blocked);
    // Behind the message that waited.
    SendMessageW(target.Window(), WM_NULL, 0, 0);
    PostMessageW(target.Window(), WM_USER, 0, 0);
    EXPECT_FALSE(desk_.WaitForAnswer(0));
}

std::atomic<bool> g_sawRegistered;

LRESULT CALLBACK NoteRegistered(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    g_sawRegistered = g_sawRegistered || message >= 0xC000;
    return TargetThread::CallOriginal(window, message, wParam, lParam);
}

TEST_F(HookAnswerTest, AnAnsweredMessageGoesToNobodyElse) {
    const TargetThread target(L"Button", 0, NoteRegistered);
    g_sawRegistered = false;
    ASSERT_TRUE(desk_.Ask(target.Window()));
    SendMessageW(target.Window(), WM_NULL, 0, 0);
    EXPECT_FALSE(g_sawRegistered);
}

TEST_F(HookAnswerTest, AnAnswerThatNobodyHasReadYetIsNotWrittenOver) {
    const TargetThread first(L"Edit", 0);
    const TargetThread second(L"Button", 0);
    ASSERT_TRUE(desk_.Post(first.Window()));
    ASSERT_TRUE(desk_.WaitForAnswer());
    ASSERT_TRUE(desk_.Post(second.Window()));
    SendMessageW(second.Window(), WM_NULL, 0, 0);
    EXPECT_EQ(desk_.TakeAnswer()->WindowClassName, u"Edit");
}

}  // namespace
}  // namespace vbr
