// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace vbr {

// Told whether the clipboard spy runs.
class KeepObserver {
  public:
    virtual ~KeepObserver() = default;
    virtual void OnKeepChanged(bool spyRuns) = 0;
};

// What a UI observer is told.
enum class UiChange {
    LanguageApplied = 0,  // value 0
    Session = 1,          // value is the session's reason
};

class UiObserver {
  public:
    virtual ~UiObserver() = default;
    virtual void OnUiChanged(UiChange kind, std::uint32_t value) = 0;
};

// Objects that follow the tray window without its knowing them. Belongs to the main thread.
template <typename Observer>
class ObserverList {
  public:
    void Add(Observer& observer) { observers_.push_back(&observer); }
    void Remove(Observer& observer) { std::erase(observers_, &observer); }

    // Calls all in turn, except the sender. One may remove itself, or another, while it is told.
    template <typename Call>
    void Announce(Call&& call, const Observer* sender = nullptr) {
        const std::vector<Observer*> told = observers_;
        for (Observer* observer : told) {
            const bool stillThere =
                std::find(observers_.begin(), observers_.end(), observer) != observers_.end();
            if (stillThere && observer != sender) {
                call(*observer);
            }
        }
    }

  private:
    std::vector<Observer*> observers_;
};

}  // namespace vbr
