// SPDX-License-Identifier: MIT
#include "exchange/win32/win_desktops.h"

#include <array>

#include "platform/win32/handle.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_system_error.h"

namespace vbr {
namespace {

constexpr std::size_t kNameMax = 1023;

// The system refuses to close the desktop of a running thread: so this may own that one too.
using UniqueDesktop = Unique<HDESK, CloseDesktop>;

class WinDesktop : public Desktop {
  public:
    explicit WinDesktop(UniqueDesktop desktop) : desktop_(std::move(desktop)) {}

    std::uintptr_t Handle() const override {
        return reinterpret_cast<std::uintptr_t>(desktop_.get());
    }

    DesktopName Name() const override {
        std::array<wchar_t, kNameMax + 1> text{};
        DWORD needed = 0;
        DesktopName name;
        name.Read = GetUserObjectInformationW(desktop_.get(), UOI_NAME, text.data(),
                                              kNameMax * sizeof(wchar_t), &needed) != 0;
        if (!name.Read) {
            name.Error = SystemErrorOf(GetLastError());
        }
        name.Text = FromWide(text.data());
        name.LengthNeeded = needed;
        return name;
    }

  private:
    UniqueDesktop desktop_;
};

std::unique_ptr<Desktop> Own(HDESK desktop) {
    return desktop ? std::make_unique<WinDesktop>(UniqueDesktop(desktop)) : nullptr;
}

}  // namespace

std::unique_ptr<Desktop> WinDesktops::OpenOfThread() {
    return Own(GetThreadDesktop(GetCurrentThreadId()));
}

std::unique_ptr<Desktop> WinDesktops::OpenInput() {
    return Own(OpenInputDesktop(0, FALSE, MAXIMUM_ALLOWED));
}

}  // namespace vbr
