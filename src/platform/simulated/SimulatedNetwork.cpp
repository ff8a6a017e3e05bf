// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedNetwork.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/Fault.h"

namespace vtx {
namespace {

constexpr std::uint32_t limit32 = 0xffff'ffffU;

SimulatedInterface interface(std::string name, std::vector<std::string> addresses,
                             std::optional<std::array<std::uint8_t, 6>> mac = std::nullopt,
                             std::uint32_t flags = interfaceIsUp | interfaceIsRunning) {
    SimulatedInterface made;
    made.name = std::move(name);
    made.addresses = std::move(addresses);
    made.mac = mac;
    made.flags = flags;
    return made;
}

}  // namespace

SimulatedNetwork::SimulatedNetwork(const Clock& clock) : clock_(clock) {
    using Mac = std::array<std::uint8_t, 6>;
    interfaces.push_back(interface("lo0", {"127.0.0.1", "::1", "fe80::1"}));
    interfaces.push_back(interface("gif0", {}, std::nullopt, 0));
    interfaces.push_back(interface("en0",
                                   {"fe80::4c8:11ff:fe22:3344", "192.0.2.17", "2001:db8::17"},
                                   Mac{0x06, 0xc8, 0x11, 0x22, 0x33, 0x44}));
    interfaces.push_back(interface("en1", {}, Mac{0x36, 0x11, 0x22, 0x33, 0x44, 0x40}));
    interfaces.push_back(
        interface("bridge0", {}, Mac{0x36, 0x11, 0x22, 0x33, 0x44, 0x41}, interfaceIsUp));
    interfaces.push_back(
        interface("awdl0", {"fe80::a8bb:ccff:fedd:eeff"}, Mac{0xaa, 0xbb, 0xcc, 0xdd, 0xee, 0xff}));
    interfaces.push_back(interface("utun0", {"fe80::ce81:b1c:bd2c:69e"}));
}

SimulatedInterface& SimulatedNetwork::at(std::string_view name) {
    const auto found = std::ranges::find(interfaces, name, &SimulatedInterface::name);
    if (found == interfaces.end())
        programmingFault(fmt::format("no interface {} in the simulated Mac", name));
    return *found;
}

void SimulatedNetwork::remove(std::string_view name) {
    const auto gone = at(name).name;
    std::erase_if(interfaces, [&gone](const auto& each) { return each.name == gone; });
}

void SimulatedNetwork::add(std::string_view name, std::uint64_t in, std::uint64_t out) {
    count(at(name), in, out);
}

void SimulatedNetwork::count(SimulatedInterface& interface, std::uint64_t in,
                             std::uint64_t out) const {
    interface.bytesIn += in;
    interface.bytesOut += out;
    if (width == CounterWidth::bits64) return;
    interface.bytesIn &= limit32;
    interface.bytesOut &= limit32;
}

void SimulatedNetwork::live(std::uint64_t seed) {
    living_.emplace(seed);
    livingSince_ = livedUntil_ = clock_.continuous();
}

void SimulatedNetwork::liveOn() {
    const Instant now = clock_.continuous();
    if (!living_ || now <= livedUntil_) return;
    const double span = toSeconds(now - livedUntil_);
    const auto rates = living_->network(now - livingSince_);
    livedUntil_ = now;
    const auto used = std::ranges::find_if(interfaces, [](const SimulatedInterface& each) {
        return (each.flags & interfaceIsUp) != 0 && each.name != "lo0" && !each.addresses.empty();
    });
    if (used == interfaces.end()) return;
    count(*used, static_cast<std::uint64_t>(rates.in * span),
          static_cast<std::uint64_t>(rates.out * span));
}

}  // namespace vtx
