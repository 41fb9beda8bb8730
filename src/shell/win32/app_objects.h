// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include "platform/named_objects.h"
#include "shell/event_sounds.h"
#include "shell/hotkey_service.h"
#include "shell/temp_files.h"

namespace vbr {

class EventSoundThread;

// The process-wide objects that windows and threads of the shell reach.
class CAppObjects {
  public:
    // Set by the tray window when it is created, null before and after its life.
    static HWND TrayWindow();
    static void SetTrayWindow(HWND window);

    // The instance event, whose setting stops every thread; null in a control process.
    static NamedEvent* StopEvent();
    static void SetStopEvent(NamedEvent* event);

    // Plays a sound without waiting; silent while the tray window doesn't live.
    static void PlayEventSound(EventSound sound);
    static void SetSounds(EventSoundThread* sounds);

    // Start-up and service messages, kept to the end of the process. The main thread's.
    static MessageList& Messages();

    static TempFileList& TempFiles();
};

}  // namespace vbr
