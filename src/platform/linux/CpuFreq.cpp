// SPDX-License-Identifier: MIT
#include "platform/linux/CpuFreq.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <optional>

#include "platform/linux/CpuFreqText.h"
#include "platform/linux/Parse.h"

namespace vtx {
namespace {

using Steps = std::vector<std::uint64_t>;
/// One policy's folder for each highest clock: those that reach the same are of one kind.
using FolderByTop = std::map<std::uint64_t, const std::string*>;

constexpr std::string_view policiesFolder = "/sys/devices/system/cpu/cpufreq";
constexpr std::size_t listedLimit = 256;
constexpr std::size_t levelLimit = 384;
constexpr std::uint64_t usualSpacingKHz = 50'000;
constexpr std::uint64_t syntheticLimit = 128;

/// The processors of a policy. One whose processors are all offline tells nothing, but each of them
/// that was online before still leads to it.
std::vector<std::uint64_t> processorsOf(const LinuxRoot& root, const std::string& policy,
                                        const LinuxProcessors& processors) {
    const auto text = root.read(fmt::format("{}/{}/related_cpus", policiesFolder, policy));
    if (auto numbers = text ? parseNumbers(*text) : std::nullopt) return *std::move(numbers);
    std::vector<std::uint64_t> leading;
    for (const auto number : processors.numbers()) {
        const auto link = fmt::format("/sys/devices/system/cpu/cpu{}/cpufreq", number);
        if (root.linkName(link) == policy) leading.push_back(number);
    }
    return leading;
}

/// The places of a policy that no policy before it had.
std::vector<std::size_t> takePlaces(const std::vector<std::uint64_t>& numbers,
                                    const LinuxProcessors& processors, std::vector<bool>& taken) {
    std::vector<std::size_t> places;
    for (const auto number : numbers) {
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
        auto places = takePlaces(processorsOf(root, name, processors), processors, taken);
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

void sortOnce(Steps& steps) {
    std::ranges::sort(steps);
    const auto repeated = std::ranges::unique(steps);
    steps.erase(repeated.begin(), repeated.end());
}

Steps stepsOf(const LinuxRoot& root, const std::string& folder) {
    const auto highest = readClock(root, folder + "/cpuinfo_max_freq");
    Steps steps = listedIn(root, folder + "/scaling_available_frequencies");
    if (!steps.empty()) {
        const Steps boost = listedIn(root, folder + "/scaling_boost_frequencies");
        steps.insert(steps.end(), boost.begin(), boost.end());
        sortOnce(steps);
    } else {
        const auto lowest = readClock(root, folder + "/cpuinfo_min_freq");
        if (!lowest || !highest || *lowest > *highest) return {};
        steps.push_back(*lowest);
    }
    if (highest) leadUpTo(*highest, steps);
    return steps;
}

/// The steps of all kinds of policies together, or of the fastest alone where that is too much.
Steps stepsOfLevel(const LinuxRoot& root, const FolderByTop& kinds) {
    Steps all;
    for (const auto& [top, folder] : kinds) {
        const Steps steps = stepsOf(root, *folder);
        all.insert(all.end(), steps.begin(), steps.end());
        sortOnce(all);
        if (all.size() > levelLimit) return stepsOf(root, *kinds.rbegin()->second);
    }
    return all;
}

}  // namespace

CpuFreq::CpuFreq(const LinuxRoot& root, const LinuxProcessors& processors)
    : policies_(findPolicies(root, processors)) {
    std::array<FolderByTop, 2> kinds;
    for (const auto& policy : policies_) {
        const auto top = readClock(root, policy.folder + "/cpuinfo_max_freq").value_or(0);
        kinds.at(processors.levelAt(policy.places.front())).try_emplace(top, &policy.folder);
    }
    for (std::size_t level = 0; level < kinds.size(); ++level)
        stepsKHz_.at(level) = stepsOfLevel(root, kinds.at(level));
}

}  // namespace vtx
