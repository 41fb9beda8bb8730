// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "exchange/hook_library.h"
#include "exchange/hook_service.h"
#include "fakes/delivery_fixture.h"
#include "fakes/fake_ansi_text.h"
#include "fakes/fake_named_objects.h"

namespace vbr {

// A hook library that answers as the test says.
class FakeHookLibrary : public HookLibrary {
  public:
    explicit FakeHookLibrary(Journal& calls) : calls_(calls) {}

    bool Loads = true;
    std::optional<bool> InstallResult = true;
    std::uint32_t ErrorCode = 0;
    std::optional<bool> UninstallResult = true;
    WindowHandle Target = 0;
    std::optional<std::u16string> LogPath;  // as it was installed with

    bool Load() override { return Note("load", Loads); }
    void Unload() override { Note("unload", true); }
    std::optional<bool> Install(WPInstallParams& params) override {
        LogPath = params.LogPath ? std::optional<std::u16string>(params.LogPath) : std::nullopt;
        params.ErrorCode = ErrorCode;
        return Note("install", InstallResult);
    }
    std::optional<bool> Uninstall() override { return Note("uninstall", UninstallResult); }
    WindowHandle GetTargetWindow() override { return Target; }
    WindowHandle GetTargetWindowOther() override { return Target; }
    void BroadcastNull() override { Note("broadcast", true); }

  private:
    template <typename Result>
    Result Note(const char* call, Result result) {
        calls_.push_back(call);
        return result;
    }

    Journal& calls_;
};

// The route that a test wants.
class ChosenRoute : public QueryRoute {
  public:
    explicit ChosenRoute(QueryRoute& first) : To(&first) {}

    QueryRoute* To;

    QueryStart Start(WindowHandle target, std::uintptr_t wParam, WPQuery& query) override {
        return To->Start(target, wParam, query);
    }
};

// The hook service beside the delivery, on the local route.
struct ExchangeFixture : DeliveryFixture {
    FakeHookLibrary Library{Calls};
    FakeNamedObjects Objects;
    FakeAnsiText Ansi;
    CClipboardSnapshot Snapshot{Clipboard, Macros.Log};
    std::u16string TerminalClasses;
    SelectedTextReader Reader{{.Clipboard = Clipboard,
                               .Snapshot = Snapshot,
                               .Ansi = Ansi,
                               .Input = Input,
                               .Keys = Keys,
                               .Windows = Windows,
                               .Clock = Macros.Clock,
                               .OwnCopy = OwnCopy,
                               .Log = Macros.Log,
                               .HotkeyVk = [] { return kVkReturn; },
                               .TerminalClasses = [this] { return TerminalClasses; }}};
    LocalRoute Local{Windows, Reader};
    PostedRoute Posted{Windows, Reader, 777, Macros.Log};
    ChosenRoute Route{Local};
    CVBRDLLService Hooks{{.Library = Library,
                          .LibraryPath = u"L:\\lib.dll",
                          .Objects = Objects,
                          .Windows = Windows,
                          .Route = Route,
                          .Log = Macros.Log}};

    static constexpr std::uint16_t kVkReturn = 13;

    // What the target puts on the clipboard at Ctrl+C.
    void LetTargetCopy(std::vector<ClipboardBlock> blocks) {
        Input.OnSent = [this, blocks](const KeyEvent& event) {
            if (event.Vk == kVkC && (event.Flags & kKeyUp) == 0) {
                Clipboard.Copy(blocks);
            }
        };
    }
    void LetTargetCopy(const std::u16string& text) {
        LetTargetCopy(std::vector{FakeClipboardAccess::Text(text)});
    }
};

}  // namespace vbr
