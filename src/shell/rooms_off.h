// SPDX-License-Identifier: MIT
#pragma once

#include "platform/log.h"
#include "shell/rooms.h"

namespace vbr {

// The rooms of a program that doesn't have them: each request is answered as by something that is
// off, and the log says so.
class RoomsOff : public PaneRoom, public CompanionRoom, public UpdateRoom, public TipRoom {
  public:
    explicit RoomsOff(Log& log) : log_(log) {}

    // With the rooms that the program has.
    Rooms With(HistoryRoom& history) { return {history, *this, *this, *this, *this}; }

    bool Exists() const override { return false; }
    void Show(PaneShowMode) override { Off(u"History pane"); }
    void Blink() override { Off(u"History pane"); }
    void Close() override {}
    std::optional<std::u16string> SelectedText() const override { return std::nullopt; }

    void StartEditor(bool, std::u16string_view) override { Off(u"Phrase editor"); }
    void OnEditorState(EditorState) override { Off(u"Phrase editor"); }
    void StartWelcome(std::u16string_view) override { Off(u"Welcome module"); }
    void StartFirstRunAutostart() override { Off(u"Autostart entry of the first run"); }

    void Schedule() override { Off(u"Update check"); }
    void Check() override { Off(u"Update check"); }
    void ShowResult(std::uintptr_t) override { Off(u"Update check"); }

    void Create(std::u16string_view) override { Off(u"Menu tips"); }
    // These come with every move in a menu: no line for each.
    void OnMenuSelect(std::uint32_t, std::uint32_t, std::uintptr_t) override {}
    void OnEnterIdle(std::uintptr_t, std::uintptr_t) override {}
    void Hide() override {}

  private:
    bool Off(std::u16string_view what) {
        log_.Write(Concat(what, u" is off"));
        return false;
    }

    Log& log_;
};

}  // namespace vbr
