// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

#include "platform/simulated/CallCounter.h"
#include "platform/simulated/Failures.h"
#include "platform/simulated/OutstandingHandles.h"

namespace vtx {

/// What a test watches and disturbs the simulated ports with. One for all ports, any thread.
struct Instruments {
    Failures failures;
    CallCounter counter;
    OutstandingHandles handles;

    /// Every port operation begins with this: counts the call and says whether it is to fail.
    [[nodiscard]] std::optional<int> enter(std::string_view operation) {
        counter.count(operation);
        return failures.take(operation);
    }
};

}  // namespace vtx
