// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <type_traits>
#include <utility>

namespace vbr {

// Under this code a C++ exception is reported that nobody caught.
inline constexpr std::uint32_t kCodeCppException = 0x20474343;

// Runs a risky piece of the program so that a fault in it can be survived.
class FaultCatcher {
  public:
    virtual ~FaultCatcher() = default;

    // The code of the fault that ended the work half-way; nothing when it ran to its end. What the
    // work owned at a hardware fault isn't released.
    virtual std::optional<std::uint32_t> Run(const std::function<void()>& work) = 0;
};

// What `work` gives; after a fault in it what `onFault` gives, called with the fault's code.
template <typename Work, typename OnFault>
std::invoke_result_t<Work&> RunCaught(FaultCatcher& catcher, Work& work, OnFault&& onFault) {
    using Result = std::invoke_result_t<Work&>;
    if constexpr (std::is_void_v<Result>) {
        if (const auto code = catcher.Run([&work] { work(); })) {
            onFault(*code);
        }
    } else {
        std::optional<Result> result;
        const auto code = catcher.Run([&result, &work] { result.emplace(work()); });
        return code ? Result(onFault(*code)) : std::move(*result);
    }
}

// What `work` gives; after a fault in it `onFault`, and nobody hears of the fault.
template <typename Work>
std::invoke_result_t<Work&> RunSilently(FaultCatcher& catcher, std::invoke_result_t<Work&> onFault,
                                        Work&& work) {
    return RunCaught(catcher, work, [&onFault](std::uint32_t) { return std::move(onFault); });
}

}  // namespace vbr
