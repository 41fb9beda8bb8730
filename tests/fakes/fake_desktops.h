// SPDX-License-Identifier: MIT
#pragma once

#include "exchange/input_desktop.h"

namespace vbr {

struct DesktopFacts {
    std::uintptr_t Handle = 0;  // 0 can't be opened
    DesktopName Name;
};

// The thread's desktop, which takes the user's input too, until the test says otherwise.
class FakeDesktops : public Desktops {
  public:
    DesktopFacts OfThread{1, {true, u"Default"}};
    DesktopFacts Input{2, {true, u"Default"}};
    int Open = 0;

    std::unique_ptr<Desktop> OpenOfThread() override { return OpenOne(OfThread); }
    std::unique_ptr<Desktop> OpenInput() override { return OpenOne(Input); }

  private:
    class One : public Desktop {
      public:
        One(const DesktopFacts& facts, int& open) : facts_(facts), open_(open) { ++open_; }
        ~One() override { --open_; }
        std::uintptr_t Handle() const override { return facts_.Handle; }
        DesktopName Name() const override { return facts_.Name; }

      private:
        DesktopFacts facts_;
        int& open_;
    };

    std::unique_ptr<Desktop> OpenOne(const DesktopFacts& facts) {
        return facts.Handle ? std::make_unique<One>(facts, Open) : nullptr;
    }
};

}  // namespace vbr
