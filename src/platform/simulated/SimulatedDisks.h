// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "base/Clock.h"
#include "platform/simulated/LivingLoad.h"
#include "platform/simulated/SimulatedRegistry.h"

namespace vtx {

/// What a drive's driver has counted.
struct DiskCounters {
    std::uint64_t bytesRead = 0;
    std::uint64_t bytesWritten = 0;
    std::uint64_t readOperations = 0;
    std::uint64_t writeOperations = 0;

    friend bool operator==(const DiskCounters&, const DiskCounters&) = default;
};

/// The drives of the simulated machine: each a device, below it its driver, below that its medium.
/// They come and go, and their counters are set to whatever a test wants, or live. Any thread.
class SimulatedDisks {
public:
    using Node = SimulatedRegistry::Node;

    struct Description {
        /// As the device says it, with its blanks; absent where it says none.
        std::optional<std::string> product;
        /// The medium's device; absent without a medium.
        std::optional<std::string> bsdName;
    };

    /// The registry and the clock must outlive it.
    SimulatedDisks(SimulatedRegistry& registry, const Clock& clock)
        : registry_(registry), clock_(clock) {}

    /// Adds a drive behind those that are there and returns its driver's entry.
    Node attach(const Description& description);
    /// Takes the drive away with its device. One that is not there is a programming fault.
    void detach(Node driver);

    void setCounters(Node driver, const DiskCounters& counters);
    /// What was done since; wraps at 2^64 as the kernel's own counters do.
    void add(Node driver, const DiskCounters& done);
    /// As they are now.
    [[nodiscard]] DiskCounters counters(Node driver);

    /// From now on the first drive is read and written as if somebody worked at the machine.
    void live(std::uint64_t seed);

private:
    void liveOn();

    SimulatedRegistry& registry_;
    const Clock& clock_;
    std::mutex mutex_;  ///< of all below
    std::map<Node, DiskCounters> counters_;
    std::optional<LivingLoad> living_;
    Instant livingSince_;
    Instant livedUntil_;
};

}  // namespace vtx
