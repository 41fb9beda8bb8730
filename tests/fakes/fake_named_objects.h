// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "platform/named_objects.h"

namespace vbr {

// The events of a session: those that other processes hold, and those made here, which go with
// their last handle. A handle that is guarded against closing stays open, as the system has it.
// Names are constants, which outlive the test.
class FakeNamedObjects : public NamedObjects {
  public:
    using Name = std::u16string_view;

    std::set<Name> Others;
    std::set<Name> Refused;     // Create fails for these
    std::vector<Name> Signals;  // set from outside, in order
    std::vector<Name> Pulses;   // set and reset from outside
    std::multiset<Name> Owned;  // open handles made here
    std::set<Name> SetByOwner;
    std::map<Name, std::pair<EventReset, ObjectAccess>> Made;
    std::function<WaitResult(Name, std::uint32_t milliseconds)> OnWait;
    std::function<void(Name)> BeforeCreate = [](Name) {};
    std::function<void(Name)> OnSet = [](Name) {};

    std::unique_ptr<NamedEvent> Create(Name name, EventReset reset, ObjectAccess access) override {
        BeforeCreate(name);
        if (Refused.contains(name)) {
            return nullptr;
        }
        Made[name] = {reset, access};
        return std::make_unique<Event>(*this, name);
    }
    std::optional<SystemError> WaitFor(Name name, std::uint32_t milliseconds) override {
        if (!Exists(name)) {
            return SystemError{2, u"not there"};
        }
        return OnWait(name, milliseconds) == WaitResult::Signalled ? std::nullopt
                                                                   : std::optional(SystemError());
    }
    bool Exists(Name name) override { return Others.contains(name) || Owned.contains(name); }
    bool Signal(Name name) override { return Note(name, Signals); }
    bool Pulse(Name name) override { return Note(name, Pulses); }

  private:
    class Event : public NamedEvent {
      public:
        Event(FakeNamedObjects& session, Name name)
            : session_(session), name_(name), wasThere_(session.Exists(name)) {
            session_.Owned.insert(name_);
        }
        ~Event() override {
            if (!guarded_) {
                session_.Owned.erase(session_.Owned.find(name_));
            }
        }
        bool WasThere() const override { return wasThere_; }
        void Set() override {
            session_.OnSet(name_);
            session_.SetByOwner.insert(name_);
        }
        void Reset() override { session_.SetByOwner.erase(name_); }
        WaitResult Wait(std::uint32_t ms) override { return session_.OnWait(name_, ms); }
        void ProtectFromClose(bool on) override { guarded_ = on; }

      private:
        FakeNamedObjects& session_;
        Name name_;
        bool wasThere_;
        bool guarded_ = false;
    };

    bool Note(Name name, std::vector<Name>& list) {
        if (Exists(name)) {
            list.push_back(name);
        }
        return Exists(name);
    }
};

}  // namespace vbr
