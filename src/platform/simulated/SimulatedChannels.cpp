// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedChannels.h"

#include <utility>

#include "base/Fault.h"

namespace vtx {

void SimulatedChannels::addSource(Source source) {
    const std::lock_guard lock(mutex_);
    sources_.push_back(std::move(source));
}

void SimulatedChannels::script(std::vector<SimulatedChannel> channels) {
    const std::lock_guard lock(mutex_);
    script_ = std::move(channels);
}

void SimulatedChannels::addResidency(std::string_view channel, std::size_t state,
                                     std::int64_t residency) {
    const std::lock_guard lock(mutex_);
    if (script_) {
        for (SimulatedChannel& each : *script_) {
            if (each.name != channel || state >= each.states.size()) continue;
            each.states[state].residency += residency;
            return;
        }
    }
    programmingFault("no such state of a channel was written down");
}

void SimulatedChannels::unscript() {
    const std::lock_guard lock(mutex_);
    script_.reset();
}

std::vector<SimulatedChannel> SimulatedChannels::all() const {
    std::vector<Source> sources;
    {
        const std::lock_guard lock(mutex_);
        if (script_) return *script_;
        sources = sources_;
    }
    std::vector<SimulatedChannel> channels;
    for (const Source& source : sources) {
        auto part = source();
        channels.insert(channels.end(), std::make_move_iterator(part.begin()),
                        std::make_move_iterator(part.end()));
    }
    return channels;
}

}  // namespace vtx
