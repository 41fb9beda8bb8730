// SPDX-License-Identifier: MIT
#include "exchange/selected_text.h"

#include "exchange/editor_marks.h"
#include "exchange/target_kinds.h"
#include "platform/clipboard_text.h"
#include "platform/key_sending.h"

namespace vbr {
namespace {

// Fingers are off the hot key by then; longer, and the key begins to repeat.
constexpr std::uint32_t kReleaseMs = 200;
// Programs of several processes copy a moment after they have read the keys.
constexpr std::uint32_t kGraceMs = 150;
constexpr std::uint32_t kStepMs = 2;

}  // namespace

Selection SelectedTextReader::ExtractSelectedText(WindowHandle target) {
    const std::lock_guard lock(mutex_);
    late_.reset();
    const bool isEdit = IsEditClass(with_.Windows.ClassName(target));
    if (isEdit && with_.Windows.HasSelection(target) == false) {
        return {.State = kSelTextNone};
    }
    if (!with_.Snapshot.Take()) {
        return {};
    }
    const std::uint32_t process = with_.Windows.ThreadOf(target).Process;
    const MyCopyScope ownCopy(with_.OwnCopy, with_.Clipboard);
    with_.OwnCopy.ExpectCopyOf(process);
    std::u16string text;
    const std::uint32_t before = with_.Clipboard.SequenceNumber();
    if (LetCopy(target, isEdit, !IsTerminal(target))) {
        text = TakeCopy();
    } else {
        late_ = LateCopy{before, process};
    }
    return text.empty() ? Selection()
                        : Selection{.State = kSelTextExtracted, .Text = std::move(text)};
}

void SelectedTextReader::TakeBackLateCopy() {
    const std::lock_guard lock(mutex_);
    const MyCopyScope ownCopy(with_.OwnCopy, with_.Clipboard);
    const std::uint32_t now = with_.Clipboard.SequenceNumber();
    // Nobody copies in the target by hand while the menu is open.
    if (late_ && now != late_->Before && with_.Clipboard.OwnerProcess() == late_->Process) {
        with_.Snapshot.NoteOwnContent(now);
    }
    late_.reset();
    with_.Snapshot.RestoreClipboardSnapshot();
    with_.OwnCopy.ExpectNoCopy();
}

bool SelectedTextReader::IsTerminal(WindowHandle target) const {
    const std::u16string others = with_.TerminalClasses();
    return IsTerminalClass(with_.Windows.ClassName(target), others) ||
           IsTerminalClass(with_.Windows.ClassName(with_.Windows.RootOf(target)), others);
}

// Some windows answer only the keys, others only the message; edit controls answer it best.
bool SelectedTextReader::LetCopy(WindowHandle target, bool answersMessages, bool takesKeys) {
    const std::uint32_t before = with_.Clipboard.SequenceNumber();
    if (answersMessages && CopyByMessage(target, before)) {
        return true;
    }
    return (takesKeys && CopyByKeys(target, before)) ||
           (!answersMessages && CopyByMessage(target, before));
}

bool SelectedTextReader::CopyByMessage(WindowHandle target, std::uint32_t before) {
    with_.Windows.SendCopy(target, kCopyMs);
    return with_.Clipboard.SequenceNumber() != before;
}

bool SelectedTextReader::CopyByKeys(WindowHandle target, std::uint32_t before) {
    const auto hasCopied = [&] { return with_.Clipboard.SequenceNumber() != before; };
    with_.Keys.Use(target, kReleaseMs, [&](TargetKeys& keys) {
        if (!AwaitRelease(kReleaseMs, with_.HotkeyVk(), with_.Input, with_.Clock, with_.Log)) {
            return InputState::NotTaken;
        }
        const InputState state =
            keys.Send(CtrlWith(kVkC, with_.Input), kCopyMs, kCopyMs, hasCopied);
        if (state == InputState::Read) {
            WaitForChange(before, kGraceMs);
        }
        return state;
    });
    return hasCopied();
}

bool SelectedTextReader::WaitForChange(std::uint32_t before, std::uint32_t patienceMs) {
    const std::uint32_t start = with_.Clock.TickCount();
    while (with_.Clipboard.SequenceNumber() == before) {
        if (with_.Clock.TickCount() - start >= patienceMs) {
            return false;
        }
        with_.Clock.Sleep(kStepMs);
    }
    return true;
}

// The copy is read and the user's content put back while the clipboard is open: nothing newer can
// come in between.
std::u16string SelectedTextReader::TakeCopy() {
    const std::uint32_t start = with_.Clock.TickCount();
    const std::uint32_t copied = with_.Clipboard.SequenceNumber();
    while (true) {
        {
            const auto session = with_.Clipboard.Open(kClipboardPatienceMs);
            if (!session) {
                with_.Log.LogError(u"The copied selection can't be read: the clipboard is in use");
                with_.Snapshot.NoteOwnContent(copied);
                return {};
            }
            // Some programs empty the clipboard and fill it at a second try.
            const bool isEmpty = session->Formats().empty();
            if (!isEmpty || with_.Clock.TickCount() - start >= kGraceMs) {
                std::u16string text =
                    IsCopyWithoutSelection(*session) ? u"" : ReadAnyText(*session, with_.Ansi);
                with_.Snapshot.PutBack(*session);
                return text;
            }
        }
        with_.Clock.Sleep(kStepMs);
    }
}

}  // namespace vbr
