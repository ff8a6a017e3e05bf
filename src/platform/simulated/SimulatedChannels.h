// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vtx {

/// One state of a channel and the time spent in it so far, in a unit of the channel's own.
struct SimulatedState {
    std::optional<std::string> name;
    std::int64_t residency = 0;
};

/// One thing that the chip counts. Texts that it does not have are absent.
struct SimulatedChannel {
    std::optional<std::string> group;
    std::optional<std::string> subgroup;
    std::optional<std::string> name;
    std::vector<SimulatedState> states;
    /// What the library says of the number of states, if not the truth.
    std::optional<std::int32_t> stateCount;
    std::optional<std::string> unit;
    std::int64_t value = 0;
    /// Stands in lists of channels as something that is none.
    bool isDictionary = true;
};

/// All that the simulated chip counts: what its parts say they count, unless a test writes down a
/// list of its own. Any thread.
class SimulatedChannels {
public:
    using Source = std::function<std::vector<SimulatedChannel>()>;

    /// Adds a part's channels, which are asked for whenever somebody looks.
    void addSource(Source source);
    /// From now on there are these channels and no others.
    void script(std::vector<SimulatedChannel> channels);
    /// Adds time to a state of a channel that was written down. One that was not is a programming
    /// fault.
    void addResidency(std::string_view channel, std::size_t state, std::int64_t residency);
    /// Back to what the parts count.
    void unscript();

    [[nodiscard]] std::vector<SimulatedChannel> all() const;

private:
    mutable std::mutex mutex_;
    std::vector<Source> sources_;
    std::optional<std::vector<SimulatedChannel>> script_;
};

}  // namespace vtx
