// SPDX-License-Identifier: MIT
#pragma once

#include "exchange/hook_service.h"
#include "fakes/fake_clipboard.h"
#include "fakes/fake_clock.h"
#include "fakes/fake_desktop_windows.h"
#include "fakes/fake_hook_library.h"
#include "fakes/fake_named_objects.h"
#include "fakes/memory_log.h"
#include "fakes/recording_input.h"

namespace vbr {

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
