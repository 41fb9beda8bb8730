// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <functional>
#include <vector>

namespace vbr {

// Calls those who follow something without its knowing them. Belongs to one thread.
template <typename... Values>
class Announcer {
  public:
    using Call = std::function<void(Values...)>;

    // `who` stands for the follower when it leaves or announces itself.
    void Add(const void* who, Call call) { followers_.push_back({who, std::move(call)}); }
    void Remove(const void* who) {
        std::erase_if(followers_, [who](const Follower& follower) { return follower.Who == who; });
    }

    // Calls all in turn, except the sender. One may remove itself, or another, while it is told.
    void Announce(const Values&... values, const void* sender = nullptr) const {
        const std::vector<Follower> told = followers_;
        for (const Follower& follower : told) {
            const bool stillThere = std::any_of(
                followers_.begin(), followers_.end(),
                [&follower](const Follower& known) { return known.Who == follower.Who; });
            if (stillThere && follower.Who != sender) {
                follower.Told(values...);
            }
        }
    }

  private:
    struct Follower {
        const void* Who = nullptr;
        Call Told;
    };

    std::vector<Follower> followers_;
};

}  // namespace vbr
