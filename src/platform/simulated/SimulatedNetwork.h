// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Clock.h"
#include "platform/NetworkInterfaces.h"
#include "platform/simulated/LivingLoad.h"

namespace vtx {

/// A network interface of the simulated machine.
struct SimulatedInterface {
    std::string name;
    std::uint32_t flags = interfaceIsUp | interfaceIsRunning;
    std::optional<std::array<std::uint8_t, 6>> mac;
    /// IPv4 and IPv6 addresses in figures, in the kernel's order. What is neither is a record of
    /// another family.
    std::vector<std::string> addresses;
    std::uint64_t bytesIn = 0;
    std::uint64_t bytesOut = 0;
    std::optional<LinkKind> kind;
    bool hasLink = true;      ///< without one it has addresses alone
    bool hasCounters = true;  ///< of the link
};

/// How far the kernel's counters count before they begin again.
enum class CounterWidth { bits32, bits64 };

/// The network of the simulated machine: interfaces that come and go, and traffic. Main executor.
class SimulatedNetwork {
public:
    /// With the interfaces of a portable machine on a wireless network.
    explicit SimulatedNetwork(const Clock& clock);

    /// In the kernel's order. Any may be changed, added and removed.
    std::vector<SimulatedInterface> interfaces;
    CounterWidth width = CounterWidth::bits32;

    /// The one of that name. One that is not there is a programming fault.
    [[nodiscard]] SimulatedInterface& at(std::string_view name);
    void remove(std::string_view name);
    /// What went through since; the counters wrap at their width.
    void add(std::string_view name, std::uint64_t in, std::uint64_t out);

    /// From now on the first interface that is up, no loopback and has an address is used as if
    /// somebody worked at the machine.
    void live(std::uint64_t seed);
    /// Brings living counters up to now.
    void liveOn();

private:
    void count(SimulatedInterface& interface, std::uint64_t in, std::uint64_t out) const;

    const Clock& clock_;
    std::optional<LivingLoad> living_;
    Instant livingSince_;
    Instant livedUntil_;
};

}  // namespace vtx
