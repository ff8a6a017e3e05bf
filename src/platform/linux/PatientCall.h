// SPDX-License-Identifier: MIT
#pragma once

#include "base/Clock.h"
#include "platform/linux/SystemBus.h"

namespace vtx {

/// A call to a service whose answer is waited for a few seconds: a service that hangs answers then
/// as one that refuses, and so does a bus that is not there. What comes later is ignored. Dropping
/// the object forgets the call. Main executor; it must not outlive the bus and the clock.
class PatientCall {
public:
    using Answered = std::function<void(BusMessage&)>;

    /// Time enough for the bus to start a small program.
    static constexpr Duration patience = std::chrono::seconds(5);

    PatientCall(SystemBus& bus, Clock& clock) : bus_(bus), clock_(clock) {}

    /// Calls, in the place of what was called before. `answered` is told once, at once where there
    /// is no bus; it may drop the object or call again.
    void start(const BusCall& what, Answered answered);

private:
    SystemBus& bus_;
    Clock& clock_;
    Subscription answer_;
    Subscription limit_;
};

}  // namespace vtx
