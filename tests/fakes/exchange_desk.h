// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "exchange/hook_library.h"
#include "exchange/hook_service.h"
#include "fakes/fake_clock.h"
#include "fakes/fake_desktop_windows.h"
#include "fakes/fake_named_objects.h"
#include "fakes/journal.h"
#include "fakes/memory_log.h"
#include "fakes/recording_input.h"
#include "platform/clipboard.h"

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

// Holds one text.
class FakeClipboard : public Clipboard {
  public:
    explicit FakeClipboard(Journal& calls) : calls_(calls) {}

    std::u16string Content;

    bool Empty() override {
        calls_.push_back("empty");
        Content.clear();
        return true;
    }
    std::u16string Text() const override {
        calls_.push_back("read");
        return Content;
    }
    std::u16string UnicodeText() const override { return Content; }

  private:
    Journal& calls_;
};

// The hook service with all that it works on.
struct ExchangeDesk {
    Journal Calls;
    MemoryLog Log;
    FakeClock Clock;
    FakeHookLibrary Library{Calls};
    FakeNamedObjects Objects;
    FakeDesktopWindows Windows{Calls};
    FakeClipboard Clipboard{Calls};
    RecordingInput Input{&Calls};
    SelectedTextReader Selection{Clipboard, Input, Windows, Clock,
                                 [this] { Calls.push_back("block history"); }};
    LocalRoad Road{Windows, Selection};
    CVBRDLLService Service{Library, Objects, Windows, Road, u"L:\\lib.dll", Log};
};

}  // namespace vbr
