// SPDX-License-Identifier: MIT
#include "telemetry/IOReportBridge.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <utility>

#include "base/Clock.h"
#include "base/Log.h"
#include "base/Shared.h"

namespace vtx {
namespace {

constexpr Logger logger{"IOReportBridge"};
constexpr const char* libraryPath = "/usr/lib/libIOReport.dylib";
constexpr int resolveNowAndGlobally = 10;
constexpr const char* symbols[] = {"IOReportCopyChannelsInGroup",   "IOReportCreateSubscription",
                                   "IOReportCreateSamples",         "IOReportCreateSamplesDelta",
                                   "IOReportChannelGetGroup",       "IOReportChannelGetSubGroup",
                                   "IOReportChannelGetChannelName", "IOReportStateGetCount",
                                   "IOReportStateGetNameForIndex",  "IOReportStateGetResidency"};
constexpr std::string_view group = "CPU Stats";
constexpr std::string_view subgroup = "CPU Core Performance States";
/// Beyond the states of any channel: a count like that is none.
constexpr std::int32_t absurdStateCount = 4096;

bool equalsIgnoringCase(std::string_view name, std::string_view upper) {
    return std::ranges::equal(name, upper, [](char a, char b) {
        return (a >= 'a' && a <= 'z' ? static_cast<char>(a - 'a' + 'A') : a) == b;
    });
}

bool isRunning(const IOReportBridge::Residency& state) {
    return !equalsIgnoringCase(state.name, "IDLE") && !equalsIgnoringCase(state.name, "OFF");
}

/// Absent where a state lost time, or where the sum is more than can be counted: of such a sample
/// no share means anything.
std::optional<std::int64_t> total(std::span<const IOReportBridge::Residency> states) {
    std::int64_t sum = 0;
    for (const auto& state : states) {
        if (state.value < 0 || state.value > std::numeric_limits<std::int64_t>::max() - sum)
            return std::nullopt;
        sum += state.value;
    }
    return sum;
}

std::optional<double> mean(const std::vector<double>& values) {
    if (values.empty()) return std::nullopt;
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

}  // namespace

std::shared_ptr<IOReportBridge> IOReportBridge::load(IOReportLibrary& library, const Clock& clock) {
    auto opened = library.open(libraryPath, resolveNowAndGlobally);
    if (!opened) {
        logger.standard("libIOReport.dylib unavailable");
        return nullptr;
    }
    for (const char* symbol : symbols) {
        if (opened->resolve(symbol)) continue;
        logger.standard("Missing IOReport symbol: {}", symbol);
        return nullptr;
    }
    return std::make_shared<IOReportBridge>(std::move(opened), clock);
}

std::shared_ptr<IOReportBridge> IOReportBridge::shared() {
    return Shared<SharedIOReportBridge>::get().bridge;
}

IOReportBridge::IOReportBridge(std::unique_ptr<IOReport> library, const Clock& clock)
    : library_(std::move(library)), clock_(clock) {}

std::optional<IOReportBridge::Subscription> IOReportBridge::makeCPUFrequencySubscription() const {
    const auto found = library_->copyChannelsInGroup(group, subgroup);
    if (!found) return std::nullopt;
    const auto wanted = library_->createMutableCopy(*found);
    if (!wanted) return std::nullopt;
    auto subscribed = library_->createSubscription(*wanted);
    if (!subscribed.subscription || !subscribed.channels) return std::nullopt;
    return Subscription{std::move(subscribed.subscription), std::move(subscribed.channels)};
}

std::optional<ClusterClockSample> IOReportBridge::clusterClockSample(
    const IOReportDictionary& delta, const CoreLayout& layout) const {
    const auto count = library_->channelCount(delta);
    if (!count) return std::nullopt;
    std::vector<double> performance;
    std::vector<double> efficiency;
    const auto append = [this](std::vector<double>& to, IOReportChannel channel,
                               std::span<const double> stepsMHz) {
        if (const auto mhz = averageFrequency(channel, stepsMHz)) to.push_back(*mhz);
    };
    for (std::size_t i = 0; i < *count; ++i) {
        const auto channel = library_->channel(delta, i);
        if (!channel || !isCoreChannel(*channel)) continue;
        const auto name = library_->channelName(*channel).value_or("");
        const auto contains = [&name](std::string_view part) {
            return name.find(part) != std::string_view::npos;
        };
        if (contains("PCPU"))
            append(performance, *channel, layout.pCoreFrequencyStepsMHz);
        else if (contains("ECPU") || contains("MCPU"))
            append(efficiency, *channel, layout.eCoreFrequencyStepsMHz);
    }
    if (performance.empty() && efficiency.empty()) return std::nullopt;
    return ClusterClockSample{mean(performance), mean(efficiency), clock_.now()};
}

std::optional<double> IOReportBridge::averageFrequency(IOReportChannel channel,
                                                       std::span<const double> stepsMHz) const {
    if (stepsMHz.empty()) return std::nullopt;
    auto states = stateResidencies(channel);
    std::erase_if(states, [](const Residency& state) { return !isRunning(state); });
    // States and steps meet by their order; what is beyond the shorter list does not count at all.
    states.resize(std::min(states.size(), stepsMHz.size()));
    const auto sum = total(states);
    if (!sum || *sum == 0) return std::nullopt;
    double mhz = 0.0;
    for (std::size_t i = 0; i < states.size(); ++i)
        mhz += static_cast<double>(states[i].value) / static_cast<double>(*sum) * stepsMHz[i];
    return mhz;
}

std::vector<IOReportBridge::Residency> IOReportBridge::stateResidencies(
    IOReportChannel channel) const {
    std::vector<Residency> states;
    const std::int32_t count = library_->stateCount(channel);
    if (count <= 0 || count > absurdStateCount) return states;
    states.reserve(static_cast<std::size_t>(count));
    for (std::int32_t i = 0; i < count; ++i)
        states.push_back(
            {library_->stateName(channel, i).value_or(""), library_->stateResidency(channel, i)});
    return states;
}

bool IOReportBridge::isCoreChannel(IOReportChannel channel) const {
    return library_->channelGroup(channel) == group &&
           library_->channelSubgroup(channel) == subgroup;
}

}  // namespace vtx
