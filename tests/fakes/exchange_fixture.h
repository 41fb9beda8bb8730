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
    SelectedTextReader Selection{{.Clipboard = Clipboard,
                                  .Ansi = Ansi,
                                  .Input = Input,
                                  .Windows = Windows,
                                  .Clock = Macros.Clock,
                                  .OwnCopy = OwnCopy}};
    LocalRoute Local{Windows, Selection};
    PostedRoute Posted{Windows, Selection, 777, Macros.Log};
    ChosenRoute Route{Local};
    CVBRDLLService Hooks{{.Library = Library,
                          .LibraryPath = u"L:\\lib.dll",
                          .Objects = Objects,
                          .Windows = Windows,
                          .Route = Route,
                          .Log = Macros.Log}};

    // What the target puts on the clipboard while it has time to copy.
    void LetTargetCopy(std::u16string text) {
        Macros.Clock.WhileAsleep = [this, text] {
            if (!text.empty()) {
                Clipboard.Copy({FakeClipboardAccess::Text(text)});
            }
        };
    }
};

}  // namespace vbr
