// SPDX-License-Identifier: MIT
#include "shell/win32/app_objects.h"

#include <atomic>

#include "shell/win32/event_sound_thread.h"

namespace vbr {
namespace {

std::atomic<HWND> g_trayWindow = nullptr;
std::atomic<NamedEvent*> g_stopEvent = nullptr;
std::atomic<EventSoundThread*> g_sounds = nullptr;

}  // namespace

HWND CAppObjects::TrayWindow() {
    return g_trayWindow;
}
void CAppObjects::SetTrayWindow(HWND window) {
    g_trayWindow = window;
}

NamedEvent* CAppObjects::StopEvent() {
    return g_stopEvent;
}
void CAppObjects::SetStopEvent(NamedEvent* event) {
    g_stopEvent = event;
}

void CAppObjects::PlayEventSound(EventSound sound) {
    if (EventSoundThread* sounds = g_sounds) {
        sounds->PlayEventSound(sound);
    }
}

void CAppObjects::SetSounds(EventSoundThread* sounds) {
    g_sounds = sounds;
}

MessageList& CAppObjects::Messages() {
    static MessageList messages;
    return messages;
}

TempFileList& CAppObjects::TempFiles() {
    static TempFileList files;
    return files;
}

}  // namespace vbr
