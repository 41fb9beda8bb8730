// SPDX-License-Identifier: MIT
#include "hook/posted/selected_range.h"

#include <richedit.h>

#include "exchange/query_writer.h"
#include "platform/win32/wide.h"

namespace vbr::hook {
namespace {

constexpr std::size_t kTextMax = 8 * 1024 * 1024;  // characters; more takes too long to fetch
constexpr UINT kUtf16 = 1200;

template <typename T>
LPARAM Address(T* place) {
    return reinterpret_cast<LPARAM>(place);
}

SelectedRange Nothing() {
    return {kSelTextNone, nullptr, {}};
}

SelectedRange Unknown() {
    return {};
}

SelectedRange Part(HeapBlock<char16_t> buffer, std::size_t start, std::size_t length) {
    const std::u16string_view text(buffer.get() + start, length);
    return {kSelTextExtracted, std::move(buffer), text};
}

// Such a control counts its selection in bytes of the code page.
bool CountsInBytes(HWND control) {
    CPINFO page{};
    return !IsWindowUnicode(control) && !(GetCPInfo(CP_ACP, &page) && page.MaxCharSize == 1);
}

// Without the system's translation between the two kinds of text.
LONG_PTR ClassProcedure(HWND control) {
    return static_cast<LONG_PTR>(IsWindowUnicode(control)
                                     ? GetClassLongPtrW(control, GCLP_WNDPROC)
                                     : GetClassLongPtrA(control, GCLP_WNDPROC));
}

// Whether the code at the address is of a library of one of these names.
template <std::size_t Count>
bool IsCodeOf(const wchar_t* const (&libraries)[Count], LONG_PTR address) {
    HMODULE module = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<const wchar_t*>(address), &module);
    wchar_t path[MAX_PATH];
    const DWORD length = module ? GetModuleFileNameW(module, path, MAX_PATH) : 0;
    for (const wchar_t* library : libraries) {
        const int size = lstrlenW(library);
        const int front = static_cast<int>(length) - size;
        if (front > 0 && path[front - 1] == L'\\' &&
            CompareStringOrdinal(path + front, size, library, size, TRUE) == CSTR_EQUAL) {
            return true;
        }
    }
    return false;
}

SelectedRange ReadEdit(HWND edit) {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), Address(&end));
    if (start == end) {
        return Nothing();
    }
    const LRESULT told = SendMessageW(edit, WM_GETTEXTLENGTH, 0, 0);
    const auto length = static_cast<std::size_t>(told);
    if (start > end || end - start > kQueryDocumentMax || told < 0 || end > length ||
        length > kTextMax || CountsInBytes(edit)) {
        return Unknown();
    }
    auto buffer = MakeHeapBlock<char16_t>(length + 1);
    const bool read = buffer && static_cast<std::size_t>(SendMessageW(
                                    edit, WM_GETTEXT, length + 1, Address(buffer.get()))) >= end;
    return read ? Part(std::move(buffer), start, end - start) : Unknown();
}

SelectedRange ReadRichEdit(HWND edit) {
    CHARRANGE range{};
    SendMessageW(edit, EM_EXGETSEL, 0, Address(&range));
    if (range.cpMin == range.cpMax) {
        return Nothing();
    }
    const auto count =
        static_cast<std::size_t>(range.cpMax) - static_cast<std::size_t>(range.cpMin);
    if (range.cpMin < 0 || range.cpMin > range.cpMax || count > kQueryDocumentMax) {
        return Unknown();
    }
    // Every character may be the end of a line, which comes as two.
    const std::size_t size = 2 * count + 1;
    auto buffer = MakeHeapBlock<char16_t>(size);
    if (!buffer) {
        return Unknown();
    }
    GETTEXTEX wanted{};
    wanted.cb = static_cast<DWORD>(size * sizeof(char16_t));
    wanted.flags = GT_SELECTION | GT_USECRLF;
    wanted.codepage = kUtf16;
    const LRESULT told =
        SendMessageW(edit, EM_GETTEXTEX, reinterpret_cast<WPARAM>(&wanted), Address(buffer.get()));
    const auto length = static_cast<std::size_t>(told);
    return told > 0 && length < size ? Part(std::move(buffer), 0, length) : Unknown();
}

}  // namespace

ControlKind KindOf(HWND control) {
    constexpr int kClassMax = 256;
    wchar_t name[kClassMax];
    const int length = GetClassNameW(control, name, kClassMax);
    if (FindStringOrdinal(FIND_FROMSTART, name, length, L"RICHEDIT", -1, TRUE) >= 0) {
        constexpr const wchar_t* kRichEdits[] = {L"riched20.dll", L"riched32.dll", L"msftedit.dll"};
        return IsCodeOf(kRichEdits, ClassProcedure(control)) ? ControlKind::RichEdit
                                                             : ControlKind::Other;
    }
    // Frameworks give the system's control a class name of their own.
    const UINT base = RealGetWindowClassW(control, name, kClassMax);
    const bool edit =
        CompareStringOrdinal(name, static_cast<int>(base), L"Edit", -1, TRUE) == CSTR_EQUAL;
    return edit ? ControlKind::Edit : ControlKind::Other;
}

bool IsAnsweredBySystem(HWND control) {
    constexpr const wchar_t* kSystemLibraries[] = {L"user32.dll", L"comctl32.dll", L"riched20.dll",
                                                   L"msftedit.dll"};
    const LONG_PTR procedure = GetWindowLongPtrW(control, GWLP_WNDPROC);
    return procedure == static_cast<LONG_PTR>(GetClassLongPtrW(control, GCLP_WNDPROC)) &&
           IsCodeOf(kSystemLibraries, procedure);
}

SelectedRange ReadSelection(HWND control, ControlKind kind) {
    if (kind == ControlKind::Other) {
        return Unknown();
    }
    if (GetWindowLongW(control, GWL_STYLE) & ES_PASSWORD) {
        return Nothing();
    }
    return kind == ControlKind::Edit ? ReadEdit(control) : ReadRichEdit(control);
}

}  // namespace vbr::hook
