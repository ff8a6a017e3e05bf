// SPDX-License-Identifier: MIT
#include "platform/simulated/LivingLoad.h"

#include <algorithm>
#include <cmath>

namespace vtx {
namespace {

/// A well-mixed number from 0 to below 1 for each key.
double unit(std::uint64_t key) {
    key += 0x9e3779b97f4a7c15u;
    key = (key ^ (key >> 30)) * 0xbf58476d1ce4e5b9u;
    key = (key ^ (key >> 27)) * 0x94d049bb133111ebu;
    key ^= key >> 31;
    return static_cast<double>(key >> 11) / 9007199254740992.0;  // 2^53
}

constexpr std::uint64_t burstChannel = 1;
constexpr std::uint64_t widthChannel = 2;
constexpr std::uint64_t graphicsChannel = 3;
constexpr std::uint64_t readChannel = 4;
constexpr std::uint64_t writeChannel = 5;
constexpr std::uint64_t receiveChannel = 6;
constexpr std::uint64_t sendChannel = 7;
constexpr std::uint64_t memoryChannel = 8;
constexpr std::uint64_t crowdChannel = 9;
constexpr std::uint64_t firstCoreChannel = 16;
constexpr std::uint64_t firstProgramChannel = std::uint64_t{1} << 20;

}  // namespace

CoreLoad LivingLoad::at(CoreKind kind, std::size_t core, Duration sinceStart) const {
    const double load = busy(kind, core, toSeconds(sinceStart));
    // Background work is mostly the kernel's and the low-priority services'.
    if (kind == CoreKind::efficiency) return {load * 0.45, load * 0.35, load * 0.20};
    return {load * 0.80, load * 0.18, load * 0.02};
}

double LivingLoad::graphics(Duration sinceStart) const {
    const double time = toSeconds(sinceStart);
    const double burst = std::pow(noise(burstChannel, time, 12.0), 3.0);
    const double scene = noise(graphicsChannel, time, 5.0);
    return std::clamp(0.02 + 0.12 * scene + 0.6 * burst * (0.5 + 0.5 * scene), 0.0, 1.0);
}

LivingRates LivingLoad::disk(Duration sinceStart) const {
    const double time = toSeconds(sinceStart);
    const double burst = std::pow(noise(burstChannel, time, 12.0), 3.0);
    return {2e8 * burst * std::pow(noise(readChannel, time, 3.0), 4.0),
            6e4 + 9e7 * std::pow(noise(writeChannel, time, 5.0), 6.0)};
}

LivingRates LivingLoad::network(Duration sinceStart) const {
    const double time = toSeconds(sinceStart);
    return {2e3 + 2e7 * std::pow(noise(receiveChannel, time, 9.0), 6.0),
            1e3 + 2e6 * std::pow(noise(sendChannel, time, 7.0), 6.0)};
}

double LivingLoad::appetite(std::uint64_t program, Duration sinceStart) const {
    const double wish = noise(firstProgramChannel + program, toSeconds(sinceStart), 15.0);
    return 0.05 + 0.95 * std::pow(wish, 3.0);
}

double LivingLoad::memory(Duration sinceStart) const {
    const double time = toSeconds(sinceStart);
    const double crowd = std::pow(noise(crowdChannel, time, 180.0), 4.0);
    return 0.40 + 0.12 * noise(memoryChannel, time, 25.0) + 0.45 * crowd;
}

double LivingLoad::busy(CoreKind kind, std::size_t core, double time) const {
    const std::uint64_t own = firstCoreChannel + core;
    const double burst = std::pow(noise(burstChannel, time, 12.0), 3.0);
    if (kind == CoreKind::efficiency)
        return std::clamp(0.02 + 0.10 * noise(own, time, 4.0) + 0.25 * burst, 0.0, 1.0);
    // Each core joins a burst at its own threshold, so that small bursts stay on few cores.
    const double threshold = 0.6 * unit(seed_ ^ own) * noise(widthChannel, time, 30.0);
    const double share = std::max(0.0, burst - threshold) * (0.7 + 0.3 * noise(own, time, 2.0));
    return std::clamp(0.005 + 0.03 * noise(own, time, 3.0) + share, 0.0, 1.0);
}

double LivingLoad::noise(std::uint64_t channel, double time, double period) const {
    const double position = time / period;
    const double step = std::floor(position);
    const auto key = (seed_ * 0x100000001b3u) ^ (channel << 40) ^ static_cast<std::uint64_t>(step);
    const double part = position - step;
    const double eased = part * part * (3.0 - 2.0 * part);
    const auto next =
        (seed_ * 0x100000001b3u) ^ (channel << 40) ^ (static_cast<std::uint64_t>(step) + 1);
    return std::lerp(unit(key), unit(next), eased);
}

}  // namespace vtx
