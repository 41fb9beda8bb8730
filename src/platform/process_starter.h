// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/named_objects.h"
#include "platform/system_error.h"

namespace vbr {

// How a process is made: the user is asked for an administrator's rights; by this one, with its
// rights; by the shell.
enum class StartWay { Elevated, Direct, ByShell };

// A process that was started.
class StartedProcess {
  public:
    virtual ~StartedProcess() = default;

    // Waits for its end; false when the stop event is set first.
    virtual bool WaitForEnd(NamedEvent& stop) = 0;
};

struct ProcessStart {
    std::unique_ptr<StartedProcess> Process;  // null on a failure
    SystemError Error;
};

// Starts programs whose end is of interest. Callable from any thread; a start may wait for the
// user.
class ProcessStarter {
  public:
    virtual ~ProcessStarter() = default;

    // `arguments` as they follow the path on the command line, with a blank in front.
    virtual ProcessStart Start(StartWay way, std::u16string_view path,
                               std::u16string_view arguments) = 0;
};

}  // namespace vbr
