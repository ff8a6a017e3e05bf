// SPDX-License-Identifier: MIT
#include "platform/linux/CpuFreq.h"

#include <algorithm>
#include <optional>

#include "platform/linux/CpuFreqText.h"
#include "platform/linux/Parse.h"

namespace vtx {
namespace {

using Steps = std::vector<std::uint64_t>;

constexpr std::string_view policiesFolder = "/sys/devices/system/cpu/cpufreq";
constexpr std::size_t listedLimit = 256;
constexpr std::uint64_t usualSpacingKHz = 50'000;
constexpr std::uint64_t syntheticLimit = 128;

/// The places that a policy names and that no policy before it named.
std::vector<std::size_t> takePlaces(const LinuxRoot& root, const std::string& folder,
                                    const LinuxProcessors& processors, std::vector<bool>& taken) {
    std::vector<std::size_t> places;
    const auto text = root.read(folder + "/related_cpus");
    const auto numbers = text ? parseNumbers(*text) : std::nullopt;
    if (!numbers) return places;
    for (const auto number : *numbers) {
        if (number >= cpuNumberLimit) continue;
        const auto place = processors.placeOf(static_cast<std::uint32_t>(number));
        if (!place || taken[*place]) continue;
        taken[*place] = true;
        places.push_back(*place);
    }
    std::ranges::sort(places);
    return places;
}

std::vector<CpuFreqPolicy> findPolicies(const LinuxRoot& root, const LinuxProcessors& processors) {
    std::vector<CpuFreqPolicy> policies;
    std::vector<bool> taken(processors.count(), false);
    for (const auto& name : root.list(policiesFolder)) {
        if (!name.starts_with("policy")) continue;
        auto folder = std::string(policiesFolder).append("/").append(name);
        auto places = takePlaces(root, folder, processors, taken);
        if (!places.empty()) policies.push_back({std::move(folder), std::move(places)});
    }
    std::ranges::sort(policies, {}, [](const CpuFreqPolicy& policy) { return policy.places[0]; });
    return policies;
}

std::optional<std::uint64_t> readClock(const LinuxRoot& root, const std::string& file) {
    const auto kHz = root.readUnsigned(file);
    return kHz && isClock(*kHz) ? kHz : std::nullopt;
}

/// Empty too where one of the numbers is no clock: then nothing in the list is to be trusted.
Steps listedIn(const LinuxRoot& root, const std::string& file) {
    const auto text = root.read(file);
    auto steps = text ? parseNumbers(*text) : std::nullopt;
    if (!steps || steps->size() > listedLimit / 2 || !std::ranges::all_of(*steps, isClock))
        return {};
    return *std::move(steps);
}

/// Adds steps beyond the last one, up to and including the highest clock.
void leadUpTo(std::uint64_t highest, Steps& steps) {
    const std::uint64_t first = steps.back();
    if (highest <= first) return;
    const std::uint64_t spacing =
        std::max(usualSpacingKHz, (highest - first + syntheticLimit - 1) / syntheticLimit);
    for (auto step = first + spacing; step < highest; step += spacing) steps.push_back(step);
    steps.push_back(highest);
}

Steps stepsOf(const LinuxRoot& root, const std::string& folder) {
    const auto highest = readClock(root, folder + "/cpuinfo_max_freq");
    Steps steps = listedIn(root, folder + "/scaling_available_frequencies");
    if (!steps.empty()) {
        const Steps boost = listedIn(root, folder + "/scaling_boost_frequencies");
        steps.insert(steps.end(), boost.begin(), boost.end());
        std::ranges::sort(steps);
        const auto repeated = std::ranges::unique(steps);
        steps.erase(repeated.begin(), repeated.end());
    } else {
        const auto lowest = readClock(root, folder + "/cpuinfo_min_freq");
        if (!lowest || !highest || *lowest > *highest) return {};
        steps.push_back(*lowest);
    }
    if (highest) leadUpTo(*highest, steps);
    return steps;
}

}  // namespace

CpuFreq::CpuFreq(const LinuxRoot& root, const LinuxProcessors& processors)
    : policies_(findPolicies(root, processors)) {
    std::array<std::uint64_t, 2> highest{};
    std::array<const CpuFreqPolicy*, 2> fastest{};
    for (const auto& policy : policies_) {
        const std::size_t level = processors.levelAt(policy.places.front());
        const auto kHz = readClock(root, policy.folder + "/cpuinfo_max_freq").value_or(0);
        if (fastest.at(level) && kHz <= highest.at(level)) continue;
        highest.at(level) = kHz;
        fastest.at(level) = &policy;
    }
    for (std::size_t level = 0; level < fastest.size(); ++level) {
        if (fastest.at(level)) stepsKHz_.at(level) = stepsOf(root, fastest.at(level)->folder);
    }
}

}  // namespace vtx
