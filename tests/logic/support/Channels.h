// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/simulated/SimulatedChannels.h"

namespace vtx {

/// A core's channel with the time spent in each of its states.
inline SimulatedChannel coreChannel(std::string name,
                                    std::vector<std::pair<std::string, std::int64_t>> states) {
    SimulatedChannel channel;
    channel.group = "CPU Stats";
    channel.subgroup = "CPU Core Performance States";
    channel.name = std::move(name);
    for (auto& [state, residency] : states) channel.states.push_back({state, residency});
    return channel;
}

}  // namespace vtx
