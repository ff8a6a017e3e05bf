// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/Date.h"
#include "platform/simulated/CoreLoad.h"
#include "platform/simulated/MacShape.h"

namespace vtx {

/// Bytes a second in both directions.
struct LivingRates {
    double in = 0.0;
    double out = 0.0;
};

/// The load of a machine that somebody works at: a few percent of background on the efficiency
/// cores, bursts on the performance cores that spread over fewer or more of them. A pure function
/// of seed, core and time, smooth in time, so that any moment can be asked for in any order.
class LivingLoad {
public:
    explicit LivingLoad(std::uint64_t seed) : seed_(seed) {}

    /// The load of a core at `sinceStart`, which is not negative.
    [[nodiscard]] CoreLoad at(CoreKind kind, std::size_t core, Duration sinceStart) const;
    /// The load of the graphics processor, which joins in the larger bursts.
    [[nodiscard]] double graphics(Duration sinceStart) const;
    /// What the drives read and write: little, and a lot while something is opened or saved.
    [[nodiscard]] LivingRates disk(Duration sinceStart) const;
    /// What goes over the network: a trickle, and now and then a download.
    [[nodiscard]] LivingRates network(Duration sinceStart) const;
    /// The part of the memory that is in use, which is rarely more than nine tenths.
    [[nodiscard]] double memory(Duration sinceStart) const;
    /// How much a program wants to run, 0 to 1: mostly little, at times much.
    [[nodiscard]] double appetite(std::uint64_t program, Duration sinceStart) const;

private:
    [[nodiscard]] double busy(CoreKind kind, std::size_t core, double time) const;
    /// Noise from 0 to 1 that is smooth over `period` seconds; channels are independent.
    [[nodiscard]] double noise(std::uint64_t channel, double time, double period) const;

    std::uint64_t seed_;
};

}  // namespace vtx
