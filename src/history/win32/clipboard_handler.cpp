// SPDX-License-Identifier: MIT
#include "history/win32/clipboard_handler.h"

#include "base/text.h"
#include "platform/object_names.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_named_objects.h"
#include "platform/win32/win_system_error.h"

namespace vbr {
namespace {

constexpr std::u16string_view kProductName = u"Vellumbridge";

// What the handler answers to a thread of its own.
enum Answer : LRESULT { kNotTaken = 0, kTaken = 1, kLater = 2 };
constexpr DWORD kLaterMs = 200;

void LogGuardTaken(Log& log) {
    log.LogError(Concat(u"Another program holds the name ", kEventSaveLoadHistory,
                        u": the history is saved without it"));
}

// Set while nobody saves or loads.
std::unique_ptr<NamedEvent> OpenSaveLoadGuard(Log& log) {
    UniqueHandle event(CreateEventW(nullptr, TRUE, TRUE, Wide(kEventSaveLoadHistory.data())));
    if (!event) {
        LogGuardTaken(log);
        return nullptr;
    }
    return std::make_unique<WinNamedEvent>(std::move(event));
}

UINT Registered(std::u16string_view name) {
    return RegisterWindowMessageW(Wide(name.data()));
}

}  // namespace

CVBRWndClipboardHandler::CVBRWndClipboardHandler(Collaborators with)
    : with_(std::move(with)),
      loaded_(Registered(kMessageHistoryLoaded)),
      saved_(Registered(kMessageItemSaved)),
      addItem_(Registered(kMessageAddItem)),
      itemStored_(Registered(kMessageItemStored)),
      folder_(with_.Folder, with_.Store, with_.Files, with_.Log),
      spy_(with_.Log),
      capture_({.Access = with_.Access,
                .Windows = with_.Windows,
                .Clock = with_.Clock,
                .MyCopy = with_.MyCopy,
                .Kept = with_.Settings.ClipboardFormats,
                .Ansi = with_.Ansi,
                .Bitmaps = with_.Bitmaps,
                .Log = with_.Log}),
      changes_({.Capture = capture_,
                .Access = with_.Access,
                .Clock = with_.Clock,
                .OnItem = [this](std::unique_ptr<CCHItem> item,
                                 HistoryChange change) { Add(std::move(item), change); },
                .StartTimer =
                    [this](std::uint32_t milliseconds) {
                        SetTimer(Handle(), kTimerLookAgain, milliseconds, nullptr);
                    },
                .Log = with_.Log}),
      saver_({.Queue = queue_,
              .Worker = worker_,
              .IsOn = with_.Settings.SaveClipboardHistory,
              .MaxItems = with_.Settings.ClipboardHistoryMax,
              .TellLoaded = [this](CCHQueue& queue) { return TellLoaded(queue); },
              .TellSaved =
                  [this](const CCHItem& item) {
                      return SendFromWorker(reportTo_, saved_, &item) == kTaken;
                  },
              .TellEnded = with_.SaveEnded}),
      worker_(folder_, OpenSaveLoadGuard(with_.Log),
              {.OnGivenUp = [this] { LogGuardTaken(with_.Log); }}) {
    queue_.OnArrived([this] { OnAdded(HistoryChange::Captured); });
}

CVBRWndClipboardHandler::~CVBRWndClipboardHandler() {
    Destroy();
    // What was changed while there was no window.
    saver_.SaveRest();
}

bool CVBRWndClipboardHandler::Create(HWND parent, UINT controlId, bool captureOnCreate) {
    if (IsKeeping()) {
        return true;
    }
    controlId_ = controlId;
    captureOnCreate_ = captureOnCreate;
    lastError_ = 0;
    WindowCreation creation;
    creation.ClassName = L"Vellumbridge_ClipboardHandler";
    creation.Style = WS_CHILD;
    creation.Parent = parent;
    if (WindowBase::Create(creation)) {
        return true;
    }
    if (lastError_ == 0) {
        lastError_ = GetLastError();
    }
    with_.Log.LogError(Concat(u"Clipboad History, ", u"Error code: ", lastError_, u"\n",
                              SystemErrorOf(lastError_).Text));
    return false;
}

bool CVBRWndClipboardHandler::Destroy() {
    CaptureNow();
    return !IsKeeping() || DestroyWindow(Handle());
}

void CVBRWndClipboardHandler::CaptureNow() {
    if (IsKeeping()) {
        changes_.CaptureNow(reinterpret_cast<WindowHandle>(GetClipboardOwner()));
    }
}

std::optional<LRESULT> CVBRWndClipboardHandler::OnMessage(UINT message, WPARAM wParam,
                                                          LPARAM lParam) {
    using Self = CVBRWndClipboardHandler;
    static constexpr MessageHandler<Self> kMap[] = {
        {WM_CREATE, &Self::OnCreate},
        {WM_DESTROY, &Self::OnDestroy},
        {WM_TIMER, &Self::OnTimer},
        {WM_SAVE_HISTORY, &Self::OnSaveHistory},
        {WM_DELAY_UNLOCK, &Self::OnDelayUnlock},
    };
    if (message == loaded_) {
        return OnLoaded(lParam);
    }
    if (message == saved_) {
        return OnSaved(lParam);
    }
    if (message == addItem_) {
        return OnAddItem(lParam);
    }
    if (message == itemStored_) {
        return OnItemStored(lParam);
    }
    return DispatchMessageMap(*this, kMap, message, wParam, lParam);
}

LRESULT CVBRWndClipboardHandler::OnCreate(WPARAM, LPARAM) {
    SetWindowLongPtrW(Handle(), GWLP_ID, static_cast<LONG_PTR>(controlId_));
    if (!InstallSpy()) {
        lastError_ = GetLastError();
        return -1;
    }
    reportTo_ = Handle();
    if (with_.Settings.SaveClipboardHistory) {
        saver_.Load();
    }
    if (captureOnCreate_) {
        changes_.OnChange(0, HistoryChange::AtCreation);
    } else {
        changes_.SkipContent();
    }
    return 0;
}

LRESULT CVBRWndClipboardHandler::OnDestroy(WPARAM, LPARAM) {
    reportTo_ = nullptr;
    saver_.SaveRest();
    return 0;
}

bool CVBRWndClipboardHandler::InstallSpy() {
    const auto method =
        SpyMethodOfSetting(with_.Settings.ClipboardSpyMethod, HasClipboardListener());
    if (!method) {
        with_.Log.LogError(
            Concat(u"No clipboard spy method has the number ", with_.Settings.ClipboardSpyMethod));
        return false;
    }
    spy_.Spy().ClearObservers();
    spy_.Spy().AddObserver(*this, 0);
    const bool useListener = *method == SpyMethod::CSMO_ADDCLIPBOARDLISTENER;
    if (!spy_.Install(useListener, Handle())) {
        return false;
    }
    trackingState_ = useListener ? TrackingState::Listener : TrackingState::Viewer;
    return true;
}

void CVBRWndClipboardHandler::OnClipboardChanged(WindowHandle& owner, std::uint32_t) {
    changes_.OnChange(owner, HistoryChange::Captured);
}

void CVBRWndClipboardHandler::_OnClipboardSpyStateChanged(std::uint32_t) {
    if (onSpyState_) {
        onSpyState_(IsKeeping());
    }
    MessageBoxW(nullptr, L"CVBRWndClipboardHandler::_OnClipboardSpyStateChanged",
                Wide(kProductName.data()), MB_TOPMOST);
}

void CVBRWndClipboardHandler::Add(std::unique_ptr<CCHItem> item, HistoryChange change) {
    if (queue_.Add(std::move(item), with_.Settings.ClipboardHistoryMax)) {
        OnAdded(change);
    }
}

void CVBRWndClipboardHandler::OnAdded(HistoryChange change) {
    Notify(kNoticeHistoryChanged, change);
    if (IsKeeping()) {
        PostMessageW(Handle(), WM_SAVE_HISTORY, 0, 0);
    } else {
        Save();
    }
}

void CVBRWndClipboardHandler::Notify(std::uint32_t code, HistoryChange change) {
    HistoryNotice notice{{Handle(), controlId_, code}, static_cast<std::uint32_t>(change)};
    if (Handle()) {
        SendMessageW(GetParent(Handle()), WM_NOTIFY, controlId_, reinterpret_cast<LPARAM>(&notice));
    }
}

LRESULT CVBRWndClipboardHandler::OnDelayUnlock(WPARAM, LPARAM) {
    with_.MyCopy.EndBlock();
    return 0;
}

void CVBRWndClipboardHandler::RequestSave() {
    saver_.RequestSave(with_.Clock.TickCount());
    if (IsKeeping()) {
        SetTimer(Handle(), kTimerSave, kSaveTimerMs, nullptr);
    } else {
        Save();
    }
}

LRESULT CVBRWndClipboardHandler::OnTimer(WPARAM id, LPARAM) {
    if (id == kTimerLookAgain) {
        KillTimer(Handle(), kTimerLookAgain);
        changes_.OnTimer();
    }
    if (id == kTimerSave && saver_.IsDue(with_.Clock.TickCount())) {
        KillTimer(Handle(), kTimerSave);
        PostMessageW(Handle(), WM_SAVE_HISTORY, 0, 0);
    }
    return 0;
}

LRESULT CVBRWndClipboardHandler::OnSaveHistory(WPARAM, LPARAM) {
    saver_.Save();
    return 0;
}

bool CVBRWndClipboardHandler::TellLoaded(CCHQueue& queue) {
    LRESULT answer = kLater;
    while (answer == kLater) {
        answer = SendFromWorker(reportTo_, loaded_, &queue);
        if (answer == kLater && with_.ProgramEnd.Wait(kLaterMs) != WaitResult::TimedOut) {
            break;
        }
    }
    return answer == kTaken;
}

LRESULT CVBRWndClipboardHandler::SendFromWorker(HWND window, UINT message, const void* sent) {
    sentByWorker_ = sent;
    const LRESULT answer = SendMessageW(window, message, 0, reinterpret_cast<LPARAM>(sent));
    sentByWorker_ = nullptr;
    return answer;
}

LRESULT CVBRWndClipboardHandler::OnLoaded(LPARAM queue) {
    if (queue == 0 || reinterpret_cast<const void*>(queue) != sentByWorker_) {
        return kNotTaken;
    }
    // A menu that is open names items by their place.
    if (queue_.IsLocked()) {
        return kLater;
    }
    saver_.Merge(*reinterpret_cast<CCHQueue*>(queue));
    Notify(kNoticeHistoryLoaded, HistoryChange::Captured);
    // What equal items or a clear have taken out goes from the disk, too.
    PostMessageW(Handle(), WM_SAVE_HISTORY, 0, 0);
    return kTaken;
}

LRESULT CVBRWndClipboardHandler::OnSaved(LPARAM item) {
    if (item == 0 || reinterpret_cast<const void*>(item) != sentByWorker_) {
        return kNotTaken;
    }
    queue_.NoteSaved(*reinterpret_cast<const CCHItem*>(item));
    return kTaken;
}

// Code of this process gives the address, but anybody may send the message.
const CCHItem* CVBRWndClipboardHandler::ItemAt(LPARAM address) {
    const auto* item = reinterpret_cast<const CCHItem*>(address);
    const bool isItem =
        address != 0 && RunSilently(with_.Faults, false, [item] { return CCHItem::IsAt(item); });
    return isItem ? item : nullptr;
}

LRESULT CVBRWndClipboardHandler::OnAddItem(LPARAM address) {
    const CCHItem* item = ItemAt(address);
    return item && queue_.Add(item->Copy(), with_.Settings.ClipboardHistoryMax);
}

LRESULT CVBRWndClipboardHandler::OnItemStored(LPARAM address) {
    const CCHItem* item = ItemAt(address);
    if (!item || item->storeState != StoreState::Saved) {
        return 0;
    }
    queue_.NoteStored(*item);
    return 1;
}

}  // namespace vbr
